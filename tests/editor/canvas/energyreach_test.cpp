#include "editor/canvas/energyreach.h"

#include <gtest/gtest.h>

#include "core/messages.h"
#include "game/units/player.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::Record;
using carapace_test::TransformAt;
using carapace_test::World;

class EnergyReachTest : public ::testing::Test {
 protected:
  EnergyReachTest() {
    player.m_movement_mag = 66700.0f;
    body.m_inv_mass = 1.0f / 350.0f;
    body.m_drag = 8.0f;
  }
  Player player{nullptr};
  RigidBody body{nullptr};
};

/// Pushes a body in a running world as a held key does.
float DrivenDistance(World& world, GameObj* unit, int pushes) {
  for (int i = 0; i < pushes; ++i) {
    world.Send(AddForceToObject(unit->id, Vector3D(1.0f, 0.0f, 0.0f), 66700.0f, 0.1f));
    world.Step();
  }
  world.Step(300);
  return unit->GetComponent<Transform>()->m_local_pos.x;
}

TEST_F(EnergyReachTest, IsWhatAWorldMovesThePushedBody) {
  World world;
  world.LoadObjects(Record("unit", {{"Transform", TransformAt(0.0f, 0.0f)},
                                    {"RigidBody", R"({"m_mass": 350.0, "m_drag": 8.0})"}}));
  player.m_movement_limit = 0.79f;  // spent by the 50th push
  EXPECT_NEAR(EnergyReach(player, body), DrivenDistance(world, world.Find("unit"), 50), 0.5f);
}

TEST_F(EnergyReachTest, GrowsWithTheEnergy) {
  player.m_movement_limit = 1.0f;
  const float near = EnergyReach(player, body);
  player.m_movement_limit = 2.0f;
  EXPECT_GT(EnergyReach(player, body), 1.8f * near);
}

TEST_F(EnergyReachTest, IsNothingWithoutEnergyAndFiniteWithoutDrag) {
  player.m_movement_limit = 0.0f;
  EXPECT_EQ(EnergyReach(player, body), 0.0f);
  player.m_movement_limit = 2.0f;
  body.m_drag = 0.0f;
  EXPECT_TRUE(std::isfinite(EnergyReach(player, body)));
}

}  // namespace
}  // namespace ZOVEngine
