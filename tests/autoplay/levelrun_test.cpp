#include "autoplay/levelrun.h"

#include <gtest/gtest.h>

#include <optional>

#include "autoplay/statehash.h"
#include "core/engine.h"
#include "core/statemachine.h"
#include "game/turns/gamecontroller.h"
#include "support/levelgame.h"

namespace ZOVEngine {
namespace {

using carapace_test::LevelGame;

constexpr const char* kLevel01 = "Level Editor/Levels/Level01/Level01.json";
constexpr int kSteps = 120;

std::uint64_t StateOfNewLevel(std::uint32_t seed) {
  const LevelGame game("Level01", seed);
  for (int i = 0; i < kSteps; ++i) StepEngine();
  return HashState();
}

/// Levels that are entered in an engine in which another game was played for a while and left.
class LevelRun : public ::testing::Test {
 protected:
  void RunOtherLevel() {
    m_game.emplace("Level01", 1);
    m_game->world.Step(200);
    ChangeState(kMainMenuState, "");
    m_game->world.Step();
  }

 private:
  std::optional<LevelGame> m_game;
};

TEST_F(LevelRun, OnlyALevelHasATurnController) {
  RunOtherLevel();
  EXPECT_EQ(FindTurnController(), nullptr);
  EnterLevel(kLevel01, 5);
  ASSERT_NE(FindTurnController(), nullptr);
  EXPECT_EQ(FindTurnController()->m_level_map, kLevel01);
}

TEST_F(LevelRun, APauseEndsWithTheScreenBefore) {
  RunOtherLevel();
  g_engine->paused = true;
  EnterLevel(kLevel01, 5);
  EXPECT_FALSE(g_engine->paused);
}

TEST_F(LevelRun, TheSeedAloneSettlesTheStateWhateverRanBefore) {
  const std::uint64_t expected = StateOfNewLevel(5);
  EXPECT_NE(StateOfNewLevel(6), expected);
  RunOtherLevel();
  EnterLevel(kLevel01, 5);
  for (int i = 0; i < kSteps; ++i) StepEngine();
  EXPECT_EQ(HashState(), expected);
}

}  // namespace
}  // namespace ZOVEngine
