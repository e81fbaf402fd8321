#pragma once

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

#include "core/app/logictables.h"

namespace carapace_test {

/// Takes over the classes of a list that derive from Base.
template <class Base, class Taken, class... Rest>
struct TakeKinds {
  using Type = Taken;
};
template <class Base, class... Taken, class First, class... Rest>
struct TakeKinds<Base, ::testing::Types<Taken...>, First, Rest...>
    : std::conditional_t<std::is_base_of_v<Base, First>,
                         TakeKinds<Base, ::testing::Types<Taken..., First>, Rest...>,
                         TakeKinds<Base, ::testing::Types<Taken...>, Rest...>> {};

template <class Base, class... T>
TakeKinds<Base, ::testing::Types<>, T...> TakeKindsOf(ZOVEngine::TypeList<T...>);

/// The logic components that derive from Base, as the types of a suite. It is made from the list of
/// all tables, so a new class is in its suites as soon as it has a table.
template <class Base>
using KindsOf = typename decltype(TakeKindsOf<Base>(ZOVEngine::LogicTables()))::Type;

template <class... T>
std::vector<std::string> NamesOfClasses(::testing::Types<T...>) {
  return {ZOVEngine::ClassName<T>()...};
}

}  // namespace carapace_test
