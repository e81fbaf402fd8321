#include "render/passes/textpass.h"

#include <gtest/gtest.h>

#include "render/passes/letters.h"
#include "support/scene.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;

class TextPassTest : public testing::Test {
 protected:
  TextPassTest() { scene.System().m_glyphs = Letters(); }

  GameObj* AddText(const std::string& text, GameObj* parent = nullptr) {
    GameObj* object = scene.AddObject("text", parent);
    object->AddComponent<Font>();
    Of<Font>(object).m_text = text;
    return object;
  }
  const GlyphQuad& First() { return scene.Frame().glyphs.at(0); }

  Scene scene;
};

TEST_F(TextPassTest, OneTextIsOneDrawInItsColour) {
  GameObj* text = AddText("ab");
  Of<Font>(text).m_colour = {0.1f, 0.2f, 0.3f, 0.4f};
  const DrawCommand draw = scene.DrawOne();
  EXPECT_EQ(draw.kind, DrawCommand::Kind::kText);
  EXPECT_EQ(draw.program, Program::kFont);
  EXPECT_EQ(draw.first, 0u);
  EXPECT_EQ(draw.count, 2u);
  EXPECT_EQ(draw.colour[3], 0.4f);
}

TEST_F(TextPassTest, TextsFollowEachOtherInTheOrderOfTheTable) {
  AddText("ab");
  AddText("b");
  const std::vector<DrawCommand> draws = scene.Draw();
  ASSERT_EQ(draws.size(), 2u);
  EXPECT_EQ(draws[1].first, 2u);
  EXPECT_EQ(draws[1].count, 1u);
}

TEST_F(TextPassTest, AnEmptyTextMakesNoDraw) {
  AddText("");
  EXPECT_TRUE(scene.Draw().empty());
}

TEST_F(TextPassTest, AnInactiveFontIsSkipped) {
  Of<Font>(AddText("a")).m_active = false;
  EXPECT_TRUE(scene.Draw().empty());
}

TEST_F(TextPassTest, AHiddenSpriteKeepsItsText) {
  GameObj* text = AddText("a");
  text->AddComponent<Render>();
  Of<Render>(text).m_visible = false;
  EXPECT_EQ(scene.Draw().size(), 1u);
}

TEST_F(TextPassTest, ARootTextStandsAtTwiceItsPosition) {
  GameObj* text = AddText("b");
  Of<Transform>(text).m_local_pos = Vector3D(30.0f, 40.0f, 1.0f);
  scene.Draw();
  EXPECT_EQ(First().x, 60.0f);
  EXPECT_EQ(First().y, 80.0f);
  EXPECT_EQ(First().z, 2.0f);
}

TEST_F(TextPassTest, AChildsTextStandsAtItsParentPlusItsOwnLocalPosition) {
  GameObj* parent = scene.AddObject("parent");
  Of<Transform>(parent).m_local_pos = Vector3D(100.0f, 200.0f, 1.0f);
  Of<Transform>(parent).m_local_rotate = 90.0f;
  Of<Transform>(parent).m_local_scale = Vector3D(3.0f, 3.0f, 1.0f);
  GameObj* text = AddText("b", parent);
  Of<Transform>(text).m_local_pos = Vector3D(10.0f, 20.0f, 1.0f);
  scene.Draw();
  EXPECT_FLOAT_EQ(First().x, 110.0f);
  EXPECT_FLOAT_EQ(First().y, 220.0f);
}

TEST_F(TextPassTest, TheParentsPositionIsThatInTheWorld) {
  GameObj* grandparent = scene.AddObject("grandparent");
  Of<Transform>(grandparent).m_local_pos = Vector3D(1000.0f, 2000.0f, 1.0f);
  GameObj* parent = scene.AddObject("parent", grandparent);
  Of<Transform>(parent).m_local_pos = Vector3D(100.0f, 200.0f, 1.0f);
  Of<Transform>(AddText("b", parent)).m_local_pos = Vector3D(10.0f, 20.0f, 1.0f);
  scene.Draw();
  EXPECT_FLOAT_EQ(First().x, 1110.0f);
  EXPECT_FLOAT_EQ(First().y, 2220.0f);
}

// The world position of a root object may differ from its local one: it is derived once a step.
TEST_F(TextPassTest, ARootTextAddsItsWorldAndItsLocalPosition) {
  GameObj* text = AddText("b");
  Of<Transform>(text).m_world_pos = Vector3D(100.0f, 200.0f, 3.0f);
  Of<Transform>(text).m_local_pos = Vector3D(30.0f, 40.0f, 1.0f);
  scene.System().Update(0.0f);
  EXPECT_EQ(First().x, 130.0f);
  EXPECT_EQ(First().y, 240.0f);
  EXPECT_EQ(First().z, 4.0f);
}

TEST_F(TextPassTest, TheSizeIsTheWorldScaleInX) {
  GameObj* parent = scene.AddObject("parent");
  Of<Transform>(parent).m_local_scale = Vector3D(3.0f, 1.0f, 1.0f);
  GameObj* text = AddText("b", parent);
  Of<Transform>(text).m_local_scale = Vector3D(0.5f, 9.0f, 1.0f);
  scene.Draw();
  EXPECT_FLOAT_EQ(First().width, 8.0f * Of<Transform>(text).m_world_scale.x);
  EXPECT_FLOAT_EQ(First().height, 8.0f * Of<Transform>(text).m_world_scale.x);
}

TEST_F(TextPassTest, AtScaleOneALineHasItsBitmapsSize) {
  AddText("a");
  scene.Draw();
  EXPECT_EQ(First().width, 10.0f);
  EXPECT_EQ(First().height, 20.0f);
}

TEST_F(TextPassTest, TheCamerasDepthDoesNotMoveItsText) {
  GameObj* camera = scene.AddCamera();
  Of<Transform>(camera).m_local_pos = Vector3D(0.0f, 0.0f, 200.0f);
  AddText("b", camera);
  scene.Draw();
  // The anchor's depth, the text's own, and the camera's taken off.
  EXPECT_EQ(First().z, 200.0f + 1.0f - 200.0f);
}

TEST_F(TextPassTest, TheCamerasDepthMovesTheTextOfItsGrandchild) {
  GameObj* camera = scene.AddCamera();
  Of<Transform>(camera).m_local_pos = Vector3D(0.0f, 0.0f, 200.0f);
  GameObj* panel = scene.AddObject("panel", camera);
  AddText("b", panel);
  scene.Draw();
  EXPECT_EQ(First().z, Of<Transform>(panel).m_world_pos.z + 1.0f);
}

TEST_F(TextPassTest, AnUnknownCharacterEntersTheGlyphsOfTheSystem) {
  AddText("\xff");
  EXPECT_TRUE(scene.Draw().empty());
  EXPECT_EQ(scene.System().m_glyphs.count(-1), 1u);
}

}  // namespace
}  // namespace carapace_test
