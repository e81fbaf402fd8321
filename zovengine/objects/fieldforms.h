#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "core/base/vector3d.h"

namespace ZOVEngine {

/// What a file must hold under the key of a field, named after the value's shape in JSON. A whole
/// number is read by its low 32 bits, so a fraction gives another number.
enum class FieldForm : std::uint8_t {
  kFlag,
  kWhole,
  kNumber,
  kText,
  kWholePair,
  kNumberPair,
  kVector,  ///< three numbers
  kNumberQuad,
  kVectorPair,
  kVectors,
};

/// The form of a field of type T.
template <class T>
constexpr FieldForm FormOf() {
  if constexpr (std::is_same_v<T, bool>) return FieldForm::kFlag;
  if constexpr (std::is_same_v<T, float>) return FieldForm::kNumber;
  if constexpr (std::is_same_v<T, std::string>) return FieldForm::kText;
  if constexpr (std::is_same_v<T, std::array<int, 2>>) return FieldForm::kWholePair;
  if constexpr (std::is_same_v<T, std::array<float, 2>>) return FieldForm::kNumberPair;
  if constexpr (std::is_same_v<T, Vector3D>) return FieldForm::kVector;
  if constexpr (std::is_same_v<T, std::array<float, 4>>) return FieldForm::kNumberQuad;
  if constexpr (std::is_same_v<T, std::array<Vector3D, 2>>) return FieldForm::kVectorPair;
  if constexpr (std::is_same_v<T, std::vector<Vector3D>>) return FieldForm::kVectors;
  static_assert(!std::is_integral_v<T> || sizeof(T) <= 4, "no reader takes longer numbers");
  return FieldForm::kWhole;
}

/// A key of a component's record and what must stand under it.
struct FieldEntry {
  const char* key;
  FieldForm form;
};
using FieldEntries = std::vector<FieldEntry>;

/// The keys of each component whose class has a list of fields, by the name of the class, in the
/// order of reading. Filled before the program's main function. Components that are read by hand
/// are not among them.
const std::map<std::string, FieldEntries>& ListedForms();
/// Adds a class; true, so that it can be called by an initialiser.
bool ListForms(const char* class_name, FieldEntries entries);

/// Collects the forms of the listed fields.
class FormCollector {
 public:
  template <class C, class M, class... Shown>
  void operator()(const char* key, M C::*, Shown...) {
    m_entries.push_back({key, FormOf<M>()});
  }
  template <class C, class M, class Check>
  void Checked(const char* key, M C::*, Check) {
    m_entries.push_back({key, FormOf<M>()});
  }
  FieldEntries& Entries() { return m_entries; }

 private:
  FieldEntries m_entries;
};

template <class T>
bool ListFormsOf(const char* class_name) {
  FormCollector visit;
  T::Fields(visit);
  return ListForms(class_name, std::move(visit.Entries()));
}

}  // namespace ZOVEngine

/// Lists the forms of a component's fields under its name.
#define ZOV_COMPONENT_FORMS(Class) \
  [[maybe_unused]] static const bool g_listed_##Class = ListFormsOf<Class>(#Class);
