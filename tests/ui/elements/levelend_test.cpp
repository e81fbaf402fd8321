#include "ui/elements/levelend.h"

#include <gtest/gtest.h>

#include "core/engine.h"
#include "core/messages.h"
#include "platform/virtualkeys.h"
#include "ui/elements/uielement.h"
#include "ui/interfaceworlds.h"

namespace ZOVEngine {
namespace {

using carapace_test::ButtonRecord;
using carapace_test::ElementRecord;
using carapace_test::LevelScreen;
using carapace_test::RenderOf;

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
  level.Update<UIElement>("piece", 10);
  EXPECT_EQ(Alpha(level), 1.0f) << "once a level";
}

TEST(DimSheet, StartsFromNothingEvenIfItIsFullyDark) {
  const LevelScreen level = Piece("ui_pause_fade");
  Alpha(level) = 1.0f;
  level.Controller().m_state = TURN_LEVEL_END;
  level.Update<UIElement>("piece");
  EXPECT_EQ(Alpha(level), 0.0f);
  EXPECT_FALSE(level.Controller().m_fade_done);
}

TEST(DimSheet, IsDarkAtExactlyFullAlphaAndThenLeftAlone) {
  const LevelScreen level = Piece("ui_pause_fade");
  level.Controller().m_state = TURN_LEVEL_END;
  level.Update<UIElement>("piece");
  Alpha(level) = 0.5f;
  level.Of<UIElement>("piece").Update(1.0f);
  EXPECT_EQ(Alpha(level), 1.0f);
  EXPECT_TRUE(level.Controller().m_fade_done);
  Alpha(level) = 0.5f;
  level.Update<UIElement>("piece");
  EXPECT_EQ(Alpha(level), 0.5f);
}

struct BannerCase {
  const char* element;
  const char* piece;  ///< its object in the tests of the whole end
  const char* loser;
};
constexpr BannerCase kBanners[] = {{"ui_victory", "won", "e"}, {"ui_defeat", "lost", "p"}};

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

TEST(Banner, IsThereAtExactlyFullAlphaAndThenLeftAlone) {
  for (const BannerCase& banner : kBanners) {
    const LevelScreen level = Piece(banner.element);
    level.Kill(banner.loser);
    level.Controller().m_state = TURN_LEVEL_END;
    level.Controller().m_fade_done = true;
    level.Update<UIElement>("piece");
    Alpha(level) = 0.5f;
    level.Of<UIElement>("piece").Update(0.5f);
    EXPECT_EQ(Alpha(level), 1.0f) << banner.element;
    EXPECT_TRUE(level.Controller().m_banner_done) << banner.element;
    Alpha(level) = 0.5f;
    level.Update<UIElement>("piece");
    EXPECT_EQ(Alpha(level), 0.5f) << banner.element;
  }
}

TEST(Banner, WhereOneIsThereAnotherDoesNotBegin) {
  for (const BannerCase& banner : kBanners) {
    const LevelScreen level = Piece(banner.element);
    level.Kill(banner.loser);
    level.Controller().m_state = TURN_LEVEL_END;
    level.Controller().m_fade_done = level.Controller().m_banner_done = true;
    level.Update<UIElement>("piece");
    EXPECT_FALSE(level.Of<UIElement>("piece").m_banner_armed) << banner.element;
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

// The whole end

/// A level with all that its end shows, unseen, whose `loser` is dead. One step has run.
class LevelEndScreen : public LevelScreen {
 public:
  explicit LevelEndScreen(const std::string& loser)
      : LevelScreen({ElementRecord("sheet", "ui_pause_fade"), ElementRecord("won", "ui_victory"),
                     ElementRecord("lost", "ui_defeat"),
                     ButtonRecord("ui_end_restart", "ui_level_end", {}, "restart",
                                  RenderOf("rest", 0.0f))}) {
    for (const char* name : {"sheet", "won", "lost"}) Alpha(name) = 0.0f;
    Kill(loser);
    Step();
  }

  /// Steps until `flag` is set; returns the seconds that took, at most 10.
  float SecondsUntil(const bool& flag) {
    int steps = 0;
    for (; !flag && steps < 600; ++steps) Step();
    return static_cast<float>(steps) * kStep;
  }
};

TEST(WholeLevelEnd, DimsInTwoSecondsThenTheBannerComesInOneThenTheButtonsInHalfOfOne) {
  for (const BannerCase& banner : kBanners) {
    for (const bool paused : {false, true}) {
      LevelEndScreen level(banner.loser);
      g_engine->paused = paused;
      EXPECT_NEAR(level.SecondsUntil(level.Controller().m_fade_done), 2.0f, 0.05f);
      EXPECT_EQ(level.Alpha(banner.piece), 0.0f);
      EXPECT_NEAR(level.SecondsUntil(level.Controller().m_banner_done), 1.0f, 0.05f);
      EXPECT_EQ(level.Alpha("restart"), 0.0f);
      const Button& button = level.Of<Button>("restart");
      EXPECT_NEAR(level.SecondsUntil(button.m_end_fade_done), 0.5f, 0.05f);
      EXPECT_EQ(level.Alpha("sheet"), 1.0f);
      EXPECT_EQ(level.Alpha(banner.piece), 1.0f);
    }
  }
}

TEST(WholeLevelEnd, EscapeAndALostFocusPauseBehindItAndItsButtonsLiveOn) {
  for (const BannerCase& banner : kBanners) {
    for (const bool escape : {true, false}) {
      LevelEndScreen level(banner.loser);
      if (escape) {
        level.Key(kVkEscape);
      } else {
        level.world.Send(GameLoseFocus());
      }
      EXPECT_EQ(level.Controller().m_ui_state, escape ? "ui_default" : "ui_pause");
      EXPECT_TRUE(g_engine->paused);
      level.Step();
      EXPECT_EQ(level.Controller().m_ui_state, "ui_level_end");
      EXPECT_TRUE(g_engine->paused);
      level.ClickOn("restart");
      EXPECT_TRUE(level.Controller().m_restart);
      EXPECT_FALSE(g_engine->paused);
    }
  }
}

}  // namespace
}  // namespace ZOVEngine
