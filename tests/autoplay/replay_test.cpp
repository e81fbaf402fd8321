#include "autoplay/replay.h"

#include <gtest/gtest.h>

#include <fstream>
#include <optional>
#include <string>

#include "autoplay/levelrun.h"
#include "core/engine.h"
#include "core/statemachine.h"
#include "game/turns/gamecontroller.h"
#include "platform/inputsystem.h"
#include "platform/virtualkeys.h"
#include "platform/windowsystem.h"
#include "support/levelgame.h"
#include "support/recordedgames.h"

namespace ZOVEngine {
namespace {

using carapace_test::LevelGame;
using Stage = Replay::Stage;

constexpr std::uint32_t kSeed = 4;
constexpr int kRounds = 2;

/// The beginning of a game of the first level: the player's units drive, aim and fire.
const RecordedGame& Beginning() {
  static const RecordedGame game = carapace_test::RecordGame(
      "Level01", kSeed, {.marks = RecordedGame::Marks::kPlaces, .most_rounds = kRounds});
  return game;
}

/// The first level, which has been running for a while with other random numbers, in a window of
/// another size than a recording's.
class ReplayTest : public ::testing::Test {
 protected:
  ReplayTest() {
    Beginning();
    m_running.emplace("Level01", kSeed + 1);
    World().Step(100);
    SetDisplayMode(false, 1000, 700);
  }

  carapace_test::World& World() { return m_running->world; }

  std::string WriteGame(const RecordedGame& game) {
    const std::string path = World().Directory().Path() / "game.txt";
    std::ofstream out(path);
    game.Write(out);
    return path;
  }

  /// Loads the game, and enters the level anew with the next step.
  void Begin(const RecordedGame& game) {
    ASSERT_TRUE(m_replay.Load(WriteGame(game)));
    ChangeState(kReenterState, "");
  }

  void Show(int steps) {
    for (int i = 0; i < steps; ++i) {
      m_replay.Step();
      World().Step();
    }
  }

  /// Shows the game until the replay is over, or for longer than the game lasts.
  Stage ShowAll() {
    for (int i = 0; i < m_replay.AllSteps() + 10; ++i) {
      if (m_replay.GetStage() != Stage::kShowing) break;
      Show(1);
    }
    return m_replay.GetStage();
  }

  Replay m_replay;

 private:
  std::optional<LevelGame> m_running;
};

TEST_F(ReplayTest, AGameIsShownToItsEndInAWindowOfAnySize) {
  Begin(Beginning());
  World().native.cursor = {500, 350};
  EXPECT_EQ(ShowAll(), Stage::kEnded);
  EXPECT_EQ(m_replay.ShownSteps(), Beginning().steps);
  EXPECT_EQ(FindTurnController()->m_round, kRounds);
  EXPECT_EQ(GetCursorScreenPosition(), Vector3D(0.0f, 0.0f, 1.0f)) << "the user has it back";
}

TEST_F(ReplayTest, AnotherLevelDepartsAtTheFirstMark) {
  Begin(Beginning());
  Show(2);
  FindTurnController()->m_enemies.front()->SetPosition(Vector3D(0.0f, 0.0f, 1.0f));
  EXPECT_EQ(ShowAll(), Stage::kDeparted);
  EXPECT_EQ(m_replay.ShownSteps(), Beginning().places.begin()->first);
}

TEST_F(ReplayTest, AnotherEndDeparts) {
  RecordedGame game = Beginning();
  game.places.clear();
  game.steps = 200;
  game.outcome = "won";
  Begin(game);
  EXPECT_EQ(ShowAll(), Stage::kDeparted);
  EXPECT_EQ(m_replay.ShownSteps(), game.steps);
}

TEST_F(ReplayTest, ALevelThatIsLeftDeparts) {
  Begin(Beginning());
  Show(5);
  ChangeState(kMainMenuState, "");
  Show(2);
  EXPECT_EQ(m_replay.GetStage(), Stage::kDeparted);
}

TEST_F(ReplayTest, PausedStepsDoNotCount) {
  Begin(Beginning());
  Show(50);
  g_engine->paused = true;
  const int shown = m_replay.ShownSteps();
  Show(30);
  EXPECT_EQ(m_replay.ShownSteps(), shown);
  g_engine->paused = false;
  EXPECT_EQ(ShowAll(), Stage::kEnded);
}

TEST_F(ReplayTest, TheUserHasNoPartInItAndTheCursorIsTheRecordedOne) {
  Begin(Beginning());
  World().native.cursor = {17, 23};
  World().native.Press(kVkW);
  World().native.Press(kVkLeftButton);
  Show(1);
  EXPECT_EQ(GetCursorScreenPosition(), Vector3D(-960.0f, 540.0f, 1.0f));
  World().native.Push(NativeEventKind::kKeyUp, kVkSpace);
  World().native.Push(NativeEventKind::kKeyUp, kVkH);
  EXPECT_EQ(ShowAll(), Stage::kEnded);
}

TEST_F(ReplayTest, StopGivesTheCursorBackAtOnce) {
  Begin(Beginning());
  World().native.cursor = {500, 350};
  Show(10);
  m_replay.Stop();
  EXPECT_EQ(m_replay.GetStage(), Stage::kEmpty);
  EXPECT_EQ(GetCursorScreenPosition(), Vector3D(0.0f, 0.0f, 1.0f));
  Show(1);
  EXPECT_EQ(m_replay.GetStage(), Stage::kEmpty);
}

TEST_F(ReplayTest, AFileThatIsNoGameIsRefused) {
  World().Directory().Write("no.txt", "{}\n");
  for (const char* file : {"no.txt", "missing.txt", "."}) {
    EXPECT_FALSE(m_replay.Load(file)) << file;
    EXPECT_EQ(m_replay.GetStage(), Stage::kEmpty) << file;
  }
  m_replay.Step();
  EXPECT_EQ(m_replay.ShownSteps(), 0);
}

}  // namespace
}  // namespace ZOVEngine
