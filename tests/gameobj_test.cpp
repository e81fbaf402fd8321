#include "gameobj.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/contactinfo.h"
#include "physics/components/transform.h"
#include "render/components/render.h"
#include "support/probe.h"
#include "support/reports.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::CountedData;
using carapace_test::ProbeA;
using carapace_test::ProbeB;
using carapace_test::ProbeLog;
using carapace_test::Record;
using carapace_test::ReportOf;
using carapace_test::TransformAt;
using carapace_test::World;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StrEq;
using ::testing::ThrowsMessage;

std::string Labelled(const std::string& label) {
  return "{\"label\": \"" + label + "\"}";
}

class GameObjTest : public ::testing::Test {
 protected:
  GameObjTest() { carapace_test::RegisterProbes(); }

  /// "root" with a probe of each kind and data between them, a child and a grandchild.
  GameObj* Family() {
    const std::string grandchild = Record("grandchild", {{"ProbeA", Labelled("grandchild")}});
    const std::string child = Record(
        "child", {{"Transform", TransformAt(0, 0)}, {"ProbeA", Labelled("child")}}, {grandchild});
    const std::string sibling = Record("sibling", {{"ProbeA", Labelled("sibling")}});
    world.LoadObjects(Record("root",
                             {{"ProbeB", Labelled("root B")},
                              {"Transform", TransformAt(0, 0)},
                              {"Render", "{}"},
                              {"ProbeA", Labelled("root A")}},
                             {child, sibling}));
    ProbeLog().clear();
    return world.Find("root");
  }

  World world;
};

TEST_F(GameObjTest, ANewObjectIsAnActiveLevelObjectWithoutRelations) {
  const GameObj object;
  EXPECT_FALSE(object.movesWhilePaused);
  EXPECT_EQ(object.parent, nullptr);
  EXPECT_THAT(object.children, IsEmpty());
  EXPECT_FALSE(object.isArchetype);
  EXPECT_EQ(object.id, 0u);
  EXPECT_EQ(object.name, "");
  EXPECT_TRUE(object.active);
  EXPECT_THAT(object.components, IsEmpty());
}

static_assert(!std::is_polymorphic_v<GameObj>);

// Components

TEST_F(GameObjTest, AddComponentListsTheTypeAndMakesTheComponent) {
  GameObj* object = Family();
  EXPECT_FALSE(object->HasComponent<CountedData>());
  object->AddComponent<CountedData>();
  EXPECT_TRUE(object->HasComponent<CountedData>());
  EXPECT_EQ(*object->components.back(), typeid(CountedData));
  EXPECT_EQ(object->GetComponent<CountedData>()->m_owner, object);
}

TEST_F(GameObjTest, AnArchetypesComponentGoesToTheSecondHalf) {
  GameObj object;
  object.isArchetype = true;
  object.id = 1000;
  object.AddComponent<CountedData>();
  ComponentManager<CountedData>& table = ComponentTable<CountedData>();
  EXPECT_EQ(table.GetArchetype(1000), object.GetComponent<CountedData>());
  EXPECT_THROW(table.Get(1000), std::out_of_range);
  table.RemoveArchetype(1000u);
}

TEST_F(GameObjTest, AComponentThatTheObjectLacksIsNotThereAndThrows) {
  GameObj* object = Family();
  EXPECT_FALSE(object->HasComponent<CountedData>());
  EXPECT_THAT([&] { object->GetComponent<CountedData>(); },
              ThrowsMessage<std::out_of_range>(StrEq("invalid map<K, T> key")));
}

/// Known to no table.
class Unregistered : public GameComponentBase {
 public:
  using GameComponentBase::GameComponentBase;
  void Unserialize(const Value&) override {}
  void Serialize(Writer&) override {}
};

TEST_F(GameObjTest, ATypeThatWasNeverRegisteredThrows) {
  GameObj* object = Family();
  const auto message = StrEq("invalid unordered_map<K, T> key");
  EXPECT_THAT([&] { object->GetComponent<Unregistered>(); },
              ThrowsMessage<std::out_of_range>(message));
  EXPECT_THAT([&] { object->AddComponent<Unregistered>(); },
              ThrowsMessage<std::out_of_range>(message));
  EXPECT_THAT([&] { g_game_obj_factory->Table(&typeid(Unregistered)); },
              ThrowsMessage<std::out_of_range>(message));
  EXPECT_FALSE(object->HasComponent<Unregistered>());
}

TEST_F(GameObjTest, AddingToANullObjectIsReportedWithTheDefinitionsPlace) {
  const std::string report = ReportOf([] { AddComponent<CountedData>(nullptr); });
  EXPECT_THAT(report, HasSubstr("] Game Object cannot be null ptr (gameobj.h, Line "));
}

using GameObjDeathTest = GameObjTest;

TEST_F(GameObjDeathTest, AddingToANullObjectEndsTheProgram) {
  EXPECT_REPORT_ENDS_PROGRAM(AddComponent<CountedData>(nullptr),
                             "Game Object cannot be null ptr \\(gameobj\\.h, Line [0-9]+\\)");
}

// Activity

TEST_F(GameObjTest, SwitchingOffReachesEveryDescendantAndComponent) {
  GameObj* root = Family();
  root->SetActive(false);
  for (const char* name : {"root", "child", "grandchild", "sibling"}) {
    GameObj* object = world.Find(name);
    EXPECT_FALSE(object->active) << name;
    EXPECT_FALSE(object->GetComponent<ProbeA>()->m_active) << name;
  }
  EXPECT_FALSE(root->GetComponent<ProbeB>()->m_active);
  EXPECT_FALSE(root->GetComponent<Transform>()->m_active);
  EXPECT_FALSE(root->GetComponent<Render>()->m_active);
  EXPECT_FALSE(root->GetComponent<Render>()->m_visible);
}

TEST_F(GameObjTest, SwitchingOnMakesVisibleAgain) {
  GameObj* root = Family();
  root->SetActive(false);
  root->SetActive(true);
  EXPECT_TRUE(root->GetComponent<Render>()->m_visible);
  EXPECT_TRUE(world.Find("grandchild")->GetComponent<ProbeA>()->m_active);
  EXPECT_TRUE(world.Find("grandchild")->active);
}

TEST_F(GameObjTest, SwitchingAChildLeavesItsParent) {
  Family();
  world.Find("child")->SetActive(false);
  EXPECT_TRUE(world.Find("root")->active);
  EXPECT_TRUE(world.Find("sibling")->active);
  EXPECT_FALSE(world.Find("grandchild")->active);
}

// Position

TEST_F(GameObjTest, SetPositionWritesLocalAndPreviousPosition) {
  GameObj* root = Family();
  Transform& transform = *root->GetComponent<Transform>();
  const Vector3D world_pos = transform.m_world_pos;
  root->SetPosition(Vector3D(1, 2, 3));
  EXPECT_EQ(transform.m_local_pos, Vector3D(1, 2, 3));
  EXPECT_EQ(transform.m_prev_pos, Vector3D(1, 2, 3));
  EXPECT_EQ(transform.m_world_pos, world_pos);
}

TEST_F(GameObjTest, SetPositionWithoutATransformDoesNothing) {
  Family();
  world.Find("sibling")->SetPosition(Vector3D(1, 2, 3));
  EXPECT_EQ(world.Find("root")->GetComponent<Transform>()->m_local_pos, Vector3D(0, 0, 1));
}

TEST_F(GameObjTest, GetNameIsACopy) {
  GameObj* root = Family();
  std::string name = root->GetName();
  name += " changed";
  EXPECT_EQ(root->name, "root");
}

// Messages

TEST_F(GameObjTest, AMessageGoesToTheLogicComponentsInListOrder) {
  GameObj* root = Family();
  KeyUp message(65);
  root->SendToComponents(&message);
  EXPECT_THAT(ProbeLog(), ElementsAre("root B OnMessage 6", "root A OnMessage 6"));
}

TEST_F(GameObjTest, ARecursiveMessageGoesDepthFirst) {
  GameObj* root = Family();
  KeyUp message(65);
  root->SendToComponentsRecursive(&message);
  EXPECT_THAT(ProbeLog(),
              ElementsAre("root B OnMessage 6", "root A OnMessage 6", "child OnMessage 6",
                          "grandchild OnMessage 6", "sibling OnMessage 6"));
}

TEST_F(GameObjTest, AMessageReachesWhatIsSwitchedOff) {
  GameObj* root = Family();
  root->SetActive(false);
  KeyUp message(65);
  root->SendToComponentsRecursive(&message);
  EXPECT_THAT(ProbeLog(),
              ElementsAre("root B OnMessage 6", "root A OnMessage 6", "child OnMessage 6",
                          "grandchild OnMessage 6", "sibling OnMessage 6"));
}

TEST_F(GameObjTest, AMessageReachesTheChildrenOfAnObjectThatAloneIsOff) {
  GameObj* root = Family();
  root->active = false;
  KeyUp message(65);
  root->SendToComponentsRecursive(&message);
  EXPECT_THAT(ProbeLog(), ::testing::SizeIs(5));
}

TEST_F(GameObjTest, AQueryWithoutAControllerComesBackAs0) {
  GameObj* root = Family();
  CurrGC query;
  for (GameObj* object = world.Find("grandchild"); object != nullptr; object = object->parent) {
    object->SendToComponents(&query);
  }
  root->SendToComponentsRecursive(&query);
  EXPECT_EQ(query.objectId, 0u) << "which is the root's id as well";
  EXPECT_EQ(root->id, 0u);
}

TEST_F(GameObjTest, AQueryIsAnsweredByTheComponentThatKnows) {
  Family();
  GameObj* child = world.Find("child");
  child->GetComponent<ProbeA>()->on_message = [child](Message* message) {
    if (message->id == kCurrMC) dynamic_cast<CurrMC&>(*message).objectId = child->id;
  };
  CurrMC query;
  world.Find("root")->SendToComponentsRecursive(&query);
  EXPECT_EQ(query.objectId, child->id);
}

// Collisions

TEST_F(GameObjTest, ContactsAreDispatchedToTheLogicComponentsInListOrder) {
  GameObj* root = Family();
  ContactInfo contact;
  root->DispatchCollisionEnter(&contact);
  root->DispatchCollisionStay(&contact);
  root->DispatchCollisionExit(&contact);
  EXPECT_THAT(ProbeLog(), ElementsAre("root B OnCollisionEnter", "root A OnCollisionEnter",
                                      "root B OnCollisionStay", "root A OnCollisionStay",
                                      "root B OnCollisionExit", "root A OnCollisionExit"));
}

TEST_F(GameObjTest, ContactsReachInactiveComponents) {
  GameObj* root = Family();
  root->SetActive(false);
  ContactInfo contact;
  root->DispatchCollisionEnter(&contact);
  EXPECT_THAT(ProbeLog(), ElementsAre("root B OnCollisionEnter", "root A OnCollisionEnter"));
}

}  // namespace
}  // namespace ZOVEngine
