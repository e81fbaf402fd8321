#include "game/contactsides.h"

#include <gtest/gtest.h>

#include <string>

#include "game/shots/shotstage.h"
#include "support/kinds.h"

namespace ZOVEngine {
namespace {

using carapace_test::KindsOf;
using carapace_test::kLively;
using carapace_test::Record;
using carapace_test::ShotStage;
using carapace_test::ThingAt;

constexpr std::uint32_t kNoObject = 99999;

TEST(ContactSides, AnObjectThatIsGoneLeavesItsSideEmpty) {
  const ShotStage stage({.kind = "ProjectileDefault"});
  ContactInfo contact = stage.Between("shooter", "camera");
  const ContactSides both(contact);
  EXPECT_EQ(both.a, stage.Find("shooter"));
  EXPECT_EQ(both.b, stage.Find("camera"));
  EXPECT_TRUE(both.BothActive());
  contact.objectB = static_cast<std::uint32_t>(g_game_obj_factory->m_objects.size());
  const ContactSides without_b(contact);
  EXPECT_EQ(without_b.a, stage.Find("shooter"));
  EXPECT_EQ(without_b.b, nullptr);
  EXPECT_FALSE(without_b.BothActive());
  contact.objectA = kNoObject;
  EXPECT_FALSE(ContactSides(contact).BothActive());
}

/// Every logic component, so that a new one is in the suite as soon as it has a table.
template <class T>
class EveryLogicComponent : public ::testing::Test {
 protected:
  /// A thing that is awake, has a body and the component.
  static std::string Thing() {
    return ThingAt("thing", 0, 0, 40, {{"RigidBody", kLively}, {ClassName<T>(), "{}"}});
  }
  /// Tells the component of the beginning, the length and the end of a contact.
  void Tell(std::uint32_t a, std::uint32_t b) {
    ContactInfo contact;
    contact.objectA = a;
    contact.objectB = b;
    LogicComponent& told = stage.Of<T>("thing");
    EXPECT_NO_THROW(told.OnCollisionEnter(&contact));
    EXPECT_NO_THROW(told.OnCollisionStay(&contact));
    EXPECT_NO_THROW(told.OnCollisionExit(&contact));
  }

  ShotStage stage{{.kind = "ProjectileDefault", .more = {Thing(), Record("bare", {})}}};
};

struct ClassNames {
  template <class T>
  static std::string GetName(int) {
    return ClassName<T>();
  }
};

TYPED_TEST_SUITE(EveryLogicComponent, KindsOf<LogicComponent>, ClassNames);

TYPED_TEST(EveryLogicComponent, BearsAContactWhoseOtherSideIsGone) {
  const std::uint32_t thing = this->stage.Find("thing")->id;
  this->Tell(thing, kNoObject);
  this->stage.Find("thing")->SetActive(true);
  this->Tell(kNoObject, thing);
}

TYPED_TEST(EveryLogicComponent, BearsAContactWithAnObjectWithoutComponents) {
  const std::uint32_t thing = this->stage.Find("thing")->id;
  const std::uint32_t bare = this->stage.Find("bare")->id;
  this->Tell(thing, bare);
  this->stage.Find("thing")->SetActive(true);
  this->Tell(bare, thing);
}

}  // namespace
}  // namespace ZOVEngine
