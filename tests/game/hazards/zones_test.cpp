#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <type_traits>
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
#include "support/reports.h"
#include "support/unitrecords.h"

namespace ZOVEngine {
namespace {

using carapace_test::BodyRecord;
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
using ::testing::IsEmpty;

/// The two zones that share one pattern.
template <class T>
class Zones : public ::testing::Test {
 protected:
  static const char* Name() {
    return std::is_same_v<T, EnvironmentDamage> ? "EnvironmentDamage" : "EnvironmentRough";
  }
  static const char* Status() {
    return std::is_same_v<T, EnvironmentDamage> ? "damaged" : "slowed";
  }
  static std::string ZoneRecord(const std::vector<std::pair<std::string, std::string>>& more = {}) {
    std::vector<std::pair<std::string, std::string>> components = {{Name(), "{}"}};
    components.insert(components.end(), more.begin(), more.end());
    return Record("zone", components, {SpriteRecord("mist")});
  }
  static ContactInfo Contact(const UnitStage& stage, const std::string& a, const std::string& b) {
    ContactInfo contact;
    contact.objectA = stage.Find(a)->id;
    contact.objectB = stage.Find(b)->id;
    return contact;
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
    return std::is_same_v<T, EnvironmentDamage> ? "Damage" : "Rough";
  }
};

using Kinds = ::testing::Types<EnvironmentDamage, EnvironmentRough>;
TYPED_TEST_SUITE(Zones, Kinds, ZoneNames);

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
  EXPECT_EQ(this->stage.template Of<StateC>("zone").m_state,
            (std::is_same_v<TypeParam, EnvironmentDamage>) ? "loop" : "default");
}

TYPED_TEST(Zones, EnteringMarksUnitsOfBothKindsAndLetsTheContactBe) {
  for (const bool zone_first : {true, false}) {
    for (const char* unit : {"player", "enemy"}) {
      ContactInfo contact =
          this->Contact(this->stage, zone_first ? "zone" : unit, zone_first ? unit : "zone");
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
  ContactInfo contact = this->Contact(this->stage, "player", "zone");
  this->zone.OnCollisionStay(&contact);
  EXPECT_EQ(this->player, this->Status());
  EXPECT_TRUE(contact.ignored);
}

TYPED_TEST(Zones, LeavingGivesTheDefaultStatusBack) {
  this->enemy = "other";
  ContactInfo contact = this->Contact(this->stage, "zone", "enemy");
  this->zone.OnCollisionExit(&contact);
  EXPECT_EQ(this->enemy, "default");
  EXPECT_TRUE(contact.ignored);
}

TYPED_TEST(Zones, SwitchedOffObjectsPassWithoutAMark) {
  for (const char* off : {"player", "zone"}) {
    this->player = "other";
    this->stage.Find(off)->active = false;
    ContactInfo contact = this->Contact(this->stage, "player", "zone");
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
  ContactInfo contact = this->Contact(this->stage, "thing", "zone");
  this->zone.OnCollisionEnter(&contact);
  this->zone.OnCollisionStay(&contact);
  EXPECT_TRUE(contact.ignored);
}

TYPED_TEST(Zones, AContactOfAUnitWithSomethingElseMarksNobody) {
  ContactInfo contact = this->Contact(this->stage, "player", "enemy");
  this->zone.OnCollisionEnter(&contact);
  EXPECT_EQ(this->player, "default");
  EXPECT_EQ(this->enemy, "default");
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
  explicit WalkThrough(std::vector<std::string> zones) : stage(With(std::move(zones)), false) {
    for (GameObj* child : stage.Find("level")->children) {
      if (child->name != "walker") child->GetComponent<RigidBody>()->m_active = false;
    }
    stage.Of<RigidBody>("walker").m_vel = Vector3D(600, 0, 0);
  }
  std::string& Status() { return stage.Of<Player>("walker").m_status; }
  float X() { return stage.Of<Transform>("walker").m_world_pos.x; }

  UnitStage stage;

 private:
  static std::vector<std::string> With(std::vector<std::string> zones) {
    zones.push_back(Walker());
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
  ContactInfo exit;
  exit.objectA = walk.stage.Find("left")->id;
  exit.objectB = walk.stage.Find("walker")->id;
  walk.stage.Of<EnvironmentRough>("left").OnCollisionExit(&exit);
  EXPECT_EQ(walk.Status(), "default") << "though it stands in the other";
  walk.stage.world.Step();
  EXPECT_EQ(walk.Status(), "damaged");
}

}  // namespace
}  // namespace ZOVEngine
