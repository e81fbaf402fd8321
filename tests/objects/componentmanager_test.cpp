#include "objects/componentmanager.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <list>
#include <random>
#include <set>

#include "support/probe.h"

namespace ZOVEngine {
namespace {

using carapace_test::CountedData;
using carapace_test::ProbeA;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StrEq;
using ::testing::ThrowsMessage;

const auto kMissing = StrEq("invalid map<K, T> key");

/// A table and objects that stand for themselves: no factory is needed.
class ComponentManagerTest : public ::testing::Test {
 protected:
  ComponentManagerTest() { CountedData::alive = 0; }

  GameObj* Object(std::uint32_t id, bool archetype = false) {
    GameObj& object = objects.emplace_back();
    object.id = id;
    object.isArchetype = archetype;
    return &object;
  }

  /// A component of the first half that carries its object's id as its number.
  CountedData* Add(std::uint32_t id) {
    CountedData* component = table->Add(Object(id));
    component->number = static_cast<int>(id);
    return component;
  }

  std::vector<int> Numbers() const {
    std::vector<int> numbers;
    for (const CountedData* component : table->Components()) numbers.push_back(component->number);
    return numbers;
  }

  void ExpectIndicesFit() const {
    for (std::size_t i = 0; i < table->Components().size(); ++i) {
      EXPECT_EQ(table->Components()[i]->m_index, i);
    }
  }

  std::list<GameObj> objects;
  std::unique_ptr<ComponentManager<CountedData>> table =
      std::make_unique<ComponentManager<CountedData>>();
};

TEST_F(ComponentManagerTest, AddAppendsAndTellsTheComponentItsPlace) {
  const CountedData* first = Add(7);
  const CountedData* second = Add(3);
  EXPECT_THAT(table->Components(), ElementsAre(first, second));
  EXPECT_EQ(first->m_index, 0u);
  EXPECT_EQ(second->m_index, 1u);
  EXPECT_EQ(first->m_owner->id, 7u);
  EXPECT_TRUE(first->m_active);
  EXPECT_EQ(table->Get(7), first);
  EXPECT_EQ(table->Get(second->m_owner), second);
}

TEST_F(ComponentManagerTest, GetOfAnAbsentIdThrows) {
  Add(1);
  EXPECT_THAT([&] { table->Get(2); }, ThrowsMessage<std::out_of_range>(kMissing));
  EXPECT_THAT([&] { table->Get(Object(9)); }, ThrowsMessage<std::out_of_range>(kMissing));
}

TEST_F(ComponentManagerTest, RemovingFromTheMiddleMovesTheLastIntoTheHole) {
  for (const std::uint32_t id : {10u, 11u, 12u, 13u}) Add(id);
  CountedData* last = table->Get(13);
  table->Remove(11);
  EXPECT_THAT(Numbers(), ElementsAre(10, 13, 12));
  EXPECT_EQ(last->m_index, 1u);
  EXPECT_EQ(table->Get(13), last);
  EXPECT_THROW(table->Get(11), std::out_of_range);
  EXPECT_EQ(CountedData::alive, 3);
}

TEST_F(ComponentManagerTest, RemovingTheLastClosesTheArray) {
  for (const std::uint32_t id : {10u, 11u}) Add(id);
  table->Remove(11);
  EXPECT_THAT(Numbers(), ElementsAre(10));
  table->Remove(10);
  EXPECT_THAT(Numbers(), IsEmpty());
  EXPECT_EQ(CountedData::alive, 0);
}

TEST_F(ComponentManagerTest, RemoveOfAnAbsentIdThrowsAndChangesNothing) {
  Add(1);
  EXPECT_THAT([&] { table->Remove(2u); }, ThrowsMessage<std::out_of_range>(kMissing));
  EXPECT_THAT([&] { table->RemoveArchetype(1u); }, ThrowsMessage<std::out_of_range>(kMissing));
  EXPECT_THAT(Numbers(), ElementsAre(1));
}

TEST_F(ComponentManagerTest, RemoveOfAnObjectPicksTheHalf) {
  GameObj* archetype = Object(1, true);
  table->AddArchetype(archetype);
  Add(1);
  table->Remove(archetype);
  EXPECT_THAT(table->Archetypes(), IsEmpty());
  EXPECT_THAT(Numbers(), ElementsAre(1));
  table->Remove(Object(1));
  EXPECT_THAT(Numbers(), IsEmpty());
}

TEST_F(ComponentManagerTest, TheHalvesDoNotSeeEachOther) {
  CountedData* archetype = table->AddArchetype(Object(5, true));
  EXPECT_THROW(table->Get(5), std::out_of_range);
  CountedData* level = Add(5);
  EXPECT_EQ(table->Get(5), level) << "the level object that happens to have the id";
  EXPECT_EQ(table->GetArchetype(5), archetype);
  EXPECT_EQ(table->GetArchetype(archetype->m_owner), archetype);
  EXPECT_EQ(archetype->m_index, 0u);
  EXPECT_THAT([&] { table->GetArchetype(6); }, ThrowsMessage<std::out_of_range>(kMissing));
}

TEST_F(ComponentManagerTest, RemoveArchetypeKeepsTheSecondHalfDense) {
  for (const std::uint32_t id : {0u, 1u, 2u}) table->AddArchetype(Object(id, true));
  CountedData* last = table->GetArchetype(2);
  table->RemoveArchetype(0u);
  EXPECT_EQ(last->m_index, 0u);
  EXPECT_EQ(table->Archetypes().size(), 2u);
  table->RemoveArchetype(last->m_owner);
  EXPECT_EQ(table->Archetypes().size(), 1u);
  EXPECT_EQ(table->GetArchetype(1)->m_index, 0u);
}

TEST_F(ComponentManagerTest, ClearEmptiesTheFirstHalfOnly) {
  Add(1);
  Add(2);
  table->AddArchetype(Object(1, true));
  table->Clear();
  EXPECT_THAT(Numbers(), IsEmpty());
  EXPECT_THROW(table->Get(1), std::out_of_range);
  EXPECT_EQ(CountedData::alive, 1);
  EXPECT_NE(table->GetArchetype(1), nullptr);
}

TEST_F(ComponentManagerTest, TheTableDeletesBothHalves) {
  Add(1);
  table->AddArchetype(Object(1, true));
  EXPECT_EQ(CountedData::alive, 2);
  table.reset();
  EXPECT_EQ(CountedData::alive, 0);
}

TEST_F(ComponentManagerTest, SetActiveIndexesTheDenseArrayByTheObjectsId) {
  Add(1);
  Add(0);
  table->SetActive(Object(1), false);
  EXPECT_TRUE(table->Get(1)->m_active) << "it stands at index 0";
  EXPECT_FALSE(table->Get(0u)->m_active) << "it stands at index 1";
  EXPECT_THROW(table->SetActive(Object(2), false), std::out_of_range);
}

TEST_F(ComponentManagerTest, ReKeyingLeavesArrayAndIndexAlone) {
  for (const std::uint32_t id : {10u, 11u, 12u}) Add(id);
  CountedData* moved = table->Get(12);
  table->ChangeId(12, 4);
  EXPECT_EQ(table->Get(4), moved);
  EXPECT_THROW(table->Get(12), std::out_of_range);
  EXPECT_EQ(moved->m_index, 2u);
  EXPECT_THAT(Numbers(), ElementsAre(10, 11, 12));
}

TEST_F(ComponentManagerTest, ReKeyingAMissingIdInsertsNothing) {
  Add(1);
  table->ChangeId(9, 2);
  EXPECT_THROW(table->Get(2), std::out_of_range);
  EXPECT_THROW(table->Get(9), std::out_of_range);
}

TEST_F(ComponentManagerTest, ReKeyingAnArchetypeLeavesTheFirstHalfAlone) {
  Add(1);
  CountedData* archetype = table->AddArchetype(Object(1, true));
  table->ChangeArchetypeId(1, 8);
  EXPECT_EQ(table->GetArchetype(8), archetype);
  EXPECT_THROW(table->GetArchetype(1), std::out_of_range);
  EXPECT_NE(table->Get(1), nullptr);
}

TEST_F(ComponentManagerTest, ACloneOfAnArchetypeGoesToTheFirstHalf) {
  GameObj* archetype = Object(0, true);
  table->AddArchetype(archetype)->number = 77;
  Add(0);
  GameObj* to = Object(1);
  table->CloneFromArchetype(to, archetype);
  const CountedData* clone = table->Get(1);
  EXPECT_EQ(clone->number, 77);
  EXPECT_EQ(clone->m_owner, to);
  EXPECT_EQ(clone->m_index, 1u);
  EXPECT_EQ(table->Archetypes().size(), 1u);
}

TEST_F(ComponentManagerTest, ACloneOfALevelObjectCopiesEveryField) {
  ComponentManager<ProbeA> probes;
  GameObj* from = Object(0);
  ProbeA* source = probes.Add(from);
  source->label = "source";
  source->m_init = true;
  source->m_active = false;
  GameObj* to = Object(5);
  probes.CloneFromObject(to, from);
  const ProbeA* clone = probes.Get(5);
  EXPECT_NE(clone, source);
  EXPECT_EQ(clone->label, "source");
  EXPECT_TRUE(clone->m_init);
  EXPECT_FALSE(clone->m_active);
  EXPECT_EQ(clone->m_owner, to);
  EXPECT_EQ(clone->m_index, 1u);
  EXPECT_EQ(source->m_owner, from);
}

TEST_F(ComponentManagerTest, CloningFromAnAbsentComponentThrows) {
  EXPECT_THROW(table->CloneFromObject(Object(1), Object(0)), std::out_of_range);
  EXPECT_THROW(table->CloneFromArchetype(Object(1), Object(0, true)), std::out_of_range);
  EXPECT_THAT(Numbers(), IsEmpty());
}

TEST_F(ComponentManagerTest, StaysDenseThroughRandomRemovals) {
  std::mt19937 random(3);
  std::set<std::uint32_t> present;
  for (int round = 0; round < 5000; ++round) {
    const auto id = static_cast<std::uint32_t>(random() % 40);
    if (present.erase(id) != 0) {
      table->Remove(id);
    } else {
      Add(id);
      present.insert(id);
    }
    ASSERT_EQ(table->Components().size(), present.size());
    ASSERT_EQ(CountedData::alive, static_cast<int>(present.size()));
    for (const std::uint32_t key : present) {
      ASSERT_EQ(table->Get(key)->number, static_cast<int>(key));
    }
    ExpectIndicesFit();
  }
}

TEST_F(ComponentManagerTest, TheEmptySlotDoesNothing) {
  Add(1);
  table->Reserved();
  EXPECT_THAT(Numbers(), ElementsAre(1));
}

TEST_F(ComponentManagerTest, ANewComponentHasNoPlaceYet) {
  const CountedData component(nullptr);
  EXPECT_EQ(component.m_index, static_cast<std::uint32_t>(-1));
  EXPECT_TRUE(component.m_active);
}

}  // namespace
}  // namespace ZOVEngine
