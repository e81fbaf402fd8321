#include "render/passes/instancedpass.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "render/passes/expect.h"
#include "support/reports.h"
#include "support/scene.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;

std::vector<DrawCommand> InstancedDraws(Scene& scene) {
  std::vector<DrawCommand> out;
  for (const DrawCommand& draw : scene.Draw()) {
    if (draw.kind == DrawCommand::Kind::kInstances) out.push_back(draw);
  }
  return out;
}

TEST(InstancedPass, DrawsAllParticlesAtOnceWithTheTextureAndColourOfTheFirst) {
  Scene scene;
  GameObj* first = scene.AddParticle("four");
  Of<Render>(first).m_colour = {0.5f, 0.6f, 0.7f, 0.8f};
  scene.AddParticle("five");
  scene.AddParticle("six");
  const std::vector<DrawCommand> draws = InstancedDraws(scene);
  ASSERT_EQ(draws.size(), 1u);
  EXPECT_EQ(draws[0].program, Program::kInstance);
  EXPECT_EQ(draws[0].texture, 4u);
  EXPECT_EQ(draws[0].first, 0u);
  EXPECT_EQ(draws[0].count, 3u);
  ExpectColour(draws[0], 0.5f, 0.6f, 0.7f, 0.8f);
  EXPECT_EQ(scene.Frame().instances.size(), 3u);
}

TEST(InstancedPass, TheMatrixIsTranslationTimesScaleTimesRotationAtDepthZero) {
  Scene scene;
  GameObj* particle = scene.AddParticle("four");
  Of<Transform>(particle).m_local_pos = Vector3D(10.0f, 20.0f, 30.0f);
  Of<Transform>(particle).m_local_scale = Vector3D(2.0f, 3.0f, 9.0f);
  Of<Transform>(particle).m_local_rotate = 30.0f;
  scene.Draw();
  const Matrix4x4 expected = Matrix4x4::Translation(10.0f, 20.0f) * Matrix4x4::Scale(2.0f, 3.0f) *
                             Matrix4x4::Rotation(30.0f);
  ASSERT_EQ(scene.Frame().instances.size(), 1u);
  for (int i = 0; i < 16; ++i) {
    EXPECT_NEAR(scene.Frame().instances[0].m[i], expected.m[i], 1e-5f) << i;
  }
}

TEST(InstancedPass, TheWorldPassDrawsTheParticleOnceMoreLitAndInItsOwnColour) {
  Scene scene;
  scene.AddParticle("four");
  GameObj* second = scene.AddParticle("five");
  Of<Render>(second).m_colour = {0.0f, 1.0f, 0.0f, 1.0f};
  const std::vector<DrawCommand> draws = scene.Draw();
  ASSERT_EQ(draws.size(), 3u);
  EXPECT_EQ(draws[2].kind, DrawCommand::Kind::kQuad);
  EXPECT_EQ(draws[2].program, Program::kLight);
  EXPECT_EQ(draws[2].texture, 5u);
  ExpectColour(draws[2], 0.0f, 1.0f, 0.0f, 1.0f);
}

TEST(InstancedPass, ATileIsDrawnByTheTilePassBefore) {
  Scene scene;
  GameObj* particle = scene.AddParticle("four");
  Of<Render>(particle).m_tile = true;
  const std::vector<DrawCommand> draws = scene.Draw();
  ASSERT_EQ(draws.size(), 2u);
  EXPECT_EQ(draws[0].kind, DrawCommand::Kind::kQuad);
  EXPECT_EQ(draws[1].kind, DrawCommand::Kind::kInstances);
}

TEST(InstancedPass, LeavesOutInvisibleParticles) {
  Scene scene;
  GameObj* hidden = scene.AddParticle("four");
  Of<Render>(hidden).m_visible = false;
  scene.AddParticle("five");
  const std::vector<DrawCommand> draws = InstancedDraws(scene);
  ASSERT_EQ(draws.size(), 1u);
  EXPECT_EQ(draws[0].texture, 5u);
  EXPECT_EQ(draws[0].count, 1u);
}

TEST(InstancedPass, AnObjectWithoutParticleIsDrawnLitAndNotAsAnInstance) {
  Scene scene;
  GameObj* sprite = scene.AddSprite("sprite", "four");
  Of<Render>(sprite).m_shader = "instanced";
  const DrawCommand draw = scene.DrawOne();
  EXPECT_EQ(draw.kind, DrawCommand::Kind::kQuad);
  EXPECT_EQ(draw.program, Program::kLight);
}

TEST(InstancedPass, AParticleOfAnotherProgramIsNoInstance) {
  Scene scene;
  GameObj* particle = scene.AddParticle("four");
  Of<Render>(particle).m_shader = "Instanced";
  EXPECT_EQ(scene.DrawOne().kind, DrawCommand::Kind::kQuad);
}

TEST(InstancedPass, NoParticleMakesNoDraw) {
  Scene scene;
  scene.Draw();
  EXPECT_EQ(scene.Frame().commands.size(), 2u);
  EXPECT_TRUE(scene.Frame().instances.empty());
}

TEST(InstancedPass, MoreParticlesThanTheDeviceHoldsAreReported) {
  Scene scene;
  const Render& particle = Of<Render>(scene.AddParticle("four"));
  scene.Draw();
  SpriteLists lists;
  lists.Fill(scene.System().m_render_table->Components());
  ASSERT_EQ(lists.instances.at(0).render, &particle);
  std::vector<Sprite> particles(kMaxInstances, lists.instances.at(0));
  TextureMap textures;
  Painter painter;
  painter.Begin(&textures);
  InstancedPass(particles, painter);
  EXPECT_EQ(painter.GetFrame().instances.size(), 150000u);
  particles.push_back(particles.front());
  painter.Begin(&textures);
  EXPECT_THAT(ReportOf([&] { InstancedPass(particles, painter); }), testing::HasSubstr("150000"));
}

}  // namespace
}  // namespace carapace_test
