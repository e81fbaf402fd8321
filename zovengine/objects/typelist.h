#pragma once

#include <string>
#include <string_view>
#include <type_traits>

namespace ZOVEngine {

/// A list of classes.
template <class... T>
struct TypeList {
  /// The template `To` with the listed classes as its arguments.
  template <template <class...> class To>
  using Apply = To<T...>;

  template <class Sought>
  static constexpr bool Contains() {
    return (std::is_same_v<Sought, T> || ...);
  }

  /// Calls `visit.operator()<Class>()` for each class, in order.
  template <class Visitor>
  static void ForEach(Visitor visit) {
    (visit.template operator()<T>(), ...);
  }
};

/// The name of class T without its namespaces, as it stands in the source: "Transform".
template <class T>
std::string ClassName() {
  // Ends in "[T = ZOVEngine::Transform]", or with more behind the class and a semicolon.
  std::string_view name = __PRETTY_FUNCTION__;
  name.remove_prefix(name.find("T = ") + 4);
  name = name.substr(0, name.find_first_of(";]"));
  return std::string(name.substr(name.rfind(':') + 1));
}

}  // namespace ZOVEngine
