#pragma once

#include <rttr/registration>

#include <string>

namespace ZOVEngine {

/// Registers a component class for the editor's inspector.
///
/// Made once a class, in the class's own source file, within RTTR_REGISTRATION. The type is known
/// by its full name, namespace included, and carries "isInspect" and, as "componentname", its plain
/// name.
template <class T>
class ComponentRegistration {
 public:
  explicit ComponentRegistration(const std::string& plain_name)
      : m_class("ZOVEngine::" + plain_name) {
    m_class(rttr::metadata("isInspect", true), rttr::metadata("componentname", plain_name));
  }

  /// Adds an inspectable field. `typeinfo` chooses the field editor: "float", "int", "bool",
  /// "unsigned", "std::string" or "Vector3"; `label` is what the panel shows; `display_mode`
  /// chooses the display function.
  template <class Member>
  ComponentRegistration& Field(const char* name, Member member, const std::string& typeinfo,
                               const std::string& label,
                               const std::string& display_mode = "default") {
    m_class.property(name, member)(
        rttr::metadata("is_inspect", true), rttr::metadata("DisplayMode", display_mode),
        rttr::metadata("typeinfo", typeinfo), rttr::metadata("name", label));
    return *this;
  }

  /// Adds a method that is reached by name.
  template <class Function>
  ComponentRegistration& Method(const char* name, Function function) {
    m_class.method(name, function);
    return *this;
  }

 private:
  rttr::registration::class_<T> m_class;
};

/// Registers a system class; it carries its plain name as "systemname".
template <class T>
class SystemRegistration {
 public:
  explicit SystemRegistration(const std::string& plain_name) : m_class("ZOVEngine::" + plain_name) {
    m_class(rttr::metadata("systemname", plain_name));
  }

  /// Adds a tuning method that is reached by name.
  template <class Function>
  SystemRegistration& Method(const char* name, Function function) {
    m_class.method(name, function);
    return *this;
  }

 private:
  rttr::registration::class_<T> m_class;
};

}  // namespace ZOVEngine
