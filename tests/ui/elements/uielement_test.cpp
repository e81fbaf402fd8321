#include "ui/elements/uielement.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/contactinfo.h"
#include "core/engine.h"
#include "support/inspected.h"
#include "support/reports.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::InspectedFields;
using carapace_test::OutputOf;
using carapace_test::ReadRecord;
using carapace_test::Record;
using carapace_test::RecordOf;
using carapace_test::World;
using ::testing::ElementsAre;

TEST(UIElement, ItsNameIsItsOneField) {
  UIElement element(nullptr);
  EXPECT_EQ(element.m_ui_element_name, "ui_element_default");
  EXPECT_EQ(OutputOf([&] { ReadRecord("{}", element); }), "Cant find Key: m_ui_element_name\n");
  ReadRecord(R"({"m_ui_element_name": "hp_bar"})", element);
  EXPECT_EQ(RecordOf(element), "{\n    \"m_ui_element_name\": \"hp_bar\"\n}");
}

TEST(UIElement, TheInspectorShowsTheName) {
  EXPECT_THAT(InspectedFields("UIElement"),
              ElementsAre("m_ui_element_name|std::string|UI Element Name"));
}

TEST(UIElement, AStepInitialisesItAndTellsItItsLength) {
  UIElement element(nullptr);
  EXPECT_FALSE(element.m_init);
  element.Update(0.25f);
  EXPECT_TRUE(element.m_init);
  EXPECT_EQ(element.m_dt, 0.25f);
}

TEST(UIElement, LivesOnInAPause) {
  World world;
  world.LoadObjects(Record("bar", {{"UIElement", R"({"m_ui_element_name": "hp_bar"})"}}));
  g_engine->paused = true;
  world.Step();
  EXPECT_EQ(world.Find("bar")->GetComponent<UIElement>()->m_dt, kStep);
}

}  // namespace
}  // namespace ZOVEngine
