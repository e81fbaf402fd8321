#include "ui/screens/splashcontroller.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "core/engine.h"
#include "core/messages.h"
#include "ui/interfaceworlds.h"

namespace ZOVEngine {
namespace {

using carapace_test::ObjectsFile;
using carapace_test::PieceRecord;
using carapace_test::PieceStage;
using carapace_test::Record;
using carapace_test::RenderOf;
using carapace_test::Stage;
using carapace_test::TransformAt;
using carapace_test::World;
using ::testing::IsEmpty;

constexpr const char* kUnits = "Level Editor/Levels/SplashScreen/Entity/Units.json";
const std::vector<std::string> kAllChildren = {"zarn_logo", "team_logo", "game_logo", "start"};

/// The splash screen with a choice of its children, all at alpha 0. No step has run.
class SplashScreen : public PieceStage<Stage> {
 public:
  explicit SplashScreen(const std::vector<std::string>& children = kAllChildren)
      : PieceStage({{kUnits, Screen(children)}}) {
    g_menu_entry_click = false;
  }

  SplashController& Splash() const { return Of<SplashController>("splash"); }
  void Advance(float dt) const { Splash().Update(dt); }
  void Key() const { world.Send(KeyUp(65)); }

  /// Updates by a step of the engine until `done`; returns the seconds that took, at most 20.
  template <class Done>
  float SecondsUntil(Done done) const {
    int steps = 0;
    while (!done() && steps < 1200) {
      Advance(kStep);
      ++steps;
    }
    return static_cast<float>(steps) * kStep;
  }

 private:
  static std::string Screen(const std::vector<std::string>& children) {
    std::vector<std::string> records;
    for (const std::string& child : children) {
      records.push_back(PieceRecord(child, {}, {}, RenderOf("default", 0.0f)));
    }
    return ObjectsFile({Record("splash", {{"SplashController", "{}"}}, records)});
  }
};

TEST(SplashController, ANewControllerHasItsDefaults) {
  const SplashController splash(nullptr);
  EXPECT_EQ(splash.m_first_logo, nullptr);
  EXPECT_EQ(splash.m_game_logo, nullptr);
  EXPECT_EQ(splash.m_team_logo, nullptr);
  EXPECT_EQ(splash.m_start, nullptr);
  EXPECT_EQ(splash.m_fade_time, 2.0f);
  EXPECT_EQ(splash.m_blink_time, 1.0f);
  EXPECT_EQ(splash.m_blink_timer, 0.0f);
  EXPECT_FALSE(splash.m_fading_out);
  EXPECT_FALSE(splash.m_first_done);
  EXPECT_FALSE(splash.m_game_done);
  EXPECT_FALSE(splash.m_team_done);
}

TEST(SplashController, InitFindsTheChildrenByName) {
  SplashScreen screen;
  screen.Splash().Init();
  EXPECT_TRUE(screen.Splash().m_init);
  EXPECT_EQ(screen.Splash().m_first_logo, screen.Find("zarn_logo"));
  EXPECT_EQ(screen.Splash().m_team_logo, screen.Find("team_logo"));
  EXPECT_EQ(screen.Splash().m_game_logo, screen.Find("game_logo"));
  EXPECT_EQ(screen.Splash().m_start, screen.Find("start"));
}

TEST(SplashController, AnAbsentChildStaysNull) {
  SplashScreen screen({"zarn_logo", "another"});
  screen.Splash().Init();
  EXPECT_NE(screen.Splash().m_first_logo, nullptr);
  EXPECT_EQ(screen.Splash().m_team_logo, nullptr);
  EXPECT_EQ(screen.Splash().m_game_logo, nullptr);
  EXPECT_EQ(screen.Splash().m_start, nullptr);
}

TEST(SplashController, AGrandchildIsNoChild) {
  World world;
  world.LoadObjects(Record("splash", {{"SplashController", "{}"}},
                           {Record("group", {}, {PieceRecord("zarn_logo", {})})}));
  auto* splash = world.Find("splash")->GetComponent<SplashController>();
  splash->Init();
  EXPECT_EQ(splash->m_first_logo, nullptr);
}

// The sequence

TEST(SplashController, AFadeInGrowsByTheStepOverTheFadeTime) {
  SplashScreen screen;
  screen.Advance(0.5f);
  EXPECT_FLOAT_EQ(screen.Alpha("zarn_logo"), 0.25f);
  screen.Advance(0.5f);
  EXPECT_FLOAT_EQ(screen.Alpha("zarn_logo"), 0.5f);
  EXPECT_EQ(screen.Alpha("team_logo"), 0.0f);
  EXPECT_EQ(screen.Alpha("game_logo"), 0.0f);
}

TEST(SplashController, TheTurnAndTheEndOfAFadeTakeAStepEach) {
  SplashScreen screen;
  SplashController& splash = screen.Splash();
  screen.Advance(2.0f);
  EXPECT_EQ(screen.Alpha("zarn_logo"), 1.0f);
  EXPECT_FALSE(splash.m_fading_out);
  screen.Advance(2.0f);
  EXPECT_TRUE(splash.m_fading_out);
  EXPECT_EQ(screen.Alpha("zarn_logo"), 1.0f);
  screen.Advance(2.0f);
  EXPECT_EQ(screen.Alpha("zarn_logo"), 0.0f);
  EXPECT_FALSE(splash.m_first_done);
  screen.Advance(2.0f);
  EXPECT_TRUE(splash.m_first_done);
  EXPECT_FALSE(splash.m_fading_out);
  EXPECT_EQ(screen.Alpha("team_logo"), 1.0f) << "the next stage begins in the same step";
}

TEST(SplashController, TheWholeSequenceTakesFourFourAndTwoSeconds) {
  SplashScreen screen;
  SplashController& splash = screen.Splash();
  EXPECT_NEAR(screen.SecondsUntil([&] { return splash.m_first_done; }), 4.0f, 0.1f);
  EXPECT_NEAR(screen.SecondsUntil([&] { return splash.m_team_done; }), 4.0f, 0.1f);
  EXPECT_NEAR(screen.SecondsUntil([&] { return splash.m_game_done; }), 2.0f, 0.1f);
  EXPECT_GE(screen.Alpha("game_logo"), 1.0f);
  EXPECT_TRUE(splash.m_fading_out);
  EXPECT_LE(screen.Alpha("zarn_logo"), 0.0f);
  EXPECT_LE(screen.Alpha("team_logo"), 0.0f);
}

TEST(SplashController, TheGameLogoStaysOn) {
  SplashScreen screen;
  for (int i = 0; i < 3; ++i) screen.Key();
  const float alpha = screen.Alpha("game_logo");
  for (int i = 0; i < 300; ++i) screen.Advance(kStep);
  EXPECT_EQ(screen.Alpha("game_logo"), alpha);
}

TEST(SplashController, ThePromptBlinksOnceASecond) {
  SplashScreen screen;
  screen.Advance(0.0f);
  for (int i = 0; i < 3; ++i) screen.Key();
  screen.Advance(1.0f);
  EXPECT_EQ(screen.Alpha("start"), 0.0f) << "the timer is not above one second";
  screen.Advance(0.25f);
  EXPECT_EQ(screen.Alpha("start"), 1.0f);
  EXPECT_EQ(screen.Splash().m_blink_timer, 0.0f);
  screen.Advance(1.0f);
  EXPECT_EQ(screen.Alpha("start"), 1.0f);
  screen.Advance(0.25f);
  EXPECT_EQ(screen.Alpha("start"), 0.0f);
}

TEST(SplashController, ThePromptsTimeBeginsInTheStepThatEndsTheGameLogo) {
  SplashScreen screen;
  screen.Splash().m_first_done = screen.Splash().m_team_done = true;
  screen.Alpha("game_logo") = 1.0f;
  screen.Advance(0.25f);
  EXPECT_TRUE(screen.Splash().m_game_done);
  EXPECT_EQ(screen.Splash().m_blink_timer, 0.25f);
  screen.Advance(1.0f);
  EXPECT_EQ(screen.Alpha("start"), 1.0f);
}

TEST(SplashController, EachChangeOfThePromptStartsItsTimeAnew) {
  SplashScreen screen;
  SplashController& splash = screen.Splash();
  screen.Advance(0.0f);
  splash.m_first_done = splash.m_team_done = splash.m_game_done = true;
  for (const float alpha : {1.0f, 0.0f, 1.0f}) {
    screen.Advance(1.25f);
    EXPECT_EQ(screen.Alpha("start"), alpha);
    EXPECT_EQ(splash.m_blink_timer, 0.0f);
  }
}

TEST(SplashController, ALaterStageWaitsForEveryEarlierOne) {
  for (const auto& [first, team, game] : {std::array{false, true, false},
                                          {false, true, true},
                                          {true, false, false},
                                          {true, false, true}}) {
    SplashScreen screen;
    SplashController& splash = screen.Splash();
    splash.m_first_done = first;
    splash.m_team_done = team;
    splash.m_game_done = game;
    screen.Advance(0.5f);
    EXPECT_EQ(screen.Alpha("game_logo"), 0.0f);
    EXPECT_EQ(splash.m_blink_timer, 0.0f);
    screen.Key();
    EXPECT_NE(screen.world.Find("splash"), nullptr) << "no key leaves before all are over";
  }
}

TEST(SplashController, WhileTheGameLogoComesInThePromptWaits) {
  SplashScreen screen;
  screen.Splash().m_first_done = screen.Splash().m_team_done = true;
  screen.Advance(0.5f);
  EXPECT_EQ(screen.Alpha("game_logo"), 0.25f);
  EXPECT_EQ(screen.Splash().m_blink_timer, 0.0f);
}

TEST(SplashController, APromptOfAnotherAlphaDoesNotBlink) {
  SplashScreen screen;
  screen.Alpha("start") = 0.5f;
  screen.Advance(0.0f);
  for (int i = 0; i < 3; ++i) screen.Key();
  for (int i = 0; i < 5; ++i) screen.Advance(1.5f);
  EXPECT_EQ(screen.Alpha("start"), 0.5f);
}

// Keys

TEST(SplashController, EachKeyEndsOneStageAndTheFourthLeaves) {
  SplashScreen screen;
  screen.Advance(1.0f);
  screen.Key();
  EXPECT_TRUE(screen.Splash().m_first_done);
  EXPECT_FALSE(screen.Splash().m_team_done);
  EXPECT_EQ(screen.Alpha("zarn_logo"), 0.0f);
  screen.Advance(1.0f);
  screen.Key();
  EXPECT_TRUE(screen.Splash().m_team_done);
  EXPECT_FALSE(screen.Splash().m_game_done);
  EXPECT_EQ(screen.Alpha("team_logo"), 0.0f);
  screen.Key();
  EXPECT_TRUE(screen.Splash().m_game_done);
  EXPECT_EQ(screen.Alpha("game_logo"), 1.0f);
  EXPECT_EQ(g_state_machine->m_next, 5);
  EXPECT_FALSE(g_menu_entry_click);
  screen.Key();
  EXPECT_EQ(g_state_machine->m_next, 3);
  EXPECT_TRUE(g_menu_entry_click);
  EXPECT_THAT(g_game_obj_factory->m_objects, IsEmpty());
}

TEST(SplashController, FourQuickKeysLeadToTheMenuFromTheWindowOnward) {
  SplashScreen screen;
  for (int i = 0; i < 4; ++i) screen.world.native.Push(NativeEventKind::kKeyUp, 13);
  screen.world.Step(5);
  EXPECT_EQ(g_state_machine->m_current, 3);
}

TEST(SplashController, FurtherKeysOnTheWayOutAreHarmless) {
  SplashScreen screen;
  for (int i = 0; i < 7; ++i) screen.Key();
  screen.world.Step();
  EXPECT_EQ(g_state_machine->m_current, 3);
}

TEST(SplashController, OnlyAReleasedKeyCounts) {
  SplashScreen screen;
  screen.world.Send(KeyDown(65));
  screen.world.Send(MouseScroll(0));
  screen.world.Send(MouseButton(0, 1, Vector3D()));
  EXPECT_FALSE(screen.Splash().m_first_done);
}

TEST(SplashController, AKeyInAFadeOutHandsItOverToTheNextLogo) {
  SplashScreen screen;
  SplashController& splash = screen.Splash();
  for (int i = 0; i < 3; ++i) screen.Advance(1.0f);
  ASSERT_TRUE(splash.m_fading_out);
  screen.Key();
  EXPECT_TRUE(splash.m_fading_out) << "stays as it was";
  screen.Advance(kStep);
  EXPECT_TRUE(splash.m_team_done) << "at alpha 0 it counts as gone";
  EXPECT_FALSE(splash.m_fading_out);
}

TEST(SplashController, AKeyInTheTeamsFadeOutKeepsTheGameLogoDarkUntilTheNextKey) {
  SplashScreen screen;
  SplashController& splash = screen.Splash();
  screen.Advance(0.0f);
  screen.Key();
  for (int i = 0; i < 3; ++i) screen.Advance(1.0f);
  ASSERT_TRUE(splash.m_fading_out);
  screen.Key();
  for (int i = 0; i < 300; ++i) screen.Advance(kStep);
  EXPECT_EQ(screen.Alpha("game_logo"), 0.0f);
  EXPECT_FALSE(splash.m_game_done);
  screen.Key();
  EXPECT_TRUE(splash.m_game_done);
  EXPECT_EQ(screen.Alpha("game_logo"), 1.0f);
}

TEST(SplashController, KeysBeforeTheFirstUpdateAreCounted) {
  SplashScreen screen;
  ASSERT_FALSE(screen.Splash().m_init);
  for (int i = 0; i < 4; ++i) screen.Key();
  EXPECT_EQ(g_state_machine->m_next, 3);
}

// Screens with parts missing

TEST(SplashController, WithoutAPromptNothingBlinksAndTheKeyStillLeaves) {
  SplashScreen screen({"zarn_logo", "team_logo", "game_logo"});
  screen.Advance(0.0f);
  for (int i = 0; i < 3; ++i) screen.Key();
  for (int i = 0; i < 300; ++i) screen.Advance(kStep);
  EXPECT_EQ(screen.Splash().m_blink_timer, 0.0f);
  screen.Key();
  EXPECT_EQ(g_state_machine->m_next, 3);
}

TEST(SplashController, AStageWithoutItsLogoWaitsForAKey) {
  SplashScreen screen({"team_logo", "game_logo", "start"});
  for (int i = 0; i < 600; ++i) screen.Advance(kStep);
  EXPECT_FALSE(screen.Splash().m_first_done);
  EXPECT_EQ(screen.Alpha("team_logo"), 0.0f);
  screen.Key();
  screen.Advance(1.0f);
  EXPECT_GT(screen.Alpha("team_logo"), 0.0f);
}

TEST(SplashController, ALogoWithoutRenderIsAsGoodAsNone) {
  World world({{kUnits, "{\"GameObjFactory\": [" +
                            Record("splash", {{"SplashController", "{}"}},
                                   {Record("zarn_logo", {{"Transform", TransformAt(0, 0)}})}) +
                            "]}"}});
  world.Step(10);
  auto* splash = world.Find("splash")->GetComponent<SplashController>();
  EXPECT_NE(splash->m_first_logo, nullptr);
  EXPECT_FALSE(splash->m_first_done);
  world.Send(KeyUp(65));
  EXPECT_TRUE(splash->m_first_done);
}

TEST(SplashController, AnEmptyScreenIsLeftWithFourKeys) {
  SplashScreen screen((std::vector<std::string>()));
  screen.world.Step();
  for (int i = 0; i < 4; ++i) screen.Key();
  EXPECT_EQ(g_state_machine->m_next, 3);
}

TEST(SplashController, TheShippedScreenLeadsToTheMenu) {
  World world(World::ShippedFiles());
  world.Step();
  for (const std::string& child : kAllChildren) {
    ASSERT_NE(world.Find(child), nullptr) << child;
    EXPECT_TRUE(world.Find(child)->HasComponent<Render>()) << child;
  }
  for (int i = 0; i < 4; ++i) world.Send(KeyUp(13));
  world.Step();
  EXPECT_EQ(g_state_machine->m_current, 3);
  EXPECT_FALSE(g_game_obj_factory->m_objects.empty());
}

}  // namespace
}  // namespace ZOVEngine
