#include "core/base/fixedlist.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ZOVEngine {
namespace {

using ::testing::ElementsAre;

TEST(FixedList, StartsEmpty) {
  const FixedList<int, 2> list;
  EXPECT_TRUE(list.empty());
  EXPECT_EQ(list.size(), 0u);
}

TEST(FixedList, KeepsTheOrderOfItsItems) {
  FixedList<int, 3> list = {5, 4};
  list.push_back(9);
  EXPECT_THAT(list, ElementsAre(5, 4, 9));
  EXPECT_EQ(list[2], 9);
}

TEST(FixedList, ACopyIsOnItsOwn) {
  FixedList<int, 2> list = {1};
  FixedList<int, 2> copy = list;
  copy[0] = 7;
  copy.push_back(8);
  EXPECT_THAT(list, ElementsAre(1));
}

TEST(FixedList, ClearingMakesRoomAgain) {
  FixedList<int, 1> list = {1};
  list.clear();
  list.push_back(2);
  EXPECT_THAT(list, ElementsAre(2));
}

TEST(FixedListDeathTest, AnItemTooManyEndsTheProgram) {
  FixedList<int, 1> list = {1};
  EXPECT_DEATH(list.push_back(2), "FixedList is full");
}

}  // namespace
}  // namespace ZOVEngine
