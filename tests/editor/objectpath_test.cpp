#include "editor/objectpath.h"

#include <gtest/gtest.h>

#include "editor/editortest.h"

namespace ZOVEngine {
namespace {

using ObjectPathTest = carapace_test::EditorTest;

TEST_F(ObjectPathTest, PathsAndObjectsFindEachOther) {
  ASSERT_TRUE(editor->Open("Level01"));
  for (const PlacedObject& placed : LevelObjects()) {
    EXPECT_EQ(ObjectAt(placed.path), placed.object);
    EXPECT_EQ(PathTo(placed.object), placed.path);
  }
}

TEST_F(ObjectPathTest, TilesTheCameraAndNothingHaveNoPath) {
  ASSERT_TRUE(editor->Open("Level01"));
  EXPECT_TRUE(PathTo(world.Find("tile")).empty());
  EXPECT_TRUE(PathTo(world.Find("LECamera")).empty());
  EXPECT_TRUE(PathTo(nullptr).empty());
}

TEST_F(ObjectPathTest, PathsBeyondTheTreeLeadNowhere) {
  ASSERT_TRUE(editor->Open("Level01"));
  EXPECT_EQ(ObjectAt({}), nullptr);
  EXPECT_EQ(ObjectAt({999}), nullptr);
  EXPECT_EQ(ObjectAt({0, 999}), nullptr);
}

TEST(ObjectPath, AnObjectIsWithinItselfAndItsAncestors) {
  EXPECT_TRUE(IsWithin({1, 2}, {1, 2}));
  EXPECT_TRUE(IsWithin({1, 2}, {1}));
  EXPECT_FALSE(IsWithin({1}, {1, 2}));
  EXPECT_FALSE(IsWithin({2, 2}, {1}));
}

}  // namespace
}  // namespace ZOVEngine
