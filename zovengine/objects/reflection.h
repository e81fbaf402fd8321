#pragma once

#include <rttr/registration>

#include <optional>
#include <string>

#include "objects/fieldbounds.h"

namespace ZOVEngine {

/// A key and a value that reflection keeps with a class or a field.
using Metadata = decltype(rttr::metadata(rttr::variant(), rttr::variant()));

/// Made in one place: the library's code for each kind of value takes the compiler seconds.
Metadata MakeMetadata(const std::string& key, const std::string& value);
Metadata MakeMetadata(const std::string& key, bool value);
/// Without a number the entry is as good as none: its value is not valid.
Metadata MakeMetadata(const std::string& key, std::optional<double> value);

/// Registers a component class for the editor's inspector.
///
/// Made once a class, in the class's own source file, within ZOV_REGISTRATION. The type is known
/// by its full name, namespace included, and carries "isInspect" and, as "componentname", its plain
/// name.
template <class T>
class ComponentRegistration {
 public:
  explicit ComponentRegistration(const std::string& plain_name)
      : m_class("ZOVEngine::" + plain_name) {
    m_class(MakeMetadata("isInspect", true), MakeMetadata("componentname", plain_name));
  }

  /// Adds an inspectable field. `typeinfo` chooses the field editor: "float", "int", "bool",
  /// "unsigned", "std::string" or "Vector3"; `label` stands in the panel; `display_mode`
  /// chooses the display function; `bounds` are the ends of the slider.
  template <class Member>
  ComponentRegistration& Field(const char* name, Member member, const std::string& typeinfo,
                               const std::string& label,
                               const std::string& display_mode = "default",
                               const FieldBounds& bounds = {}) {
    m_class.property(name, member)(
        MakeMetadata("is_inspect", true), MakeMetadata("DisplayMode", display_mode),
        MakeMetadata("typeinfo", typeinfo), MakeMetadata("name", label),
        MakeMetadata("min", bounds.min), MakeMetadata("max", bounds.max));
    return *this;
  }

  /// Adds a field that is reached by name and that the inspector does not show.
  template <class Member>
  ComponentRegistration& HiddenField(const char* name, Member member) {
    m_class.property(name, member);
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
    m_class(MakeMetadata("systemname", plain_name));
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

/// Opens the function that registers a class when the program starts, `ZOV_REGISTRATION(Name) {…}`.
/// Unlike RTTR_REGISTRATION, several of them may stand in one translation unit.
#define ZOV_REGISTRATION(Name)                                                       \
  static void Register##Name();                                                      \
  [[maybe_unused]] static const bool g_registered_##Name = (Register##Name(), true); \
  static void Register##Name()
