#include "core/base/profile.h"

namespace ZOVEngine {

std::unordered_map<std::string, ProfileRecord>& ProfileTable() {
  static std::unordered_map<std::string, ProfileRecord> table;
  return table;
}

void RecordProfile(const std::string& name, float value, bool isSystemTime) {
  ProfileRecord& record = ProfileTable()[name];
  if (record.name.empty()) record.name = name;
  record.value = value;
  record.isSystemTime = isSystemTime;
}

void RecordElapsed(const std::string& name, std::int64_t start_nanoseconds) {
  const float seconds = static_cast<float>(NowNanoseconds() - start_nanoseconds) / 1e9f;
  RecordProfile(name, seconds, true);
}

}  // namespace ZOVEngine
