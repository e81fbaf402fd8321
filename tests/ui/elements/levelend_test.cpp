#include "ui/elements/levelend.h"

#include <gtest/gtest.h>

#include "ui/elements/uielement.h"
#include "ui/interfaceworlds.h"

namespace ZOVEngine {
namespace {

using carapace_test::ElementRecord;
using carapace_test::LevelScreen;

LevelScreen Piece(const std::string& element) {
  return LevelScreen({ElementRecord("piece", element)});
}

float& Alpha(const LevelScreen& level) {
  return level.Sprite("piece").m_colour[3];
}

TEST(DimSheet, IsHiddenInPlay) {
  const LevelScreen level = Piece("ui_pause_fade");
  level.Update<UIElement>("piece");
  EXPECT_FALSE(level.Sprite("piece").m_visible);
}

TEST(DimSheet, LiesBehindAPauseWithTheAlphaThatItHas) {
  const LevelScreen level = Piece("ui_pause_fade");
  Alpha(level) = 0.6f;
  level.Show("ui_pause");
  level.Sprite("piece").m_active = false;
  level.Update<UIElement>("piece", 10);
  EXPECT_TRUE(level.Sprite("piece").m_visible);
  EXPECT_TRUE(level.Sprite("piece").m_active);
  EXPECT_EQ(Alpha(level), 0.6f);
  EXPECT_FALSE(level.Of<UIElement>("piece").m_fade_armed);
}

TEST(DimSheet, DarkensInTwoSecondsFromNothingAtTheLevelsEnd) {
  const LevelScreen level = Piece("ui_pause_fade");
  Alpha(level) = 0.6f;
  level.Controller().m_state = TURN_LEVEL_END;
  level.Update<UIElement>("piece");
  EXPECT_EQ(Alpha(level), 0.0f);
  EXPECT_TRUE(level.Of<UIElement>("piece").m_fade_armed);
  level.Update<UIElement>("piece", 118);
  EXPECT_LT(Alpha(level), 1.0f);
  EXPECT_FALSE(level.Controller().m_fade_done);
  level.Update<UIElement>("piece", 3);
  EXPECT_EQ(Alpha(level), 1.0f);
  EXPECT_TRUE(level.Controller().m_fade_done);
}

struct BannerCase {
  const char* element;
  const char* loser;
};
constexpr BannerCase kBanners[] = {{"ui_victory", "e"}, {"ui_defeat", "p"}};

TEST(Banner, IsHiddenWhileBothSidesLive) {
  for (const BannerCase& banner : kBanners) {
    const LevelScreen level = Piece(banner.element);
    level.Update<UIElement>("piece");
    EXPECT_FALSE(level.Sprite("piece").m_visible) << banner.element;
    EXPECT_FALSE(level.Sprite("piece").m_active) << banner.element;
    EXPECT_EQ(level.Controller().m_ui_state, "ui_default") << banner.element;
  }
}

TEST(Banner, ComesAfterTheDimmingInASecond) {
  for (const BannerCase& banner : kBanners) {
    const LevelScreen level = Piece(banner.element);
    level.Kill(banner.loser);
    level.Controller().m_state = TURN_LEVEL_END;
    Alpha(level) = 0.0f;
    level.Update<UIElement>("piece", 5);
    EXPECT_TRUE(level.Sprite("piece").m_visible) << banner.element;
    EXPECT_EQ(Alpha(level), 0.0f) << banner.element;
    level.Controller().m_fade_done = true;
    level.Update<UIElement>("piece");
    EXPECT_EQ(Alpha(level), 0.0f) << banner.element;
    level.Update<UIElement>("piece", 58);
    EXPECT_FALSE(level.Controller().m_banner_done) << banner.element;
    level.Update<UIElement>("piece", 3);
    EXPECT_EQ(Alpha(level), 1.0f) << banner.element;
    EXPECT_TRUE(level.Controller().m_banner_done) << banner.element;
  }
}

TEST(Banner, DoesNotFadeBeforeTheMachineSawTheEnd) {
  for (const BannerCase& banner : kBanners) {
    const LevelScreen level = Piece(banner.element);
    level.Kill(banner.loser);
    level.Controller().m_fade_done = true;
    Alpha(level) = 0.0f;
    level.Update<UIElement>("piece", 10);
    EXPECT_FALSE(level.Of<UIElement>("piece").m_banner_armed) << banner.element;
    EXPECT_EQ(Alpha(level), 0.0f) << banner.element;
  }
}

TEST(Banner, BothSidesDeadIsADefeat) {
  const LevelScreen level({ElementRecord("won", "ui_victory"), ElementRecord("lost", "ui_defeat")});
  level.Kill("p");
  level.Kill("e");
  level.Update<UIElement>("won");
  level.Update<UIElement>("lost");
  EXPECT_FALSE(level.Sprite("won").m_visible);
  EXPECT_TRUE(level.Sprite("lost").m_visible);
}

TEST(Banner, AskingForTheEndShowsItsScreenAlsoInAPause) {
  for (const BannerCase& banner : kBanners) {
    const LevelScreen level = Piece(banner.element);
    level.Kill(banner.loser);
    level.Show("ui_pause");
    level.Update<UIElement>("piece");
    EXPECT_EQ(level.Controller().m_ui_state, "ui_level_end") << banner.element;
    EXPECT_TRUE(level.Sprite("piece").m_visible) << banner.element;
  }
}

}  // namespace
}  // namespace ZOVEngine
