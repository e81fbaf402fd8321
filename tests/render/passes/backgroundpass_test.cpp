#include "render/passes/backgroundpass.h"

#include <gtest/gtest.h>

#include "render/passes/expect.h"
#include "support/scene.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;

TEST(BackgroundPass, ComesFirstLitAndWhite) {
  Scene scene;
  scene.AddSprite("sprite", "one");
  scene.System().m_background_tex = "nine";
  scene.Draw();
  const DrawCommand& background = scene.Frame().commands.front();
  EXPECT_EQ(background.kind, DrawCommand::Kind::kQuad);
  EXPECT_EQ(background.program, Program::kLight);
  EXPECT_EQ(background.texture, 9u);
  ExpectColour(background, 1.0f, 1.0f, 1.0f, 1.0f);
}

TEST(BackgroundPass, RepeatsItsTextureFiveTimesOverAFixedField) {
  Scene scene;
  scene.Draw();
  const DrawCommand& background = scene.Frame().commands.front();
  ExpectVector(background.placement.translate, 0.0f, 0.0f, 0.0f);
  ExpectVector(background.placement.scale, 9600.0f, 5400.0f, 1.0f);
  EXPECT_EQ(background.placement.rotate_radians, 0.0f);
  EXPECT_EQ(background.window.u_left, 0.0f);
  EXPECT_EQ(background.window.u_right, 5.0f);
  EXPECT_EQ(background.window.v_top, 0.0f);
  EXPECT_EQ(background.window.v_bottom, 5.0f);
}

TEST(BackgroundPass, AnEmptyNameLooksUpTheEmptyKeyAndShowsTextureZero) {
  Scene scene;
  scene.System().m_background_tex = "";
  scene.Draw();
  EXPECT_EQ(scene.Frame().commands.front().texture, 0u);
  EXPECT_EQ(scene.System().m_textures.count(""), 1u);
}

TEST(BackgroundPass, TheNextSpriteShowsItsTextureOnce) {
  Scene scene;
  scene.AddSprite("tile", "one")->GetComponent<Render>()->m_tile = true;
  const DrawCommand draw = scene.DrawOne();
  EXPECT_EQ(draw.window.u_right, 1.0f);
  EXPECT_EQ(draw.window.v_bottom, 1.0f);
}

}  // namespace
}  // namespace carapace_test
