#include "objects/typelist.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace outer::inner {

class Nested {};

}  // namespace outer::inner

class InNoNamespace {};

namespace ZOVEngine {
namespace {

using ::testing::ElementsAre;

using Three = TypeList<int, outer::inner::Nested, InNoNamespace>;

template <class... T>
struct Counter {
  static constexpr std::size_t kCount = sizeof...(T);
};

TEST(TypeList, ContainsWhatItLists) {
  EXPECT_TRUE((Three::Contains<int>()));
  EXPECT_TRUE((Three::Contains<InNoNamespace>()));
  EXPECT_FALSE((Three::Contains<long>()));
  EXPECT_FALSE((TypeList<>::Contains<int>()));
}

TEST(TypeList, AppliesItsClassesToATemplate) {
  EXPECT_EQ(Three::Apply<Counter>::kCount, 3u);
  EXPECT_TRUE((std::is_same_v<TypeList<int>::Apply<std::vector>, std::vector<int>>));
}

TEST(TypeList, VisitsItsClassesInOrder) {
  std::vector<std::string> names;
  Three::ForEach([&]<class T>() { names.push_back(ClassName<T>()); });
  EXPECT_THAT(names, ElementsAre("int", "Nested", "InNoNamespace"));
}

}  // namespace
}  // namespace ZOVEngine
