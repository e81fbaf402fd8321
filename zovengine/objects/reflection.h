#pragma once

#include <rttr/registration>

namespace ZOVEngine {

/// The four entries that the editor's inspector expects of a field: shown at all, how it is
/// displayed, which field editor serves it ("float", "int", "bool", "unsigned", "std::string",
/// "Vector3"), label.
inline auto FieldMetadata(const char* typeinfo, const char* label,
                          const char* display_mode = "default") {
  return std::make_tuple(rttr::metadata("is_inspect", true),
                         rttr::metadata("DisplayMode", std::string(display_mode)),
                         rttr::metadata("typeinfo", std::string(typeinfo)),
                         rttr::metadata("name", std::string(label)));
}

}  // namespace ZOVEngine
