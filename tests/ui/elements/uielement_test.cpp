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
  World world;
  OutputOf([&] { world.LoadObjects(Record("bar", {{"UIElement", "{}"}})); });
  UIElement& element = *world.Find("bar")->GetComponent<UIElement>();
  EXPECT_FALSE(element.m_init);
  EXPECT_EQ(element.m_bar_scale, 125.0f);
  EXPECT_EQ(element.m_bar_left, -542.5f);
  EXPECT_EQ(element.m_bar_x, -480.0f);
  EXPECT_FALSE(element.m_fade_armed || element.m_banner_armed || element.m_ring_announced);
  EXPECT_EQ(element.m_dt, 0.0f);
  element.Update(0.25f);
  EXPECT_TRUE(element.m_init);
  EXPECT_EQ(element.m_dt, 0.25f);
}

TEST(UIElement, ItsFirstStepMeasuresItsObject) {
  World world;
  world.LoadObjects(Record("bar", {{"Transform", carapace_test::TransformAt(30, 0, 1, 40)},
                                   {"UIElement", R"({"m_ui_element_name": "hp_bar"})"}}));
  UIElement& element = *world.Find("bar")->GetComponent<UIElement>();
  element.m_fade_armed = element.m_banner_armed = true;
  element.Init();
  EXPECT_EQ(element.m_bar_scale, 40.0f);
  EXPECT_EQ(element.m_bar_x, 30.0f);
  EXPECT_EQ(element.m_bar_left, 10.0f);
  EXPECT_FALSE(element.m_fade_armed || element.m_banner_armed);
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
