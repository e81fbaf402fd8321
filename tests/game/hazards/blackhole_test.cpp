#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rttr/type>

#include <string>
#include <vector>

#include "core/contactinfo.h"
#include "core/engine.h"
#include "game/hazards/environmentblackhole.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "objects/statec.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"
#include "physicssystem.h"
#include "render/components/particlesystemc.h"
#include "support/reports.h"
#include "support/unitrecords.h"

namespace ZOVEngine {
namespace {

using carapace_test::BodyRecord;
using carapace_test::Components;
using carapace_test::KeysOf;
using carapace_test::OutputOf;
using carapace_test::ReadRecord;
using carapace_test::Record;
using carapace_test::RecordOf;
using carapace_test::SpriteRecord;
using carapace_test::TransformAt;
using carapace_test::UnitKind;
using carapace_test::UnitParts;
using carapace_test::UnitRecord;
using carapace_test::UnitStage;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char* kHole = R"({"m_suction_force": 10, "m_suction_range": 100})";

std::string HoleRecord(const Components& more = {}, const std::vector<std::string>& children = {}) {
  Components components = {{"Transform", TransformAt(0, 0)}, {"EnvironmentBlackhole", kHole}};
  components.insert(components.end(), more.begin(), more.end());
  return Record("hole", components, children);
}

/// A hole at the origin in a level with further objects.
class Hole {
 public:
  explicit Hole(const std::vector<std::string>& others = {}, const Components& more = {})
      : stage(Children(others, more), false) {}

  EnvironmentBlackhole& It() { return stage.Of<EnvironmentBlackhole>("hole"); }
  void Update() { It().Update(kStep); }
  const std::vector<std::shared_ptr<DirectionalForce>>& ForcesOn(const std::string& name) {
    return stage.Of<RigidBody>(name).m_forces;
  }
  /// The hole is told of a contact with `name`, as side B and then as side A.
  ContactInfo Touch(const std::string& name, bool hole_first = true) {
    ContactInfo contact = hole_first ? stage.Between("hole", name) : stage.Between(name, "hole");
    It().OnCollisionEnter(&contact);
    return contact;
  }

  UnitStage stage;

 private:
  static std::vector<std::string> Children(const std::vector<std::string>& others,
                                           const Components& more) {
    std::vector<std::string> children = {HoleRecord(more)};
    children.insert(children.end(), others.begin(), others.end());
    return children;
  }
};

// The record

TEST(EnvironmentBlackhole, ANewOneHasItsDefaults) {
  const EnvironmentBlackhole hole(nullptr);
  EXPECT_EQ(hole.m_suction_force, 10.0f);
  EXPECT_EQ(hole.m_suction_range, 100.0f);
}

TEST(EnvironmentBlackhole, TwoKeysAreReadAndWrittenInTheirOrder) {
  EnvironmentBlackhole hole(nullptr);
  ReadRecord(R"({"m_suction_range": 2.5, "m_suction_force": 1.5})", hole);
  EXPECT_EQ(hole.m_suction_force, 1.5f);
  EXPECT_EQ(hole.m_suction_range, 2.5f);
  EXPECT_THAT(KeysOf(RecordOf(hole)), ElementsAre("m_suction_force", "m_suction_range"));
}

TEST(EnvironmentBlackhole, AMissingKeyPrintsItsLineAndKeepsTheDefault) {
  EnvironmentBlackhole hole(nullptr);
  EXPECT_EQ(OutputOf([&] { ReadRecord("{}", hole); }),
            "Cant find Key: m_suction_force\nCant find Key: m_suction_range\n");
  EXPECT_EQ(hole.m_suction_range, 100.0f);
}

TEST(EnvironmentBlackhole, TheInspectorShowsBothFields) {
  const rttr::type type = rttr::type::get_by_name("ZOVEngine::EnvironmentBlackhole");
  for (const auto& [name, label] : {std::pair("m_suction_force", "Suction Force"),
                                    std::pair("m_suction_range", "Suction Range")}) {
    ASSERT_TRUE(type.get_property(name).is_valid()) << name;
    EXPECT_EQ(type.get_property(name).get_metadata("typeinfo").get_value<std::string>(), "float");
    EXPECT_EQ(type.get_property(name).get_metadata("name").get_value<std::string>(), label);
  }
}

// The first step

TEST(EnvironmentBlackhole, TheFirstStepSwitchesItOnWithItsChildren) {
  UnitStage stage({HoleRecord({{"Animation", "{}"}, {"StateC", "{}"}, {"ParticleSystemC", "{}"}},
                              {SpriteRecord("rim")})},
                  false);
  stage.Find("hole")->SetActive(false);
  stage.Of<ParticleSystemC>("hole").m_emitting = false;
  auto& hole = stage.Of<EnvironmentBlackhole>("hole");
  hole.Update(kStep);
  EXPECT_TRUE(hole.m_init);
  EXPECT_TRUE(hole.m_active);
  EXPECT_NE(hole.m_bodies, nullptr);
  EXPECT_TRUE(stage.Find("hole")->active);
  EXPECT_TRUE(stage.Find("rim")->active);
  EXPECT_EQ(stage.Of<StateC>("hole").m_state, "loop");
  EXPECT_TRUE(stage.Of<ParticleSystemC>("hole").m_emitting);
  EXPECT_TRUE(stage.Of<ParticleSystemC>("hole").m_active);
}

TEST(EnvironmentBlackhole, WithoutAnAnimationItsStateStays) {
  Hole hole({}, {{"StateC", R"({"m_state": "default"})"}});
  hole.Update();
  EXPECT_EQ(hole.stage.Of<StateC>("hole").m_state, "default");
}

TEST(EnvironmentBlackhole, TurnsByHalfADegreeAStep) {
  Hole hole;
  for (int i = 0; i < 3; ++i) hole.Update();
  EXPECT_EQ(hole.stage.Of<Transform>("hole").m_local_rotate, 1.5f);
}

TEST(EnvironmentBlackhole, AnInactiveOneRests) {
  Hole hole({BodyRecord("body", 50, 0)});
  hole.It().Init();
  hole.It().m_active = false;
  hole.Update();
  EXPECT_EQ(hole.stage.Of<Transform>("hole").m_local_rotate, 0.0f);
  EXPECT_THAT(hole.ForcesOn("body"), IsEmpty());
}

// The pull

TEST(EnvironmentBlackhole, ThePullIsTheSameAtAllDistances) {
  Hole hole({BodyRecord("near", 3, 4), BodyRecord("far", 0, -80)});
  hole.It().m_suction_force = 7.0f;
  hole.Update();
  ASSERT_THAT(hole.ForcesOn("near"), SizeIs(1));
  const DirectionalForce& near = *hole.ForcesOn("near")[0];
  EXPECT_EQ(near.direction, Vector3D(3, 4, 0)) << "not normalised";
  EXPECT_FLOAT_EQ(near.magnitude, -140.0f);
  EXPECT_EQ(near.lifetime, 0.1f);
  ASSERT_THAT(hole.ForcesOn("far"), SizeIs(1));
  const DirectionalForce& far = *hole.ForcesOn("far")[0];
  EXPECT_FLOAT_EQ((far.direction * far.magnitude).y, 700.0f);
}

TEST(EnvironmentBlackhole, ABodyExactlyAtItsRangeIsPulledAndNoneBeyond) {
  Hole hole({BodyRecord("at", 60, 80), BodyRecord("beyond", 60, 80.01f)});
  hole.Update();
  EXPECT_THAT(hole.ForcesOn("at"), SizeIs(1));
  EXPECT_THAT(hole.ForcesOn("beyond"), IsEmpty());
}

TEST(EnvironmentBlackhole, ItsRangeIsItsField) {
  Hole hole({BodyRecord("at", 50, 0), BodyRecord("beyond", 0, 60)});
  hole.It().m_suction_range = 50.0f;
  hole.Update();
  EXPECT_THAT(hole.ForcesOn("at"), SizeIs(1));
  EXPECT_THAT(hole.ForcesOn("beyond"), IsEmpty());
}

TEST(EnvironmentBlackhole, ABodyThatIsOffGathersNoForces) {
  Hole hole({BodyRecord("body", 50, 0)});
  hole.stage.Find("body")->SetActive(false);
  hole.Update();
  EXPECT_THAT(hole.ForcesOn("body"), IsEmpty());
}

TEST(EnvironmentBlackhole, DepthCountsAsDistance) {
  Hole hole({BodyRecord("deep", 60, 80)});
  hole.stage.Of<Transform>("deep").m_world_pos.z = 40.0f;
  hole.Update();
  EXPECT_THAT(hole.ForcesOn("deep"), IsEmpty());
}

TEST(EnvironmentBlackhole, ANewForceIsAddedAtEachStep) {
  Hole hole({BodyRecord("body", 50, 0)});
  for (int i = 0; i < 3; ++i) hole.Update();
  EXPECT_THAT(hole.ForcesOn("body"), SizeIs(3));
}

TEST(EnvironmentBlackhole, TheForcesOfTheLastFiveStepsAddUp) {
  Hole hole({BodyRecord("body", 90, 0)});
  for (int i = 0; i < 10; ++i) {
    hole.Update();
    g_physics_system->Update(kStep);
  }
  EXPECT_NEAR(hole.stage.Of<RigidBody>("body").m_accel.x, -5000.0f, 1.0f);
}

TEST(EnvironmentBlackhole, UnitsParticlesCamerasAndBarriersAreLeftAlone) {
  const std::string barrier = R"({"m_tex": "Env_MovableBarrier"})";
  const std::string another = R"({"m_tex": "Env_MovableBarrier2"})";
  Hole hole({BodyRecord("particle", 10, 0, {{"Particle", "{}"}}),
             BodyRecord("camera", 10, 0, {{"Camera", "{}"}}),
             BodyRecord("player", 10, 0, {{"Player", "{}"}}),
             BodyRecord("enemy", 10, 0, {{"Enemy", "{}"}}),
             BodyRecord("barrier", 10, 0, {{"Render", barrier}}),
             BodyRecord("another", 10, 0, {{"Render", another}})});
  hole.Update();
  for (const char* name : {"particle", "camera", "player", "enemy", "barrier"}) {
    EXPECT_THAT(hole.ForcesOn(name), IsEmpty()) << name;
  }
  EXPECT_THAT(hole.ForcesOn("another"), SizeIs(1));
}

TEST(EnvironmentBlackhole, ABodyOnItsVeryCentreIsDrawnNowhere) {
  Hole hole({BodyRecord("body", 0, 0)}, {{"RigidBody", "{}"}});
  hole.Update();
  EXPECT_THAT(hole.ForcesOn("body"), IsEmpty());
  EXPECT_THAT(hole.ForcesOn("hole"), IsEmpty()) << "nor does it draw itself";
}

TEST(EnvironmentBlackhole, ABodyBetweenTwoHolesIsDrawnByBothWithTheSameForce) {
  const Components kind = {{"Transform", TransformAt(60, 0)}, {"EnvironmentBlackhole", kHole}};
  // The nearer hole draws no more than the other.
  Hole hole({Record("second", kind), BodyRecord("body", 20, 0)});
  hole.Update();
  hole.stage.Of<EnvironmentBlackhole>("second").Update(kStep);
  ASSERT_THAT(hole.ForcesOn("body"), SizeIs(2));
  const auto pull = [&](std::size_t i) {
    const DirectionalForce& force = *hole.ForcesOn("body").at(i);
    return force.direction * force.magnitude;
  };
  EXPECT_NEAR(pull(0).x, -1000.0f, 0.01f);
  EXPECT_NEAR(pull(1).x, 1000.0f, 0.01f);
}

TEST(EnvironmentBlackhole, ABodyBetweenTwoEqualHolesStays) {
  const Components kind = {{"Transform", TransformAt(60, 0)}, {"EnvironmentBlackhole", kHole}};
  Hole hole({Record("second", kind), BodyRecord("body", 20, 0)});
  hole.stage.world.Step(30);
  EXPECT_NEAR(hole.stage.Of<Transform>("body").m_world_pos.x, 20.0f, 0.01f);
  hole.stage.Of<EnvironmentBlackhole>("second").m_suction_force = 11.0f;
  hole.stage.world.Step(30);
  EXPECT_GT(hole.stage.Of<Transform>("body").m_world_pos.x, 25.0f) << "the stronger one has it";
}

TEST(EnvironmentBlackhole, InAPauseItNeitherTurnsNorPulls) {
  Hole hole({BodyRecord("body", 20, 0)});
  hole.stage.world.Step();
  const float turned = hole.stage.Of<Transform>("hole").m_local_rotate;
  ASSERT_THAT(hole.ForcesOn("body"), SizeIs(1));
  g_engine->paused = true;
  hole.stage.world.Step(10);
  EXPECT_EQ(hole.stage.Of<Transform>("hole").m_local_rotate, turned);
  EXPECT_THAT(hole.ForcesOn("body"), SizeIs(1)) << "nor is the one of before used up";
}

// What touches it

TEST(EnvironmentBlackhole, EveryUnitThatTouchesItLosesAllHealth) {
  UnitParts boss;
  boss.fields = R"({"m_health": 50, "m_max_health": 50, "m_boss": true})";
  for (const bool hole_first : {true, false}) {
    Hole hole({UnitRecord(UnitKind::kPlayer, "player"), UnitRecord(UnitKind::kEnemy, "enemy"),
               UnitRecord(UnitKind::kBoss, "boss", boss)});
    EXPECT_FALSE(hole.Touch("player", hole_first).ignored);
    hole.Touch("enemy", hole_first);
    hole.Touch("boss", hole_first);
    EXPECT_EQ(hole.stage.Of<Player>("player").m_health, 0);
    EXPECT_EQ(hole.stage.Of<Enemy>("enemy").m_health, 0);
    EXPECT_EQ(hole.stage.Of<Enemy>("boss").m_health, 0);
    EXPECT_TRUE(hole.stage.Find("player")->active) << "its own step lets it die";
  }
}

TEST(EnvironmentBlackhole, AUnitNeedsNoBodyToBeCaught) {
  Hole hole({Record("unit", {{"Player", R"({"m_health": 5})"}})});
  hole.Touch("unit");
  EXPECT_EQ(hole.stage.Of<Player>("unit").m_health, 0);
}

TEST(EnvironmentBlackhole, AMovableThingIsSwitchedOffWithItsChildren) {
  for (const bool hole_first : {true, false}) {
    Hole hole({BodyRecord("body", 0, 0)});
    hole.Touch("body", hole_first);
    EXPECT_FALSE(hole.stage.Find("body")->active);
    EXPECT_FALSE(hole.stage.Of<RigidBody>("body").m_active);
    EXPECT_TRUE(hole.stage.Find("hole")->active);
  }
  UnitStage stage({HoleRecord(), Record("shell",
                                        {{"RigidBody", "{}"},
                                         {"Transform", TransformAt(0, 0)},
                                         {"ColliderHolder", R"({"m_active": true,
                       "m_collider_type": "Box", "m_local_pos": [0, 0, 1],
                       "m_local_scale": [1, 1, 1], "m_local_rot": 0, "m_layer": 0,
                       "bitmask_category": "Default"})"}},
                                        {SpriteRecord("trail")})},
                  false);
  ContactInfo contact;
  contact.objectA = stage.Find("hole")->id;
  contact.objectB = stage.Find("shell")->id;
  stage.Of<EnvironmentBlackhole>("hole").OnCollisionEnter(&contact);
  EXPECT_FALSE(stage.Find("trail")->active);
}

TEST(EnvironmentBlackhole, AFixedThingStays) {
  Hole hole({SpriteRecord("wall")});
  hole.Touch("wall");
  EXPECT_TRUE(hole.stage.Find("wall")->active);
}

TEST(EnvironmentBlackhole, SwitchedOffObjectsAreNotCaught) {
  Hole hole({UnitRecord(UnitKind::kPlayer, "player")});
  hole.stage.Find("player")->active = false;
  hole.Touch("player");
  hole.stage.Find("player")->active = true;
  hole.stage.Find("hole")->active = false;
  hole.Touch("player");
  EXPECT_EQ(hole.stage.Of<Player>("player").m_health, 8);
}

TEST(EnvironmentBlackhole, LeavesAUnitInItsRangeAloneUntilItTouches) {
  Hole hole({UnitRecord(UnitKind::kPlayer, "player")});
  for (int i = 0; i < 30; ++i) hole.Update();
  EXPECT_THAT(hole.ForcesOn("player"), IsEmpty());
  EXPECT_EQ(hole.stage.Of<Player>("player").m_health, 8);
}

}  // namespace
}  // namespace ZOVEngine
