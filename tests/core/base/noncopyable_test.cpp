#include "core/base/noncopyable.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace carapace_test {
namespace {

class Owner : private ZOVEngine::NonCopyable {
 public:
  int owned = 1;
};

TEST(NonCopyable, WhatDerivesFromItIsMadeButNeitherCopiedNorMoved) {
  EXPECT_TRUE(std::is_default_constructible_v<Owner>);
  EXPECT_FALSE(std::is_copy_constructible_v<Owner> || std::is_copy_assignable_v<Owner>);
  EXPECT_FALSE(std::is_move_constructible_v<Owner> || std::is_move_assignable_v<Owner>);
}

TEST(NonCopyable, CostsNoMemory) {
  EXPECT_EQ(sizeof(Owner), sizeof(int));
}

}  // namespace
}  // namespace carapace_test
