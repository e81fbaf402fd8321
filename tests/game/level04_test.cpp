#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

#include "autoplay/autoplayer.h"
#include "core/messages.h"
#include "game/objectquery.h"
#include "game/turns/gamecontroller.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"
#include "render/components/render.h"
#include "support/levelgame.h"
#include "support/reports.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;
using ::testing::ElementsAre;
using ::testing::FloatNear;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::SizeIs;

constexpr std::uint32_t kLevel04Seed = 4;
constexpr int kFadeSteps = 30;    ///< of shield and field, at two a second
constexpr int kDeathSteps = 300;  ///< of a boss
constexpr int kMostSteps = 3000;  ///< that anything here may take

/// The boss's level as it is shipped, in the boss's own round.
class Level04 : public ::testing::Test {
 protected:
  Level04() {
    m_world.Step();
    m_boss = m_world.Find("Boss");
  }

  GameController& Controller() { return *m_world.Find("level")->GetComponent<GameController>(); }
  Enemy& Boss() { return *m_boss->GetComponent<Enemy>(); }
  GameObj* Field() { return FirstChildNamed(m_world.Find("level"), "DeathField"); }
  float AlphaOf(GameObj* object) { return object->GetComponent<Render>()->m_colour[3]; }
  GameObj* Piece(const char* name) { return FirstChildNamed(m_boss, name); }
  /// How far the boss's shots start from its middle (unit: world units).
  float Muzzle() { return Piece("Weapon0Barrel")->GetComponent<Transform>()->m_world_scale.y; }
  void ExpectFan(const std::array<const char*, 3>& names, int steps);

  /// Skips turns until `holds`; false if that takes too long.
  template <class Condition>
  bool SkipUntil(Condition holds) {
    AutoPlayer player(AutoPlayer::Style::kSkip);
    for (int step = 0; step < kMostSteps; ++step) {
      if (holds()) return true;
      player.Step();
    }
    return false;
  }

  /// Sends a thing that lies about on its way, which holds up all that waits for rest.
  void Disturb() {
    m_world.Find("MovableBarrier")->GetComponent<RigidBody>()->m_vel = Vector3D(60, 0, 0);
  }

  void KillEscorts() {
    for (GameObj* enemy : Controller().m_enemies) {
      if (enemy != m_boss) enemy->GetComponent<Enemy>()->m_health = 0;
    }
  }

  /// Skips turns until the boss is dead and two more rounds are over.
  void ExpectRoundsGoOn() {
    ASSERT_TRUE(SkipUntil([this] { return !Boss().m_alive; }));
    const int round = Controller().m_round;
    EXPECT_TRUE(SkipUntil([&] { return Controller().m_round == round + 2; }));
    EXPECT_NE(Controller().m_state, TURN_LEVEL_END);
  }

  LevelGame m_game{"Level04", kLevel04Seed};
  World& m_world = m_game.world;
  GameObj* m_boss = nullptr;
};

TEST(Level04Files, LoadingThemComplainsOfNothing) {
  const std::string output = OutputOf([] {
    LevelGame game("Level04", kLevel04Seed);
    game.world.Step(2);
  });
  EXPECT_THAT(output, Not(HasSubstr("Cant find Key: m_")));
  EXPECT_THAT(output, Not(HasSubstr(" not found")));
  EXPECT_THAT(output, Not(HasSubstr("Not Object")));
}

TEST_F(Level04, ThreeStandAgainstTheBossAndTwoEscorts) {
  EXPECT_THAT(Controller().m_players, SizeIs(3));
  EXPECT_THAT(Controller().m_enemies, SizeIs(3));
  EXPECT_TRUE(Boss().m_boss);
  EXPECT_FALSE(Field()->active) << "it sleeps until the second phase";
  EXPECT_TRUE(Piece("ShieldPhase1")->active);
  EXPECT_FALSE(Piece("ShieldPhase2")->active);
}

TEST_F(Level04, TheBossFiresAFanOfThree) {
  const auto flies = [this](const char* name) { return Piece(name)->active; };
  ASSERT_TRUE(SkipUntil([&] { return flies("MiddleProj"); }));
  EXPECT_TRUE(flies("LeftProjPhase1"));
  EXPECT_TRUE(flies("RightProjPhase1"));
  EXPECT_FALSE(flies("LeftProjPhase2"));
  EXPECT_EQ(Controller().m_round, 1) << "not in the first round";
}

/// Expects the boss's three shots on their lines, `steps` after they were fired, and the boss where
/// it was.
void Level04::ExpectFan(const std::array<const char*, 3>& names, int steps) {
  ASSERT_TRUE(SkipUntil([&] { return Piece(names[0])->active; }));
  const auto& boss = *m_boss->GetComponent<Transform>();
  const Vector3D place = boss.m_local_pos;
  const float ahead = DegreesToRadians(boss.m_world_rotate + 90.0f);
  m_world.Step(steps);
  EXPECT_EQ(boss.m_local_pos, place) << "it is not pushed";
  const float angles[] = {ahead, ahead - 0.25f, ahead + 0.25f};
  for (std::size_t i = 0; i < names.size(); ++i) {
    const GameObj* shot = Piece(names[i]);
    ASSERT_TRUE(shot->active) << names[i];
    const Vector3D flown = Piece(names[i])->GetComponent<Transform>()->m_world_pos - place;
    const float aside = flown.y * std::cos(angles[i]) - flown.x * std::sin(angles[i]);
    const float muzzle_aside = Muzzle() * std::sin(ahead - angles[i]);
    EXPECT_NEAR(aside, muzzle_aside, 0.1f) << names[i];
    EXPECT_GT(flown.Length(), Muzzle() + 50.0f) << names[i];
  }
}

TEST_F(Level04, ThreeSightsLieAlongTheBossesShotsUntilItBeginsToDie) {
  ASSERT_TRUE(SkipUntil([this] { return Controller().m_state == TURN_PLAYER_MOVE; }));
  const auto seen = [this] {
    std::vector<float> angles;
    for (GameObj* child : m_boss->children) {
      const auto* render = FindComponent<Render>(child);
      if (render == nullptr || render->m_tex != "UI_Sight" || !render->m_visible) continue;
      angles.push_back(std::remainder(child->GetComponent<Transform>()->m_world_rotate -
                                          m_boss->GetComponent<Transform>()->m_world_rotate,
                                      360.0f));
    }
    return angles;
  };
  constexpr float kSpread = 14.32f;
  EXPECT_THAT(seen(), ElementsAre(FloatNear(-kSpread, 0.1f), FloatNear(0.0f, 0.1f),
                                  FloatNear(kSpread, 0.1f)));
  Boss().m_health = 0;
  m_world.Step(2);
  EXPECT_THAT(seen(), SizeIs(0));
}

TEST_F(Level04, TheBossesThreeShotsKeepTheirLines) {
  ExpectFan({"MiddleProj", "LeftProjPhase1", "RightProjPhase1"}, 10);
}

TEST_F(Level04, TheThreeShellsOfItsSecondPhaseKeepTheirLines) {
  Boss().m_health = Boss().m_max_health / 2;
  ExpectFan({"MiddleProj", "LeftProjPhase2", "RightProjPhase2"}, 10);
}

TEST_F(Level04, ThePhaseChangesAtRestAndShieldAndFieldFadeIn) {
  ASSERT_TRUE(SkipUntil([this] { return Controller().m_state == TURN_PLAYER_MOVE; }));
  Disturb();
  Boss().m_health = Boss().m_max_health / 2;
  m_world.Step(5);
  EXPECT_FALSE(Boss().m_phase_two) << "something moves";
  ASSERT_TRUE(SkipUntil([this] { return Boss().m_phase_two; }));
  EXPECT_TRUE(Controller().AllBodiesAtRest());
  EXPECT_TRUE(Piece("ShieldPhase2")->active);
  EXPECT_TRUE(Field()->active);
  EXPECT_LT(AlphaOf(Field()), 0.1f);
  EXPECT_LT(AlphaOf(Piece("ShieldPhase2")), 0.1f);
  m_world.Step(kFadeSteps / 2);
  EXPECT_NEAR(AlphaOf(Field()), 0.5f, 0.1f);
  EXPECT_FALSE(Boss().m_phase_ready);
  m_world.Step(kFadeSteps / 2 + 2);
  EXPECT_FLOAT_EQ(AlphaOf(Field()), 1.0f);
  EXPECT_FLOAT_EQ(AlphaOf(Piece("ShieldPhase2")), 1.0f);
  EXPECT_TRUE(Boss().m_phase_ready);
}

TEST_F(Level04, InItsSecondPhaseAllThreeBurst) {
  Boss().m_health = Boss().m_max_health / 2;
  ASSERT_TRUE(SkipUntil([this] { return Piece("MiddleProj")->active; }));
  EXPECT_TRUE(Piece("LeftProjPhase2")->active);
  EXPECT_TRUE(Piece("RightProjPhase2")->active);
  EXPECT_FALSE(Piece("LeftProjPhase1")->active);
}

TEST_F(Level04, TheFieldKillsATankThatEntersAndSparesTheEscorts) {
  Boss().m_health = Boss().m_max_health / 2;
  ASSERT_TRUE(SkipUntil([this] { return Boss().m_phase_ready; }));
  GameObj* tank = Controller().m_players.front();
  GameObj* escort = Controller().m_enemies.back();
  tank->GetComponent<Transform>()->SetLocalPosition(Vector3D(600, 250, 1));
  escort->GetComponent<Transform>()->SetLocalPosition(Vector3D(600, -250, 1));
  const int before = escort->GetComponent<Enemy>()->m_health;
  m_world.Step(4);
  EXPECT_FALSE(tank->GetComponent<Player>()->m_alive);
  EXPECT_EQ(escort->GetComponent<Enemy>()->m_health, before);
}

TEST_F(Level04, TheBossTakesFiveSecondsToDieAndVictoryComesAfterThem) {
  ASSERT_TRUE(SkipUntil([this] { return Controller().m_state == TURN_PLAYER_MOVE; }));
  KillEscorts();
  Boss().m_health = 0;
  m_world.Step(kDeathSteps - 10);
  EXPECT_TRUE(Boss().m_dying);
  EXPECT_TRUE(Boss().m_alive);
  EXPECT_NE(Controller().m_state, TURN_LEVEL_END);
  EXPECT_FALSE(Field()->active);
  EXPECT_TRUE(Piece("DeathExplosion00")->active);
  EXPECT_TRUE(Piece("DeathExplosion10")->active);
  m_world.Step(20);
  EXPECT_FALSE(Boss().m_alive);
  EXPECT_EQ(Controller().m_state, TURN_LEVEL_END);
  EXPECT_GE(m_world.mixer.CountPlays("Resources/Sound/BGM/victory.ogg"), 1);
}

TEST_F(Level04, WhenTheBossDiesInItsOwnTurnItsEscortsPlayOn) {
  ASSERT_TRUE(
      SkipUntil([this] { return Controller().m_round == 1 && Controller().m_selected == m_boss; }));
  Boss().m_health = 0;
  ExpectRoundsGoOn();
}

TEST_F(Level04, WhenTheBossDiesAtItsSelectionItsEscortsPlayOn) {
  Boss().m_health = 1;
  Boss().m_status = "damaged";
  ExpectRoundsGoOn();
}

TEST_F(Level04, WhenTheBossDiesByTheLastShotOfTheRoundItsEscortsPlayOn) {
  ASSERT_TRUE(SkipUntil([this] { return Controller().m_selected == Controller().m_players[2]; }));
  Boss().m_health = 0;
  ExpectRoundsGoOn();
}

TEST(Level04Games, AreWonAndLostByPlaying) {
  int won = 0;
  int lost = 0;
  for (std::uint32_t seed = 1; seed <= 6 && (won == 0 || lost == 0); ++seed) {
    LevelGame game("Level04", seed);
    AutoPlayer player;
    player.Play(30);
    won += player.HasWon() ? 1 : 0;
    lost += player.HasLost() ? 1 : 0;
  }
  EXPECT_GT(won, 0);
  EXPECT_GT(lost, 0);
}

}  // namespace
}  // namespace carapace_test
