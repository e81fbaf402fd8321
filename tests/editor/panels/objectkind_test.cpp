#include "editor/panels/objectkind.h"

#include <gtest/gtest.h>

#include <set>

namespace ZOVEngine {
namespace {

TEST(ObjectKind, FollowsFromTheComponents) {
  EXPECT_EQ(KindOfObject({"Transform", "Render", "Light", "Player"}), ObjectKind::kPlayer);
  EXPECT_EQ(KindOfObject({"Enemy", "AIComp"}), ObjectKind::kEnemy);
  EXPECT_EQ(KindOfObject({"Light", "ProjectileSwap"}), ObjectKind::kShot);
  EXPECT_EQ(KindOfObject({"EnvironmentRough"}), ObjectKind::kHazard);
  EXPECT_EQ(KindOfObject({"DeathField"}), ObjectKind::kHazard);
  EXPECT_EQ(KindOfObject({"Font", "UIElement"}), ObjectKind::kInterface);
  EXPECT_EQ(KindOfObject({"Transform", "Camera"}), ObjectKind::kLevel);
  EXPECT_EQ(KindOfObject({"Transform", "Light"}), ObjectKind::kLight);
  EXPECT_EQ(KindOfObject({"Transform", "Render"}), ObjectKind::kOther);
}

TEST(ObjectKind, KindsDifferInWordAndColour) {
  std::set<std::string> words;
  std::set<std::uint32_t> colours;
  for (int kind = 0; kind <= static_cast<int>(ObjectKind::kOther); ++kind) {
    words.insert(KindWord(static_cast<ObjectKind>(kind)));
    colours.insert(KindColour(static_cast<ObjectKind>(kind)));
  }
  EXPECT_EQ(words.size(), 8u);
  EXPECT_EQ(colours.size(), 8u);
}

}  // namespace
}  // namespace ZOVEngine
