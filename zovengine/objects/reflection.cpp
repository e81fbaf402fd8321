#include "objects/reflection.h"

namespace ZOVEngine {

Metadata MakeMetadata(const std::string& key, const std::string& value) {
  return rttr::metadata(key, value);
}

Metadata MakeMetadata(const std::string& key, bool value) {
  return rttr::metadata(key, value);
}

Metadata MakeMetadata(const std::string& key, std::optional<double> value) {
  return rttr::metadata(key, value ? rttr::variant(*value) : rttr::variant());
}

}  // namespace ZOVEngine
