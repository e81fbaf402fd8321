#include "objects/gameobjfactory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "core/base/profile.h"
#include "core/engine.h"
#include "core/messages.h"
#include "jsonunserializer.h"
#include "physicssystem.h"
#include "render/components/render.h"
#include "support/probe.h"
#include "support/reports.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::CountedData;
using carapace_test::OutputOf;
using carapace_test::ProbeA;
using carapace_test::Record;
using carapace_test::ReportOf;
using carapace_test::TransformAt;
using carapace_test::World;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StrEq;
using ::testing::ThrowsMessage;

class Unregistered final : public EmptyLogicComponent {
  RTTR_ENABLE(EmptyLogicComponent)

 public:
  using EmptyLogicComponent::EmptyLogicComponent;
};

/// Writes its end down: the name of its object, and of the object's parent if there is one.
class Witness final : public GameComponentBase {
  RTTR_ENABLE(GameComponentBase)

 public:
  using GameComponentBase::GameComponentBase;
  Witness(const Witness&) = default;
  Witness& operator=(const Witness&) = delete;
  ~Witness() override {
    std::string end = m_owner->name;
    if (m_owner->parent != nullptr) end += " of " + m_owner->parent->name;
    ends.push_back(end);
  }

  void Unserialize(const Value&) override {}
  void Serialize(Writer&) override {}

  inline static std::vector<std::string> ends;
};

class GameObjFactoryTest : public ::testing::Test {
 protected:
  GameObjFactoryTest() {
    carapace_test::RegisterProbes();
    CountedData::alive = 0;
  }

  static std::string Number(int number) { return "{\"number\": " + std::to_string(number) + "}"; }

  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const GameObj* object : factory.m_objects) names.push_back(object->name);
    return names;
  }

  static std::vector<std::string> NamesOf(const std::vector<GameObj*>& objects) {
    std::vector<std::string> names;
    for (const GameObj* object : objects) names.push_back(object->name);
    return names;
  }

  /// Reads an archetype from the text of its record.
  GameObj* ReadArchetype(const std::string& text) {
    JsonDocument document;
    document.ParseText(text, "archetype.json");
    return factory.ReadArchetype(document.Root());
  }

  GameObj* ReadObject(const std::string& text) {
    JsonDocument document;
    document.ParseText(text, "object.json");
    return factory.ReadObject(document.Root());
  }

  /// Every object stands at its id, and its data under that id carries the number of its name.
  void ExpectConsistent() const {
    for (std::size_t i = 0; i < factory.m_objects.size(); ++i) {
      GameObj* object = factory.m_objects[i];
      ASSERT_EQ(object->id, i) << object->name;
      ASSERT_EQ(object->GetComponent<CountedData>()->number, std::stoi(object->name));
      ASSERT_EQ(object->GetComponent<CountedData>()->m_owner, object);
      for (const GameObj* child : object->children) ASSERT_EQ(child->parent, object);
    }
    ASSERT_EQ(CountedData::alive, static_cast<int>(factory.m_objects.size()));
  }

  /// An object whose name is the number of its data.
  static std::string Numbered(int number, const std::vector<std::string>& children = {}) {
    return Record(std::to_string(number), {{"CountedData", Number(number)}}, children);
  }

  World world;
  GameObjFactory& factory = *g_game_obj_factory;
};

using GameObjFactoryDeathTest = GameObjFactoryTest;

// Registration

TEST_F(GameObjFactoryTest, AListIsRegisteredUnderTheNamesOfItsClasses) {
  EXPECT_EQ(factory.TypeName(&typeid(Transform)), "Transform");
  EXPECT_EQ(factory.TypeName(&typeid(CountedData)), "CountedData");
  EXPECT_THROW(factory.TypeName(&typeid(Unregistered)), std::out_of_range);
  factory.RegisterComponents(TypeList<Unregistered, CountedData>());
  EXPECT_EQ(factory.TypeName(&typeid(Unregistered)), "Unregistered");
  world.LoadObjects(Record("thing", {{"Unregistered", "{}"}}));
  EXPECT_TRUE(world.Find("thing")->HasComponent<Unregistered>());
}

TEST_F(GameObjFactoryTest, RegisteringATypeAgainReplacesItsTable) {
  const auto before = FetchTable<CountedData>();
  factory.RegisterComponent<CountedData>("CountedData");
  EXPECT_NE(FetchTable<CountedData>(), before);
  EXPECT_EQ(&ComponentTable<CountedData>(), FetchTable<CountedData>().get());
}

// Update and messages

TEST_F(GameObjFactoryTest, UpdateRecordsTheNumberOfObjects) {
  world.LoadObjects(Numbered(1, {Numbered(2)}));
  factory.Update(kStep);
  EXPECT_EQ(ProfileTable()["GameObject"].value, 2.0f);
  EXPECT_FALSE(ProfileTable()["GameObject"].isSystemTime);
}

TEST_F(GameObjFactoryTest, InAPauseTheCountGoesStale) {
  factory.Update(kStep);
  world.LoadObjects(Numbered(1));
  factory.PausedUpdate(kStep);
  EXPECT_EQ(ProfileTable()["GameObject"].value, 0.0f);
}

TEST_F(GameObjFactoryTest, AnOrderForNothingMakesNothing) {
  ObjectOrder order;
  order.entries.push_back({0, 0});
  world.Send(order);
  EXPECT_THAT(factory.m_objects, IsEmpty());
}

TEST_F(GameObjFactoryTest, OtherMessagesAreIgnored) {
  world.Send(KeyUp(65));
  EXPECT_THAT(factory.m_objects, IsEmpty());
}

TEST_F(GameObjFactoryDeathTest, AnOrderFailsInTheTableLookup) {
  // The one creator adds a component that has no table; an order ends the program.
  EXPECT_EXIT(
      {
        ObjectOrder order;
        order.entries.push_back({0, 1});
        try {
          g_engine->Broadcast(&order);
        } catch (const std::out_of_range& error) {
          std::cerr << error.what() << std::endl;
          std::_Exit(3);
        }
        std::_Exit(0);
      },
      ::testing::ExitedWithCode(3), "invalid unordered_map<K, T> key");
}

TEST_F(GameObjFactoryTest, AnUnknownCreatorIsReported) {
  EXPECT_THAT(ReportOf([&] { factory.Create(7); }), HasSubstr("No creator of type 7"));
}

// Archetypes

TEST_F(GameObjFactoryTest, AnArchetypeIsATreeApartFromTheObjects) {
  GameObj* root = ReadArchetype(Numbered(1, {Numbered(2), Numbered(3)}));
  EXPECT_TRUE(root->isArchetype);
  EXPECT_EQ(factory.m_archetypeObjects[root->id], root);
  EXPECT_THAT(NamesOf(root->children), ElementsAre("2", "3"));
  EXPECT_EQ(root->children[1]->parent, root);
  EXPECT_EQ(root->children[0]->id, root->id + 1);
  EXPECT_TRUE(root->children[0]->isArchetype);
  EXPECT_EQ(root->children[1]->GetComponent<CountedData>()->number, 3);
  EXPECT_THAT(factory.m_objects, IsEmpty());
  EXPECT_THAT(FetchTable<CountedData>()->Components(), IsEmpty());
  EXPECT_EQ(FetchTable<CountedData>()->Archetypes().size(), 3u);
}

TEST_F(GameObjFactoryTest, AnArchetypeIsReadWithoutActivity) {
  const std::string text = R"({"name": "a", "components": [], "Childs": []})";
  GameObj* archetype = nullptr;
  EXPECT_EQ(OutputOf([&] { archetype = ReadArchetype(text); }), "");
  EXPECT_TRUE(archetype->active);
}

TEST_F(GameObjFactoryTest, AnArchetypeSkipsUnknownComponentsSilently) {
  const std::string text = R"({"name": "a", "components": ["Antenna", "CountedData", "Wing"],
      "CountedData": {"number": 4}, "Antenna": {"m_length": 3}, "Childs": []})";
  GameObj* archetype = nullptr;
  EXPECT_EQ(OutputOf([&] { archetype = ReadArchetype(text); }), "");
  EXPECT_EQ(archetype->components.size(), 1u);
  EXPECT_EQ(archetype->GetComponent<CountedData>()->number, 4);
}

TEST_F(GameObjFactoryTest, AnArchetypesNameThatIsTakenIsNotLoadedAgain) {
  world.Directory().Write("one.json", Numbered(1));
  world.Directory().Write("two.json", Numbered(2));
  factory.LoadArchetype("bug", "one.json");
  const std::size_t count = factory.m_archetypeObjects.size();
  factory.LoadArchetype("bug", "two.json");
  factory.LoadArchetype("bug", "no such file");
  EXPECT_EQ(factory.m_archetypeObjects.size(), count);
  EXPECT_EQ(factory.Instantiate("bug", true)->name, "1");
}

TEST_F(GameObjFactoryTest, AnAbsentArchetypeFileIsReported) {
  EXPECT_THAT(ReportOf([&] { factory.LoadArchetype("bug", "no/bug.json"); }),
              HasSubstr("no/bug.jsonfile not found"));
}

TEST_F(GameObjFactoryTest, AnUnknownArchetypeIsReportedByItsName) {
  EXPECT_THAT(ReportOf([&] { factory.Instantiate("moth", true); }), HasSubstr("\"moth\""));
  EXPECT_FALSE(factory.HasArchetype("moth"));
}

// Objects

TEST_F(GameObjFactoryTest, ObjectsGetTheirIdsParentsBeforeChildren) {
  world.LoadObjects(Numbered(1, {Numbered(2, {Numbered(3)}), Numbered(4)}) + "," + Numbered(5));
  EXPECT_THAT(Names(), ElementsAre("1", "2", "3", "4", "5"));
  ExpectConsistent();
  EXPECT_EQ(world.Find("3")->parent, world.Find("2"));
  EXPECT_EQ(world.Find("5")->parent, nullptr);
  EXPECT_THAT(NamesOf(world.Find("1")->children), ElementsAre("2", "4"));
  EXPECT_FALSE(world.Find("1")->isArchetype);
}

TEST_F(GameObjFactoryTest, AnObjectReadInactiveMarksTheObjectOnly) {
  world.LoadObjects(Record("off", {{"Transform", TransformAt(0, 0)}, {"Render", "{}"}},
                           {Record("child", {{"ProbeA", "{}"}})}, false));
  GameObj* object = world.Find("off");
  EXPECT_FALSE(object->active);
  EXPECT_TRUE(object->GetComponent<Transform>()->m_active);
  EXPECT_TRUE(object->GetComponent<Render>()->m_active);
  EXPECT_TRUE(object->GetComponent<Render>()->m_visible);
  EXPECT_TRUE(world.Find("child")->active);
}

TEST_F(GameObjFactoryTest, ActiveIsTrueForJsonTrueOnly) {
  for (const char* value : {"1", "\"true\"", "null", "false", "[]"}) {
    const GameObj* object = ReadObject(std::string(R"({"name": "x", "active": )") + value +
                                       R"(, "components": [], "Childs": []})");
    EXPECT_FALSE(object->active) << value;
  }
  EXPECT_TRUE(ReadObject(R"({"active": true, "components": [], "Childs": []})")->active);
}

TEST_F(GameObjFactoryTest, MissingKeysOfARecordArePrinted) {
  GameObj* object = nullptr;
  EXPECT_EQ(OutputOf([&] { object = ReadObject(R"({"Childs": []})"); }),
            "Cant find Key: name\nCant find Key: active\nCant find Key: components\n");
  EXPECT_EQ(object->name, "");
  EXPECT_FALSE(object->active);
  EXPECT_THAT(object->components, IsEmpty());
}

TEST_F(GameObjFactoryTest, ComponentsKeepTheOrderOfTheList) {
  const GameObj* object = ReadObject(
      R"({"name": "x", "active": true, "ProbeA": {}, "Transform": {}, "CountedData": {},
          "components": ["CountedData", "Transform", "ProbeA"], "Childs": []})");
  ASSERT_EQ(object->components.size(), 3u);
  EXPECT_EQ(*object->components[0], typeid(CountedData));
  EXPECT_EQ(*object->components[1], typeid(Transform));
  EXPECT_EQ(*object->components[2], typeid(ProbeA));
}

TEST_F(GameObjFactoryTest, AKeyThatIsNotListedMakesNoComponent) {
  const GameObj* object = ReadObject(
      R"({"name": "x", "active": true, "CountedData": {"number": 1}, "components": [],
          "Childs": []})");
  EXPECT_FALSE(object->HasComponent<CountedData>());
}

TEST_F(GameObjFactoryTest, UnknownKeysAreReadWithoutComplaint) {
  EXPECT_EQ(OutputOf([&] {
              ReadObject(R"({"name": "x", "future": {"a": [1]}, "active": true,
                  "components": ["CountedData"], "CountedData": {"number": 1, "wings": 2},
                  "Childs": []})");
            }),
            "");
}

// Object files

TEST_F(GameObjFactoryTest, LoadingAddsToTheObjectsThatAreThere) {
  world.LoadObjects(Numbered(1));
  world.LoadObjects(Numbered(2));
  EXPECT_THAT(Names(), ElementsAre("1", "2"));
  ExpectConsistent();
}

TEST_F(GameObjFactoryTest, AnAbsentObjectFileIsReported) {
  EXPECT_THAT(ReportOf([&] { factory.LoadObjects("no/units.json"); }),
              HasSubstr("no/units.jsonfile not found"));
}

TEST_F(GameObjFactoryDeathTest, AnAbsentObjectFileEndsTheProgram) {
  EXPECT_REPORT_ENDS_PROGRAM(factory.LoadObjects("no/units.json"), "no/units\\.jsonfile not found");
}

TEST_F(GameObjFactoryTest, AFolderIsNoObjectFile) {
  EXPECT_THAT(ReportOf([&] { factory.LoadObjects("Resources"); }),
              HasSubstr("Resourcesfile not found"));
}

// Clones

TEST_F(GameObjFactoryTest, AnInstanceIsALevelTreeWithoutAParent) {
  GameObj* archetype = ReadArchetype(Numbered(1, {Numbered(2), Numbered(3)}));
  const int before = CountedData::alive;
  GameObj* clone = factory.Clone(archetype, true);
  EXPECT_THAT(Names(), ElementsAre("1", "2", "3"));
  EXPECT_EQ(clone->id, 0u);
  EXPECT_FALSE(clone->isArchetype);
  EXPECT_FALSE(clone->children[0]->isArchetype);
  EXPECT_EQ(clone->parent, nullptr);
  ASSERT_EQ(clone->children.size(), 2u);
  EXPECT_EQ(clone->children[0]->parent, clone);
  EXPECT_EQ(clone->children[1]->parent, clone);
  EXPECT_EQ(clone->children[1]->id, 2u);
  EXPECT_EQ(CountedData::alive, before + 3);
  EXPECT_NE(clone->children[0]->GetComponent<CountedData>(),
            archetype->children[0]->GetComponent<CountedData>());
}

TEST_F(GameObjFactoryTest, AnInstanceWithoutChildrenIsOneObject) {
  GameObj* clone = factory.Clone(ReadArchetype(Numbered(1)), true);
  EXPECT_THAT(factory.m_objects, ElementsAre(clone));
  EXPECT_THAT(clone->children, IsEmpty());
}

TEST_F(GameObjFactoryTest, ACloneOfALevelObjectCopiesItAsItIsNow) {
  world.LoadObjects(Numbered(1, {Numbered(2, {Numbered(3)})}));
  GameObj* source = world.Find("2");
  source->GetComponent<CountedData>()->number = 99;
  source->movesWhilePaused = true;
  GameObj* clone = factory.Clone(source, true);
  EXPECT_EQ(clone->parent, nullptr) << "the source has one";
  EXPECT_EQ(clone->id, 3u);
  EXPECT_TRUE(clone->movesWhilePaused);
  EXPECT_EQ(clone->GetComponent<CountedData>()->number, 99);
  EXPECT_EQ(clone->GetComponent<CountedData>()->m_owner, clone);
  ASSERT_EQ(clone->children.size(), 1u);
  EXPECT_NE(clone->children[0], source->children[0]);
  EXPECT_EQ(source->children[0]->parent, source);
  EXPECT_THAT(NamesOf(world.Find("1")->children), ElementsAre("2"));
}

TEST_F(GameObjFactoryTest, ClonesAreAsActiveAsTheArgumentSays) {
  world.Directory().Write("bug.json",
                          Record("bug", {{"Transform", TransformAt(0, 0)}, {"Render", "{}"}},
                                 {Record("leg", {{"ProbeA", "{}"}})}));
  factory.LoadArchetype("bug", "bug.json");
  for (const bool active : {false, true}) {
    GameObj* clone = factory.Instantiate("bug", active);
    EXPECT_EQ(clone->active, active);
    EXPECT_EQ(clone->GetComponent<Transform>()->m_active, active);
    EXPECT_EQ(clone->GetComponent<Render>()->m_visible, active);
    EXPECT_EQ(clone->children[0]->active, active);
    EXPECT_EQ(clone->children[0]->GetComponent<ProbeA>()->m_active, active);
  }
  EXPECT_TRUE(factory.m_archetypeObjects.back()->active) << "the archetype stays as it is";
}

TEST_F(GameObjFactoryTest, TheChildrenOfACloneFollowTheArgumentAndNotTheirSource) {
  world.LoadObjects(Numbered(1, {Numbered(2), Numbered(3)}));
  GameObj* source = world.Find("1");
  source->children[0]->SetActive(false);
  const GameObj* on = factory.Clone(source, true);
  EXPECT_TRUE(on->children[0]->active);
  EXPECT_TRUE(on->children[0]->GetComponent<CountedData>()->m_active);
  const GameObj* off = factory.Clone(source, false);
  EXPECT_FALSE(off->children[1]->active);
  EXPECT_FALSE(off->children[1]->GetComponent<CountedData>()->m_active);
}

TEST_F(GameObjFactoryTest, ACloneOfAnArchetypeIsNotInitialised) {
  GameObj* archetype = ReadArchetype(Record("x", {{"ProbeA", "{}"}}));
  EXPECT_FALSE(factory.Clone(archetype, true)->GetComponent<ProbeA>()->m_init);
}

TEST_F(GameObjFactoryTest, ManyInstancesOfOneArchetypeStandApart) {
  GameObj* archetype = ReadArchetype(Numbered(1, {Numbered(2)}));
  for (int i = 0; i < 100; ++i) factory.Clone(archetype, i % 2 == 0);
  EXPECT_EQ(factory.m_objects.size(), 200u);
  for (std::size_t i = 0; i < 200; i += 2) {
    EXPECT_EQ(factory.m_objects[i]->children[0], factory.m_objects[i + 1]);
  }
}

// Destroy

TEST_F(GameObjFactoryTest, DestroyingTheHighestIdMovesNothing) {
  world.LoadObjects(Numbered(1) + "," + Numbered(2) + "," + Numbered(3));
  factory.Destroy(2);
  EXPECT_THAT(Names(), ElementsAre("1", "2"));
  ExpectConsistent();
}

TEST_F(GameObjFactoryTest, TheLastObjectTakesTheFreedId) {
  world.LoadObjects(Numbered(1) + "," + Numbered(2) + "," + Numbered(3) + "," + Numbered(4));
  GameObj* last = world.Find("4");
  CountedData* data = last->GetComponent<CountedData>();
  factory.Destroy(1);
  EXPECT_THAT(Names(), ElementsAre("1", "4", "3"));
  EXPECT_EQ(last->id, 1u);
  EXPECT_EQ(FetchTable<CountedData>()->Get(1), data);
  EXPECT_THROW(FetchTable<CountedData>()->Get(3), std::out_of_range);
  ExpectConsistent();
}

TEST_F(GameObjFactoryTest, DestroyTakesTheChildOutOfItsParentKeepingTheOrder) {
  world.LoadObjects(Numbered(1, {Numbered(2), Numbered(3), Numbered(4)}));
  factory.Destroy(world.Find("3")->id);
  EXPECT_THAT(NamesOf(world.Find("1")->children), ElementsAre("2", "4"));
  ExpectConsistent();
}

TEST_F(GameObjFactoryTest, DestroyTakesAllDescendants) {
  world.LoadObjects(Numbered(1) + "," +
                    Numbered(2, {Numbered(3, {Numbered(4), Numbered(5)}), Numbered(6)}) + "," +
                    Numbered(7) + "," + Numbered(8));
  factory.Destroy(world.Find("2")->id);
  EXPECT_THAT(Names(), ::testing::UnorderedElementsAre("1", "7", "8"));
  ExpectConsistent();
}

TEST_F(GameObjFactoryTest, ChildrenAreDestroyedFirstToLastWithoutAParentAndBeforeTheirs) {
  factory.RegisterComponents(TypeList<Witness>());
  const auto witness = [](const std::string& name, const std::vector<std::string>& children = {}) {
    return Record(name, {{"Witness", "{}"}}, children);
  };
  world.LoadObjects(witness("root", {witness("a", {witness("b"), witness("c")}), witness("d")}));
  Witness::ends.clear();
  factory.Destroy(world.Find("root")->id);
  EXPECT_THAT(Witness::ends, ElementsAre("b", "c", "a", "d", "root"));
}

TEST_F(GameObjFactoryTest, AParentThatMovesWhileItsChildrenGoIsStillDestroyed) {
  // The parent stands last, so that it takes the ids of its own children.
  world.LoadObjects(Numbered(1) + "," + Numbered(2) + "," + Numbered(3));
  GameObj* parent = world.Find("3");
  for (const char* name : {"1", "2"}) {
    world.Find(name)->parent = parent;
    parent->children.push_back(world.Find(name));
  }
  factory.Destroy(parent->id);
  EXPECT_THAT(factory.m_objects, IsEmpty());
  EXPECT_EQ(CountedData::alive, 0);
}

TEST_F(GameObjFactoryTest, RandomDestroysKeepEverySurvivorReachable) {
  std::mt19937 random(17);
  for (int round = 0; round < 20; ++round) {
    int next = 0;
    for (int tree = 0; tree < 10; ++tree) {
      const int first = next;
      next += 4;
      world.LoadObjects(
          Numbered(first, {Numbered(first + 1, {Numbered(first + 2)}), Numbered(first + 3)}));
    }
    while (!factory.m_objects.empty()) {
      factory.Destroy(static_cast<std::uint32_t>(random() % factory.m_objects.size()));
      ExpectConsistent();
    }
  }
}

TEST_F(GameObjFactoryTest, DestroyOfAnUnknownIdThrows) {
  EXPECT_THROW(factory.Destroy(0), std::out_of_range);
}

// ClearObjects

TEST_F(GameObjFactoryTest, ClearingKeepsTheArchetypes) {
  world.Directory().Write("bug.json", Numbered(1, {Numbered(2)}));
  factory.LoadArchetype("bug", "bug.json");
  const std::size_t archetypes = factory.m_archetypeObjects.size();
  factory.Instantiate("bug", true);
  world.LoadObjects(Numbered(3));
  factory.ClearObjects();
  EXPECT_THAT(factory.m_objects, IsEmpty());
  EXPECT_THAT(FetchTable<CountedData>()->Components(), IsEmpty());
  EXPECT_EQ(CountedData::alive, 2);
  EXPECT_EQ(factory.m_archetypeObjects.size(), archetypes);
  EXPECT_EQ(factory.Instantiate("bug", true)->id, 0u);
}

TEST_F(GameObjFactoryTest, ClearingSkipsNullEntries) {
  world.LoadObjects(Numbered(1));
  factory.m_objects.push_back(nullptr);
  factory.ClearObjects();
  EXPECT_THAT(factory.m_objects, IsEmpty());
}

TEST_F(GameObjFactoryTest, ClearingNothingStillClearsTheContacts) {
  g_physics_system->current.push_back({});
  g_physics_system->previous.push_back({});
  factory.ClearObjects();
  EXPECT_THAT(g_physics_system->current, IsEmpty());
  EXPECT_THAT(g_physics_system->previous, IsEmpty());
}

TEST_F(GameObjFactoryTest, EachClearIsCounted) {
  const std::uint64_t before = factory.ClearCount();
  factory.ClearObjects();
  factory.ClearObjects();
  EXPECT_EQ(factory.ClearCount(), before + 2);
}

TEST_F(GameObjFactoryTest, TheTeardownDeletesObjectsAndArchetypes) {
  ReadArchetype(Numbered(1, {Numbered(2)}));
  world.LoadObjects(Numbered(3));
  EXPECT_EQ(CountedData::alive, 3);
  world.Shutdown();
  EXPECT_EQ(CountedData::alive, 0);
}

// Reports of records that no level may have

TEST_F(GameObjFactoryTest, AnUnknownComponentOfALevelIsReported) {
  EXPECT_THAT(ReportOf([&] {
                world.LoadObjects(Record("fly", {{"CountedData", "{}"}, {"Wing", "{}"}}));
              }),
              AllOf(HasSubstr("objects-of-the-test.json"), HasSubstr("\"fly\""),
                    HasSubstr("\"Wing\""), HasSubstr("invalid unordered_map<K, T> key")));
}

TEST_F(GameObjFactoryTest, AListedComponentWithoutItsKeyIsReported) {
  const std::string text =
      R"({"name": "fly", "active": true, "components": ["CountedData"], "Childs": []})";
  EXPECT_THAT(ReportOf([&] { ReadObject(text); }),
              AllOf(HasSubstr("\"fly\""), HasSubstr("\"CountedData\""), HasSubstr("missing")));
  EXPECT_THAT(ReportOf([&] { ReadArchetype(text); }),
              AllOf(HasSubstr("\"fly\""), HasSubstr("\"CountedData\""), HasSubstr("missing")));
}

TEST_F(GameObjFactoryTest, AMissingChildsKeyIsReported) {
  const std::string text = R"({"name": "fly", "active": true, "components": []})";
  EXPECT_THAT(ReportOf([&] { ReadObject(text); }),
              AllOf(HasSubstr("object.json"), HasSubstr("\"fly\""), HasSubstr("\"Childs\"")));
  EXPECT_THAT(ReportOf([&] { ReadArchetype(text); }),
              AllOf(HasSubstr("archetype.json"), HasSubstr("\"fly\""), HasSubstr("\"Childs\"")));
}

TEST_F(GameObjFactoryTest, AComponentListedTwiceIsReported) {
  const std::string text = R"({"name": "fly", "active": true,
      "components": ["CountedData", "CountedData"], "CountedData": {}, "Childs": []})";
  EXPECT_THAT(ReportOf([&] { ReadObject(text); }),
              AllOf(HasSubstr("\"fly\""), HasSubstr("\"CountedData\""), HasSubstr("twice")));
}

TEST_F(GameObjFactoryTest, AFaultInAChildNamesTheChild) {
  const std::string child = R"({"name": "leg", "active": true, "components": []})";
  EXPECT_THAT(ReportOf([&] { world.LoadObjects(Record("fly", {}, {child})); }),
              AllOf(HasSubstr("\"leg\""), HasSubstr("\"Childs\"")));
}

TEST_F(GameObjFactoryTest, AFaultAfterAChildNamesTheParent) {
  const std::string text = R"({"name": "fly", "active": true, "components": [], "Childs": [)" +
                           Record("leg", {}) + ", 5]}";
  EXPECT_THAT(ReportOf([&] { ReadObject(text); }), HasSubstr("\"Childs\""));
}

TEST_F(GameObjFactoryDeathTest, EveryFaultOfARecordEndsTheProgram) {
  const std::string unknown = Record("fly", {{"Wing", "{}"}});
  const std::string no_children = R"({"name": "fly", "active": true, "components": []})";
  const std::string no_key =
      R"({"name": "fly", "active": true, "components": ["Transform"], "Childs": []})";
  EXPECT_REPORT_ENDS_PROGRAM(world.LoadObjects(unknown), "objects-of-the-test\\.json.*fly.*Wing");
  EXPECT_REPORT_ENDS_PROGRAM(world.LoadObjects(no_children),
                             "objects-of-the-test\\.json.*fly.*Childs");
  EXPECT_REPORT_ENDS_PROGRAM(world.LoadObjects(no_key),
                             "objects-of-the-test\\.json.*fly.*Transform");
}

}  // namespace
}  // namespace ZOVEngine
