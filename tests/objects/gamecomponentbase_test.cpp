#include "objects/gamecomponentbase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <rttr/type>

#include "gameobj.h"
#include "support/inspected.h"
#include "support/probe.h"

namespace ZOVEngine {
namespace {

using carapace_test::CountedData;
using carapace_test::InspectedFields;
using carapace_test::ProbeA;
using ::testing::ElementsAre;

TEST(GameComponentBase, ANewComponentIsActiveAndInNoTable) {
  GameObj owner;
  const CountedData component(&owner);
  EXPECT_EQ(component.m_index, static_cast<std::uint32_t>(-1));
  EXPECT_EQ(component.m_owner, &owner);
  EXPECT_TRUE(component.m_active);
}

TEST(GameComponentBase, ACopyHasTheOwnerAndTheFlagOfItsSource) {
  GameObj owner;
  CountedData source(&owner);
  source.m_active = false;
  source.m_index = 4;
  const CountedData copy(source);
  EXPECT_EQ(copy.m_owner, &owner);
  EXPECT_FALSE(copy.m_active);
  EXPECT_EQ(copy.m_index, 4u) << "until a table stores it";
}

TEST(GameComponentBase, ASwitchedOwnerLeavesAComponentAloneThatDoesNotAsk) {
  CountedData component(nullptr);
  component.number = 7;
  component.OwnerSetActive(false);
  EXPECT_TRUE(component.m_active) << "the object writes the flag";
  EXPECT_EQ(component.number, 7);
}

TEST(GameComponentBase, DeletingAComponentByItsBaseRunsItsOwnDestructor) {
  CountedData::alive = 0;
  const GameComponentBase* component = new CountedData(nullptr);
  EXPECT_EQ(CountedData::alive, 1);
  delete component;
  EXPECT_EQ(CountedData::alive, 0);
}

TEST(GameComponentBase, ReflectionTellsTheClassOfAComponent) {
  ProbeA probe(nullptr);
  const GameComponentBase& base = probe;
  EXPECT_EQ(rttr::type::get(base), rttr::type::get<ProbeA>());
  EXPECT_TRUE(rttr::type::get(base).is_derived_from<GameComponentBase>());
}

TEST(GameComponentBase, TheInspectorShowsTheActiveFlag) {
  EXPECT_THAT(InspectedFields("GameComponentBase"), ElementsAre("m_active|bool|Active"));
}

}  // namespace
}  // namespace ZOVEngine
