#include "autoplay/autoplayer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "autoplay/levelrun.h"
#include "core/messages.h"
#include "game/turns/gamecontroller.h"
#include "game/units/enemy.h"
#include "platform/virtualkeys.h"
#include "support/levelgame.h"

namespace ZOVEngine {
namespace {

using carapace_test::LevelGame;
using ::testing::Each;
using Kind = GameInput::Kind;

constexpr int kMostSteps = 3000;  ///< that a first shot may take

/// The first level before its first round.
class AutoPlayerTest : public ::testing::Test {
 protected:
  /// Plays until the player has made an input of this kind; false if that takes too long.
  static bool PlayTo(AutoPlayer* player, Kind kind) {
    for (int step = 0; step < kMostSteps && player->Step(); ++step) {
      const auto is_kind = [kind](const GameInput& input) { return input.kind == kind; };
      if (std::ranges::any_of(player->Inputs(), is_kind)) return true;
    }
    return false;
  }

  LevelGame m_game{"Level01", 1};
};

TEST_F(AutoPlayerTest, AUnitDrivesThenAimsThenFires) {
  AutoPlayer player;
  EXPECT_TRUE(PlayTo(&player, Kind::kDirection));
  EXPECT_EQ(player.Shots(), 0);
  EXPECT_TRUE(PlayTo(&player, Kind::kCursor));
  EXPECT_EQ(player.Shots(), 0);
  EXPECT_TRUE(PlayTo(&player, Kind::kClick));
  EXPECT_EQ(player.Shots(), 1);
}

TEST_F(AutoPlayerTest, WithoutAWillToFightItOnlySkips) {
  AutoPlayer player(AutoPlayer::Style::kSkip);
  std::vector<GameInput> inputs;
  while (player.Rounds() < 1 && player.Step()) {
    inputs.insert(inputs.end(), player.Inputs().begin(), player.Inputs().end());
  }
  EXPECT_FALSE(inputs.empty());
  EXPECT_THAT(inputs, Each(GameInput{Kind::kKey, kVkF, 0}));
}

TEST_F(AutoPlayerTest, AnAimWhoseLastTargetHasJustDiedIsLeft) {
  AutoPlayer player;
  ASSERT_TRUE(PlayTo(&player, Kind::kCursor));
  EXPECT_EQ(player.Outcome(), "open");
  for (GameObj* enemy : FindTurnController()->m_enemies) {
    enemy->GetComponent<Enemy>()->m_alive = false;
  }
  EXPECT_TRUE(player.Step());
  EXPECT_TRUE(player.Inputs().empty());
  EXPECT_EQ(player.Outcome(), "won");
  EXPECT_FALSE(player.Step()) << "the level is over";
}

TEST_F(AutoPlayerTest, ALevelWithoutACameraIsSeenFromItsOrigin) {
  FindTurnController()->m_camera = nullptr;
  AutoPlayer player;
  EXPECT_TRUE(PlayTo(&player, Kind::kClick));
}

}  // namespace
}  // namespace ZOVEngine
