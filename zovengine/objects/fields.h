#pragma once

#include <array>
#include <string>
#include <type_traits>
#include <vector>

#include "core/base/vector3d.h"
#include "jsonunserializer.h"
#include "objects/fieldforms.h"
#include "objects/reflection.h"

namespace ZOVEngine {

// One list of a component's fields serves its reader, its writer, the inspector and the check of
// files before they are read (objects/fieldforms.h). A class
// declares it by ZOV_DECLARE_FIELDS() and defines it in its source, before ZOV_COMPONENT_FIELDS: a
// line for each field, in the order of the files, `visit(key, &Class::member)`, with the label of
// the inspector behind it if the inspector shows the field, and behind that the bounds of its
// slider if it has natural ones. `visit.Checked(key, &Class::member,
// Check)` calls `Check(value)` with the value that was read, which ends in FailReading if it is not
// allowed. Where files and inspector differ in names or order, the class has two lists: `Fields`
// for files and `Inspected`, of the same form, for the inspector; there, `visit.Hidden(name,
// &Class::member)` makes a field known by its name without showing it. Where a file is written in
// another order than it is read, a list `Written` gives that order; parts that both lists share are
// functions of their own.

/// Reads a field by its type, in the manner of ReadValue.
template <class T>
void ReadField(const Value& object, const char* key, T* out) {
  ReadValue(object, key, out);
}
inline void ReadField(const Value& object, const char* key, Vector3D* out) {
  ReadVector3D(object, key, out);
}
inline void ReadField(const Value& object, const char* key, std::array<float, 2>* out) {
  ReadVector2(object, key, out);
}
inline void ReadField(const Value& object, const char* key, std::array<int, 2>* out) {
  ReadIntPair(object, key, out);
}
inline void ReadField(const Value& object, const char* key, std::array<float, 4>* out) {
  ReadVector4(object, key, out);
}
inline void ReadField(const Value& object, const char* key, std::array<Vector3D, 2>* out) {
  ReadVector3DPair(object, key, out);
}
inline void ReadField(const Value& object, const char* key, std::vector<Vector3D>* out) {
  ReadVector3DArray(object, key, out);
}

/// Writes a field by its type, in the manner of WriteValue.
template <class T>
void WriteField(Writer& writer, const char* key, const T& value) {
  WriteValue(writer, key, value);
}
inline void WriteField(Writer& writer, const char* key, const Vector3D& value) {
  WriteVector3D(writer, key, value);
}
inline void WriteField(Writer& writer, const char* key, const std::array<float, 2>& value) {
  WriteVector2(writer, key, value);
}
inline void WriteField(Writer& writer, const char* key, const std::array<int, 2>& value) {
  WriteIntPair(writer, key, value);
}
inline void WriteField(Writer& writer, const char* key, const std::array<float, 4>& value) {
  WriteVector4(writer, key, value);
}
inline void WriteField(Writer& writer, const char* key, const std::array<Vector3D, 2>& value) {
  WriteVector3DPair(writer, key, value);
}
inline void WriteField(Writer& writer, const char* key, const std::vector<Vector3D>& value) {
  WriteVector3DArray(writer, key, value);
}

/// The name of the inspector's editor for a field of type T.
template <class T>
constexpr const char* FieldEditor() {
  if constexpr (std::is_same_v<T, bool>) return "bool";
  if constexpr (std::is_same_v<T, int>) return "int";
  if constexpr (std::is_same_v<T, unsigned>) return "unsigned";
  if constexpr (std::is_same_v<T, float>) return "float";
  if constexpr (std::is_same_v<T, std::string>) return "std::string";
  return "Vector3";
}

/// Reads the listed fields of `component` from the value of its key.
template <class T>
class FieldReader {
 public:
  FieldReader(const Value& value, T* component) : m_value(value), m_component(component) {}
  template <class C, class M, class... Shown>
  void operator()(const char* key, M C::*member, Shown...) {
    ReadField(m_value, key, &(m_component->*member));
  }
  template <class C, class M, class Check>
  void Checked(const char* key, M C::*member, Check check) {
    (*this)(key, member);
    check(m_component->*member);
  }

 private:
  const Value& m_value;
  T* m_component;
};

/// Writes the listed fields of `component` into an object that the caller has opened.
template <class T>
class FieldWriter {
 public:
  FieldWriter(Writer& writer, const T& component) : m_writer(writer), m_component(component) {}
  template <class C, class M, class... Shown>
  void operator()(const char* key, M C::*member, Shown...) {
    WriteField(m_writer, key, m_component.*member);
  }
  template <class C, class M, class Check>
  void Checked(const char* key, M C::*member, Check) {
    (*this)(key, member);
  }

 private:
  Writer& m_writer;
  const T& m_component;
};

/// Registers the listed fields that have a label for the inspector, under their keys.
template <class T>
class FieldRegistrar {
 public:
  explicit FieldRegistrar(ComponentRegistration<T>* registration) : m_registration(registration) {}
  template <class C, class M>
  void operator()(const char*, M C::*) {}
  template <class C, class M>
  void operator()(const char* key, M C::*member, const char* label,
                  const char* display_mode = "default", const FieldBounds& bounds = {}) {
    m_registration->Field(key, static_cast<M T::*>(member), FieldEditor<M>(), label, display_mode,
                          bounds);
  }
  template <class C, class M>
  void operator()(const char* key, M C::*member, const char* label, const FieldBounds& bounds) {
    (*this)(key, member, label, "default", bounds);
  }
  template <class C, class M, class Check>
  void Checked(const char*, M C::*, Check) {}
  template <class C, class M>
  void Hidden(const char* key, M C::*member) {
    m_registration->HiddenField(key, static_cast<M T::*>(member));
  }

 private:
  ComponentRegistration<T>* m_registration;
};

/// Reads all fields of a component's file, in the order of its list.
template <class T>
void ReadFields(const Value& value, T* component) {
  FieldReader<T> visit(value, component);
  T::Fields(visit);
}

/// Writes all fields of a component's file, in the order of `Written` if the class has that list.
template <class T>
void WriteFields(Writer& writer, const T& component) {
  FieldWriter<T> visit(writer, component);
  if constexpr (requires { T::Written(visit); }) {
    T::Written(visit);
  } else {
    T::Fields(visit);
  }
}

/// Registers a component class and the fields that it shows.
template <class T>
ComponentRegistration<T>& RegisterFields(ComponentRegistration<T>&& registration) {
  FieldRegistrar<T> visit(&registration);
  if constexpr (requires { T::Inspected(visit); }) {
    T::Inspected(visit);
  } else {
    T::Fields(visit);
  }
  return registration;
}

}  // namespace ZOVEngine

/// Defines reader and writer of a component by its list of fields.
#define ZOV_COMPONENT_FILE(Class)               \
  ZOV_COMPONENT_FORMS(Class)                    \
  void Class::Unserialize(const Value& value) { \
    ReadFields(value, this);                    \
  }                                             \
  void Class::Serialize(Writer& writer) {       \
    WriteFields(writer, *this);                 \
  }

/// Registers a component and the fields that its list shows for the inspector.
#define ZOV_COMPONENT_INSPECTED(Class)                      \
  [[maybe_unused]] static const bool g_registered_##Class = \
      (RegisterFields(ComponentRegistration<Class>(#Class)), true);

/// Does both: enough for a component that has no code for its record besides its list.
#define ZOV_COMPONENT_FIELDS(Class) \
  ZOV_COMPONENT_FILE(Class)         \
  ZOV_COMPONENT_INSPECTED(Class)
