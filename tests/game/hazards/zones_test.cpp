#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/contactinfo.h"
#include "core/engine.h"
#include "game/hazards/environmentdamage.h"
#include "game/hazards/environmentrough.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "objects/statec.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"
#include "support/kinds.h"
#include "support/reports.h"
#include "support/scene.h"
#include "support/unitrecords.h"

namespace ZOVEngine {
namespace {

using carapace_test::BodyRecord;
using carapace_test::Components;
using carapace_test::KeysOf;
using carapace_test::KindsOf;
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
using ::testing::IsEmpty;

/// What is peculiar to a zone. A zone without one does not link.
struct Nature {
  const char* status;
  const char* first_state;  ///< of its StateC after the first step; "default" before
};
template <class T>
Nature NatureOf();
template <>
Nature NatureOf<EnvironmentDamage>() {
  return {"damaged", "loop"};
}
template <>
Nature NatureOf<EnvironmentRough>() {
  return {"slowed", "default"};
}

/// What all zones that give units a status have in common.
template <class T>
class Zones : public ::testing::Test {
 protected:
  static const char* Status() { return NatureOf<T>().status; }
  static std::string ZoneRecord(const Components& more = {}) {
    Components components = {{ClassName<T>(), "{}"}};
    components.insert(components.end(), more.begin(), more.end());
    return Record("zone", components, {SpriteRecord("mist")});
  }

  UnitStage stage{{ZoneRecord({{"StateC", R"({"m_state": "default"})"}}),
                   UnitRecord(UnitKind::kPlayer, "player"), UnitRecord(UnitKind::kEnemy, "enemy"),
                   SpriteRecord("thing")},
                  false};
  T& zone = stage.Of<T>("zone");
  std::string& player = stage.Of<Player>("player").m_status;
  std::string& enemy = stage.Of<Enemy>("enemy").m_status;
};

struct ZoneNames {
  template <class T>
  static std::string GetName(int) {
    return ClassName<T>();
  }
};

TYPED_TEST_SUITE(Zones, KindsOf<StatusZone>, ZoneNames);

TYPED_TEST(Zones, HaveNoKeys) {
  TypeParam fresh(nullptr);
  EXPECT_EQ(OutputOf([&] { ReadRecord("{}", fresh); }), "");
  EXPECT_THAT(KeysOf(RecordOf(fresh)), IsEmpty());
}

TYPED_TEST(Zones, TheFirstStepSwitchesTheZoneOnWithItsChildren) {
  this->stage.Find("zone")->SetActive(false);
  this->zone.Update(kStep);
  EXPECT_TRUE(this->zone.m_init);
  EXPECT_TRUE(this->zone.m_active);
  EXPECT_TRUE(this->stage.Find("zone")->active);
  EXPECT_TRUE(this->stage.Find("mist")->active);
  this->stage.Find("zone")->SetActive(false);
  this->zone.Update(kStep);
  EXPECT_FALSE(this->stage.Find("zone")->active) << "only the first step does";
}

TYPED_TEST(Zones, OnlyTheDamagingZoneIsAnimatedFromTheStart) {
  this->zone.Update(kStep);
  EXPECT_EQ(this->stage.template Of<StateC>("zone").m_state, NatureOf<TypeParam>().first_state);
}

TYPED_TEST(Zones, EnteringMarksUnitsOfBothKindsAndLetsTheContactBe) {
  for (const bool zone_first : {true, false}) {
    for (const char* unit : {"player", "enemy"}) {
      ContactInfo contact =
          this->stage.Between(zone_first ? "zone" : unit, zone_first ? unit : "zone");
      this->zone.OnCollisionEnter(&contact);
      EXPECT_FALSE(contact.ignored);
    }
    EXPECT_EQ(this->player, this->Status());
    EXPECT_EQ(this->enemy, this->Status());
    this->player = this->enemy = "default";
  }
}

TYPED_TEST(Zones, StayingKeepsTheStatusAgainstOthersAndPasses) {
  this->player = "other";
  ContactInfo contact = this->stage.Between("player", "zone");
  this->zone.OnCollisionStay(&contact);
  EXPECT_EQ(this->player, this->Status());
  EXPECT_TRUE(contact.ignored);
}

TYPED_TEST(Zones, LeavingGivesTheDefaultStatusBack) {
  this->enemy = "other";
  ContactInfo contact = this->stage.Between("zone", "enemy");
  this->zone.OnCollisionExit(&contact);
  EXPECT_EQ(this->enemy, "default");
  EXPECT_TRUE(contact.ignored);
}

TYPED_TEST(Zones, SwitchedOffObjectsPassWithoutAMark) {
  for (const char* off : {"player", "zone"}) {
    this->player = "other";
    this->stage.Find(off)->active = false;
    ContactInfo contact = this->stage.Between("player", "zone");
    this->zone.OnCollisionEnter(&contact);
    EXPECT_FALSE(contact.ignored);
    this->zone.OnCollisionStay(&contact);
    EXPECT_TRUE(contact.ignored);
    contact.ignored = false;
    this->zone.OnCollisionExit(&contact);
    EXPECT_TRUE(contact.ignored);
    EXPECT_EQ(this->player, "other");
    this->stage.Find(off)->active = true;
  }
}

TYPED_TEST(Zones, AThingThatIsNoUnitOnlyPasses) {
  ContactInfo contact = this->stage.Between("thing", "zone");
  this->zone.OnCollisionEnter(&contact);
  this->zone.OnCollisionStay(&contact);
  EXPECT_TRUE(contact.ignored);
}

TYPED_TEST(Zones, AContactOfAUnitWithSomethingElseMarksNobody) {
  ContactInfo contact = this->stage.Between("player", "enemy");
  this->zone.OnCollisionEnter(&contact);
  EXPECT_EQ(this->player, "default");
  EXPECT_EQ(this->enemy, "default");
}

// In the picture

template <class T>
class DrawnZones : public ::testing::Test {};

TYPED_TEST_SUITE(DrawnZones, KindsOf<StatusZone>, ZoneNames);

TYPED_TEST(DrawnZones, LieBeneathUnits) {
  carapace_test::Scene scene;
  scene.AddSprite("unit", "one");
  scene.AddSprite("zone", "two")->template AddComponent<TypeParam>();
  EXPECT_EQ(scene.DrawTextures(), (std::vector<int>{2, 1}));
}

// In a running level

std::string ZoneAt(const std::string& name, const std::string& kind, float x) {
  return BodyRecord(name, x, 0, {{"Render", "{}"}, {"iModel", "{}"}, {kind, "{}"}});
}

/// A player unit of 24 by 36 that moves to the right by 600 units a second, from x -100 on.
std::string Walker() {
  UnitParts parts;
  parts.x = -100.0f;
  parts.y = 0.0f;
  parts.without = {"unit_damaged", "Weapon0Projectile", "Weapon1Projectile", "StateC"};
  return UnitRecord(UnitKind::kPlayer, "walker", parts);
}

class WalkThrough {
 public:
  explicit WalkThrough(std::vector<std::string> zones, bool walker_first = false)
      : stage(With(std::move(zones), walker_first), false) {
    for (GameObj* child : stage.Find("level")->children) {
      if (child->name != "walker") child->GetComponent<RigidBody>()->m_active = false;
    }
    stage.Of<RigidBody>("walker").m_vel = Vector3D(600, 0, 0);
  }
  std::string& Status() { return stage.Of<Player>("walker").m_status; }
  float X() { return stage.Of<Transform>("walker").m_world_pos.x; }

  UnitStage stage;

 private:
  static std::vector<std::string> With(std::vector<std::string> zones, bool walker_first) {
    zones.insert(walker_first ? zones.begin() : zones.end(), Walker());
    return zones;
  }
};

TEST(ZonesInALevel, AUnitWalksThroughAndIsMarkedInside) {
  for (const auto& [kind, status] :
       {std::pair("EnvironmentDamage", "damaged"), std::pair("EnvironmentRough", "slowed")}) {
    WalkThrough walk({ZoneAt("zone", kind, 0)});
    bool marked = false;
    for (int i = 0; i < 20; ++i) {
      walk.stage.world.Step();
      marked = marked || walk.Status() == status;
    }
    EXPECT_TRUE(marked) << kind;
    EXPECT_EQ(walk.Status(), "default") << kind;
    EXPECT_EQ(walk.stage.Of<RigidBody>("walker").m_vel, Vector3D(600, 0, 0)) << kind;
    EXPECT_NEAR(walk.X(), 100.0f, 0.1f) << kind;
  }
}

TEST(ZonesInALevel, APauseKeepsTheStatusOfAUnitInside) {
  WalkThrough walk({ZoneAt("zone", "EnvironmentDamage", 0)});
  for (int i = 0; i < 10 && walk.Status() == "default"; ++i) walk.stage.world.Step();
  const int health = walk.stage.Of<Player>("walker").m_health;
  g_engine->paused = true;
  walk.stage.world.Step(10);
  EXPECT_EQ(walk.Status(), "damaged");
  EXPECT_EQ(walk.stage.Of<Player>("walker").m_health, health);
  g_engine->paused = false;
  for (int i = 0; i < 20; ++i) walk.stage.world.Step();
  EXPECT_EQ(walk.Status(), "default");
}

/// Destroys `gone` while the walker stands in a zone, and runs the steps that end their contact.
/// The last object takes the id that gets free, so the order of the two counts.
void DestroyInContact(const std::string& gone, const std::string& kind, bool walker_first) {
  WalkThrough walk({ZoneAt("zone", kind, 0)}, walker_first);
  for (int i = 0; i < 10 && walk.Status() == "default"; ++i) walk.stage.world.Step();
  ASSERT_NE(walk.Status(), "default") << "they touch";
  g_game_obj_factory->Destroy(walk.stage.Find(gone)->id);
  EXPECT_NO_THROW(walk.stage.world.Step(3)) << gone << " in " << kind;
}

TEST(ZonesInALevel, AContactEndsQuietlyWhenASideIsDestroyed) {
  for (const char* kind : {"EnvironmentDamage", "EnvironmentRough"}) {
    for (const bool walker_first : {true, false}) {
      DestroyInContact("walker", kind, walker_first);
      DestroyInContact("zone", kind, walker_first);
    }
  }
}

TEST(ZonesInALevel, LeavingOneOfTwoZonesClearsTheStatusUntilTheOtherSetsItAgain) {
  // The left zone ends at x 5, the right one reaches from -5 to 205.
  WalkThrough walk(
      {ZoneAt("left", "EnvironmentRough", 0), ZoneAt("right", "EnvironmentDamage", 100)});
  walk.stage.Of<Transform>("right").m_local_scale.x = 210.0f;
  std::vector<std::string> seen;
  for (int i = 0; i < 25; ++i) {
    walk.stage.world.Step();
    if (seen.empty() || seen.back() != walk.Status()) seen.push_back(walk.Status());
  }
  EXPECT_EQ(walk.Status(), "damaged");
  ContactInfo exit = walk.stage.Between("left", "walker");
  walk.stage.Of<EnvironmentRough>("left").OnCollisionExit(&exit);
  EXPECT_EQ(walk.Status(), "default") << "though it stands in the other";
  walk.stage.world.Step();
  EXPECT_EQ(walk.Status(), "damaged");
}

}  // namespace
}  // namespace ZOVEngine
