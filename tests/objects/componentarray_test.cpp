#include "objects/componentarray.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>

#include "support/probe.h"

namespace ZOVEngine {
namespace {

using carapace_test::CountedData;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ComponentArrayTest : public ::testing::Test {
 protected:
  GameObj owner;
  CountedData first{&owner};
  CountedData second{&owner};
  std::vector<GameComponentBase*> entries{&first, &second};
  ComponentArray<CountedData> array{entries};
};

TEST_F(ComponentArrayTest, ShowsEachEntryAsItsOwnClass) {
  EXPECT_THAT(array, ElementsAre(&first, &second));
  EXPECT_EQ(array.size(), 2u);
  EXPECT_EQ(array[1], &second);
  EXPECT_EQ(array.front(), &first);
  second.number = 7;
  EXPECT_EQ(array[1]->number, 7);
}

TEST_F(ComponentArrayTest, FollowsTheArrayThatItShows) {
  entries.erase(entries.begin());
  EXPECT_THAT(array, ElementsAre(&second));
  entries.clear();
  EXPECT_TRUE(array.empty());
  EXPECT_THAT(array, IsEmpty());
}

TEST_F(ComponentArrayTest, CanBeCopiedToAVector) {
  const std::vector<CountedData*> copy(array.begin(), array.end());
  EXPECT_THAT(copy, ElementsAre(&first, &second));
}

TEST_F(ComponentArrayTest, APostfixStepGivesTheEntryBeforeIt) {
  auto at = array.begin();
  EXPECT_EQ(*at++, &first);
  EXPECT_EQ(*at, &second);
  EXPECT_EQ(std::next(at), array.end());
}

}  // namespace
}  // namespace ZOVEngine
