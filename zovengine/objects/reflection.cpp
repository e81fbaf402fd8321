#include "objects/reflection.h"

namespace ZOVEngine {

Metadata MakeMetadata(const std::string& key, const std::string& value) {
  return rttr::metadata(key, value);
}

Metadata MakeMetadata(const std::string& key, bool value) {
  return rttr::metadata(key, value);
}

}  // namespace ZOVEngine
