#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

#include "core/base/clock.h"

namespace ZOVEngine {

/// One entry of the profile table: the last measurement under a name.
struct ProfileRecord {
  std::string name;
  float value = 0.0f;         ///< a rate, a count, or elapsed seconds, as `isSystemTime` tells
  bool isSystemTime = false;  ///< true: seconds spent in a system's step
};

/// The global table of measurements. Systems write it each step; it is there for a debugger and an
/// overlay, and nothing in the program reads it back.
std::unordered_map<std::string, ProfileRecord>& ProfileTable();

/// Creates the entry `name` if it is absent and overwrites its value and flag.
void RecordProfile(const std::string& name, float value, bool isSystemTime);

/// Records the seconds from `start_nanoseconds` until now under `name`, as system time.
void RecordElapsed(const std::string& name, std::int64_t start_nanoseconds);

}  // namespace ZOVEngine
