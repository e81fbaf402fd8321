#include "render/passes/tilepass.h"

#include <gtest/gtest.h>

#include "render/passes/expect.h"
#include "support/scene.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;

TEST(TilePass, DrawsATileWithItsTextureColourAndPlace) {
  Scene scene;
  GameObj* tile = scene.AddSprite("tile", "two");
  Of<Render>(tile).m_tile = true;
  Of<Render>(tile).m_colour = {0.1f, 0.2f, 0.3f, 0.4f};
  Of<Transform>(tile).m_local_pos = Vector3D(5.0f, 6.0f, 7.0f);
  Of<Transform>(tile).m_local_scale = Vector3D(50.0f, 60.0f, 70.0f);
  Of<Transform>(tile).m_local_rotate = 90.0f;
  const DrawCommand draw = scene.DrawOne();
  EXPECT_EQ(draw.kind, DrawCommand::Kind::kQuad);
  EXPECT_EQ(draw.texture, 2u);
  EXPECT_EQ(draw.program, Program::kDefault);
  ExpectColour(draw, 0.1f, 0.2f, 0.3f, 0.4f);
  ExpectVector(draw.placement.translate, 5.0f, 6.0f, 7.0f);
  ExpectVector(draw.placement.scale, 50.0f, 60.0f, 1.0f);
  EXPECT_FLOAT_EQ(draw.placement.rotate_radians, 1.57079628f);
}

TEST(TilePass, HasNoHighlight) {
  Scene scene;
  GameObj* tile = scene.AddSprite("tile", "two");
  Of<Render>(tile).m_tile = true;
  Of<Render>(tile).m_hl_tex = "three";
  scene.System().m_selected_id = static_cast<std::int32_t>(tile->id);
  EXPECT_EQ(scene.DrawOne().texture, 2u);
}

TEST(TilePass, NeverAnimates) {
  Scene scene;
  GameObj* tile = scene.AddAnimated("tile", "loop");
  Of<Render>(tile).m_tile = true;
  EXPECT_EQ(scene.DrawOne().texture, 1u);
  EXPECT_EQ(Of<Animation>(tile).m_timer, 0.0f);
  EXPECT_EQ(Of<Animation>(tile).m_currStep, 0.0f);
}

TEST(TilePass, SkipsAnInvisibleTile) {
  Scene scene;
  GameObj* tile = scene.AddSprite("tile", "two");
  Of<Render>(tile).m_tile = true;
  Of<Render>(tile).m_visible = false;
  EXPECT_TRUE(scene.Draw().empty());
}

TEST(TilePass, NeedsNoModel) {
  Scene scene;
  GameObj* tile = scene.AddObject("tile");
  tile->AddComponent<Render>();
  Of<Render>(tile).m_tile = true;
  EXPECT_EQ(scene.Draw().size(), 1u);
}

TEST(TilePass, TakesATileThatHangsOnACameraAtItsOwnDepth) {
  Scene scene;
  GameObj* camera = scene.AddCamera();
  Of<Transform>(camera).m_local_pos = Vector3D(0.0f, 0.0f, 50.0f);
  GameObj* tile = scene.AddSprite("tile", "two", camera);
  Of<Render>(tile).m_tile = true;
  scene.AddSprite("world", "three");
  const std::vector<DrawCommand> draws = scene.Draw();
  ASSERT_EQ(draws.size(), 2u);
  EXPECT_EQ(draws[0].texture, 2u);
  EXPECT_EQ(draws[0].placement.translate.z, Of<Transform>(tile).m_world_pos.z);
}

TEST(TilePass, ShowsTheWindowThatAnAnimationLeftInTheSharedQuad) {
  Scene scene;
  GameObj* tile = scene.AddSprite("tile", "two");
  Of<Render>(tile).m_tile = true;
  GameObj* animated = scene.AddAnimated("animated", "loop");
  Of<Animation>(animated).m_time_per_frame = 100.0f;
  Of<Animation>(animated).m_currStep = 0.5f;
  EXPECT_EQ(scene.Draw().front().window.u_left, 0.0f);
  const DrawCommand later = scene.Draw().front();
  EXPECT_EQ(later.texture, 2u);
  EXPECT_EQ(later.window.u_left, 0.5f);
  EXPECT_EQ(later.window.u_right, 0.75f);
}

}  // namespace
}  // namespace carapace_test
