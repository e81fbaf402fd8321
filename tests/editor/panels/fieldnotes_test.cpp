#include "editor/panels/fieldnotes.h"

#include <gmock/gmock.h>

#include "support/world.h"

namespace ZOVEngine {
namespace {

using ::testing::Contains;

TEST(FieldNotes, NamesThatCodeLooksUpAreChosenFromItsTables) {
  const carapace_test::World world;
  EXPECT_EQ(FormOfField("Button", "m_click_name"), FieldWidget::kChoice);
  EXPECT_THAT(FieldChoices("Button", "m_click_name"), Contains("ui_pause_resume"));
  EXPECT_THAT(FieldChoices("UIElement", "m_ui_element_name"), Contains("ui_energy"));
  EXPECT_THAT(FieldChoices("ColliderHolder", "bitmask_category"), Contains("Barrier"));
  EXPECT_THAT(FieldChoices("ColliderHolder", "m_collider_type"), Contains("Polygon"));
  EXPECT_TRUE(FieldChoices("Player", "m_health").empty());
}

TEST(FieldNotes, FieldsHaveTheFormOfTheirUse) {
  EXPECT_EQ(FormOfField("Render", "m_tex"), FieldWidget::kTexture);
  EXPECT_EQ(FormOfField("Animation", "m_spawn"), FieldWidget::kTexture);
  EXPECT_EQ(FormOfField("Light", "m_diffuse"), FieldWidget::kColour);
  EXPECT_EQ(FormOfField("iModel", "m_vertices"), FieldWidget::kFixed);
  EXPECT_EQ(FormOfField("Transform", "m_world_pos"), FieldWidget::kFixed);
  EXPECT_EQ(FormOfField("Render", "m_tile"), FieldWidget::kFixed);
  EXPECT_EQ(FormOfField("Render", "m_visible"), FieldWidget::kPlain);
}

TEST(FieldNotes, AComponentSaysWhatItNeeds) {
  EXPECT_THAT(ComponentNeeds("Render"), ::testing::ElementsAre("Transform", "iModel"));
  EXPECT_TRUE(ComponentNeeds("Transform").empty());
}

TEST(FieldNotes, ALightsPlaceHasANoteOfItsOwn) {
  EXPECT_THAT(FieldNote("Light", "m_pos"), ::testing::HasSubstr("height"));
  EXPECT_EQ(FieldNote("Light", "nothing"), "");
}

}  // namespace
}  // namespace ZOVEngine
