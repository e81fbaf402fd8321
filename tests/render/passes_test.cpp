#include "render/passes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "game/camera.h"
#include "platform/windowsystem.h"
#include "render/components/particle.h"
#include "support/reports.h"
#include "support/scene.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;

constexpr float kStepSeconds = 1.0f / 60.0f;

void ExpectColour(const DrawCommand& draw, float r, float g, float b, float a) {
  EXPECT_EQ(draw.colour[0], r);
  EXPECT_EQ(draw.colour[1], g);
  EXPECT_EQ(draw.colour[2], b);
  EXPECT_EQ(draw.colour[3], a);
}

void ExpectVector(const Vector3D& v, float x, float y, float z) {
  EXPECT_FLOAT_EQ(v.x, x);
  EXPECT_FLOAT_EQ(v.y, y);
  EXPECT_FLOAT_EQ(v.z, z);
}

DrawLine WhiteLine(const Vector3D& start, const Vector3D& end, float width) {
  return DrawLine(start, end, width, 255.0f, 255.0f, 255.0f, 255.0f);
}

// --- View ---

TEST(CameraPass, WithoutAnyCameraTheViewRestsAtTheOrigin) {
  Scene scene;
  scene.Draw();
  ExpectVector(scene.System().m_view_translate, 0.0f, 0.0f, 0.0f);
  ExpectVector(scene.Frame().view_pos, 0.0f, 0.0f, -1303.5f);
}

TEST(CameraPass, TheViewNegatesTheCameraAndKeepsItsDepth) {
  Scene scene;
  GameObj* camera = scene.AddCamera();
  camera->GetComponent<Transform>()->m_local_pos = Vector3D(100.0f, -40.0f, 20.0f);
  scene.Draw();
  ExpectVector(scene.System().m_view_translate, -100.0f, 40.0f, 20.0f);
  ExpectVector(scene.Frame().view_pos, -100.0f, 40.0f, 20.0f - 1303.5f);
}

TEST(CameraPass, TheViewMatrixIsATranslationInRowMajorOrder) {
  Scene scene;
  GameObj* camera = scene.AddCamera();
  camera->GetComponent<Transform>()->m_local_pos = Vector3D(100.0f, -40.0f, 20.0f);
  scene.Draw();
  Matrix4x4 expected = Matrix4x4::Translation(-100.0f, 40.0f);
  expected.m[11] = 20.0f - 1303.5f;
  for (int i = 0; i < 16; ++i) EXPECT_EQ(scene.Frame().view.m[i], expected.m[i]) << i;
}

TEST(CameraPass, TheOffsetIsAddedInAllThreeDirections) {
  Scene scene;
  GameObj* camera = scene.AddCamera();
  Of<Transform>(camera).m_world_pos = Vector3D(10.0f, 20.0f, 30.0f);
  Of<Camera>(camera).m_offset = Vector3D(3.0f, 6.0f, 9.0f);
  CameraPass(scene.System());
  ExpectVector(scene.System().m_view_translate, -13.0f, -26.0f, 39.0f);
}

TEST(CameraPass, TheLastActiveCameraWins) {
  Scene scene;
  const float positions[] = {10.0f, 20.0f, 30.0f};
  for (const float x : positions) {
    scene.AddCamera()->GetComponent<Transform>()->m_local_pos = Vector3D(x, 0.0f, 0.0f);
  }
  scene.System().m_camera_table->Components()[2]->m_active = false;
  scene.Draw();
  EXPECT_EQ(scene.System().m_view_translate.x, -20.0f);
}

TEST(CameraPass, TheViewStaysWhenTheLastCameraIsSwitchedOff) {
  Scene scene;
  GameObj* camera = scene.AddCamera();
  camera->GetComponent<Transform>()->m_local_pos = Vector3D(100.0f, 0.0f, 0.0f);
  scene.Draw();
  Of<Camera>(camera).m_active = false;
  camera->GetComponent<Transform>()->m_local_pos = Vector3D(500.0f, 0.0f, 0.0f);
  scene.Draw();
  EXPECT_EQ(scene.System().m_view_translate.x, -100.0f);
}

// --- Background ---

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

// --- Tiles ---

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

// --- Instances ---

GameObj* AddParticle(Scene& scene, const std::string& texture) {
  GameObj* particle = scene.AddSprite("particle", texture);
  particle->AddComponent<Particle>();
  Of<Render>(particle).m_shader = "instanced";
  return particle;
}

std::vector<DrawCommand> InstancedDraws(Scene& scene) {
  std::vector<DrawCommand> out;
  for (const DrawCommand& draw : scene.Draw()) {
    if (draw.kind == DrawCommand::Kind::kInstances) out.push_back(draw);
  }
  return out;
}

TEST(InstancedPass, DrawsAllParticlesAtOnceWithTheTextureAndColourOfTheFirst) {
  Scene scene;
  GameObj* first = AddParticle(scene, "four");
  Of<Render>(first).m_colour = {0.5f, 0.6f, 0.7f, 0.8f};
  AddParticle(scene, "five");
  AddParticle(scene, "six");
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
  GameObj* particle = AddParticle(scene, "four");
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
  AddParticle(scene, "four");
  GameObj* second = AddParticle(scene, "five");
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
  GameObj* particle = AddParticle(scene, "four");
  Of<Render>(particle).m_tile = true;
  const std::vector<DrawCommand> draws = scene.Draw();
  ASSERT_EQ(draws.size(), 2u);
  EXPECT_EQ(draws[0].kind, DrawCommand::Kind::kQuad);
  EXPECT_EQ(draws[1].kind, DrawCommand::Kind::kInstances);
}

TEST(InstancedPass, LeavesOutInvisibleParticles) {
  Scene scene;
  GameObj* hidden = AddParticle(scene, "four");
  Of<Render>(hidden).m_visible = false;
  AddParticle(scene, "five");
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
  GameObj* particle = AddParticle(scene, "four");
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
  AddParticle(scene, "four");
  scene.Draw();
  RenderSystem& system = scene.System();
  system.m_sprites.instances.resize(kMaxInstances, system.m_sprites.instances.front());
  system.m_painter.Begin(&system.m_textures);
  InstancedPass(system);
  EXPECT_EQ(scene.System().m_painter.GetFrame().instances.size(), 150000u);
  system.m_sprites.instances.push_back(system.m_sprites.instances.front());
  system.m_painter.Begin(&system.m_textures);
  EXPECT_THAT(ReportOf([&] { InstancedPass(system); }), testing::HasSubstr("150000"));
}

// --- Order ---

TEST(Passes, StackTilesInstancesHazardsWorldLinesInterfaceTimedLinesAndText) {
  Scene scene;
  // Made in the opposite order, since the passes decide and not the table.
  GameObj* camera = scene.AddCamera();
  scene.AddSprite("interface", "six", camera);
  scene.AddSprite("world", "five");
  AddParticle(scene, "four");
  GameObj* tile = scene.AddSprite("tile", "two");
  Of<Render>(tile).m_tile = true;
  scene.System().m_glyphs['a'] = {77, 8, 8, 0, 8, 640};
  GameObj* text = scene.AddObject("text", camera);
  text->AddComponent<Font>();
  Of<Font>(text).m_text = "a";
  scene.System().m_timed_lines.push_back({{}, {1.0f, 0.0f, 1.0f}, 2.0f, 1.0f, {}, 0.0f});
  scene.world.Send(WhiteLine({}, {1.0f, 0.0f, 1.0f}, 3.0f));

  using Kind = DrawCommand::Kind;
  const std::vector<DrawCommand> draws = scene.Draw();
  ASSERT_EQ(draws.size(), 8u);
  EXPECT_EQ(draws[0].texture, 2u);
  EXPECT_EQ(draws[1].kind, Kind::kInstances);
  EXPECT_EQ(draws[2].texture, 5u);
  EXPECT_EQ(draws[3].texture, 4u);
  EXPECT_EQ(draws[4].placement.scale.x, 3.0f);
  EXPECT_EQ(draws[5].texture, 6u);
  EXPECT_EQ(draws[6].placement.scale.x, 2.0f);
  EXPECT_EQ(draws[7].kind, Kind::kText);
}

TEST(Passes, DepthsAndLayersDoNotSort) {
  Scene scene;
  GameObj* high = scene.AddSprite("high", "one");
  Of<Transform>(high).m_local_pos.z = 500.0f;
  Of<Render>(high).m_zLayer = 9.0f;
  scene.AddSprite("low", "two");
  EXPECT_EQ(scene.DrawTextures(), (std::vector<int>{1, 2}));
}

// --- Lines ---

TEST(LinePass, ALineIsAYellowTexturedQuadBetweenItsEnds) {
  Scene scene;
  scene.world.Send(
      DrawLine({10.0f, 20.0f, 3.0f}, {40.0f, 60.0f, 9.0f}, 4.0f, 255.0f, 128.0f, 0.0f, 1.0f));
  const DrawCommand draw = scene.DrawOne();
  EXPECT_EQ(draw.kind, DrawCommand::Kind::kQuad);
  EXPECT_EQ(draw.program, Program::kDefault);
  EXPECT_EQ(draw.texture, 11u);
  ExpectVector(draw.placement.translate, 25.0f, 40.0f, 3.0f);
  ExpectVector(draw.placement.scale, 4.0f, 50.0f, 0.0f);
  EXPECT_FLOAT_EQ(draw.placement.rotate_radians, -std::atan2(30.0f, 40.0f));
  ExpectColour(draw, 255.0f, 128.0f, 0.0f, 1.0f);
}

TEST(LinePass, ALineIsDrawnInOneFrameOnly) {
  Scene scene;
  scene.world.Send(WhiteLine({}, {1.0f, 0.0f, 0.0f}, 1.0f));
  EXPECT_EQ(scene.Draw().size(), 1u);
  EXPECT_TRUE(scene.Draw().empty());
}

TEST(LinePass, LinesKeepTheOrderInWhichTheyWereAskedFor) {
  Scene scene;
  for (const float width : {3.0f, 1.0f, 2.0f}) {
    scene.world.Send(WhiteLine({}, {1.0f, 0.0f, 0.0f}, width));
  }
  const std::vector<DrawCommand> draws = scene.Draw();
  ASSERT_EQ(draws.size(), 3u);
  EXPECT_EQ(draws[0].placement.scale.x, 3.0f);
  EXPECT_EQ(draws[1].placement.scale.x, 1.0f);
  EXPECT_EQ(draws[2].placement.scale.x, 2.0f);
}

TEST(LinePass, ALineWithoutLengthHasNoExtent) {
  Scene scene;
  scene.world.Send(WhiteLine({7.0f, 7.0f, 1.0f}, {7.0f, 7.0f, 1.0f}, 5.0f));
  const DrawCommand draw = scene.DrawOne();
  EXPECT_EQ(draw.placement.scale.y, 0.0f);
  EXPECT_EQ(draw.placement.rotate_radians, 0.0f);
}

TEST(LinePass, ShowsTheWindowThatAnAnimationLeftInTheSharedQuad) {
  Scene scene;
  GameObj* animated = scene.AddAnimated("animated", "loop");
  Of<Animation>(animated).m_time_per_frame = 100.0f;
  Of<Animation>(animated).m_currStep = 0.5f;
  scene.world.Send(WhiteLine({}, {1.0f, 0.0f, 0.0f}, 1.0f));
  const DrawCommand line = scene.Draw().back();
  EXPECT_EQ(line.window.u_left, 0.5f);
  EXPECT_EQ(line.window.u_right, 0.75f);
}

// --- Timed lines ---

TimedLineRecord TimedLine(float width, float life_time) {
  return {{0.0f, 0.0f, 1.0f}, {10.0f, 0.0f, 1.0f}, width, life_time, {0.2f, 0.4f, 0.6f}, 0.0f};
}

TEST(TimedLinePass, ALineAgesByTheStepAndIsOpaque) {
  Scene scene;
  scene.System().m_timed_lines = {TimedLine(2.0f, 1.0f)};
  const DrawCommand draw = scene.DrawOne();
  EXPECT_EQ(scene.System().m_timed_lines[0].elapsed, kStepSeconds);
  ExpectColour(draw, 0.2f, 0.4f, 0.6f, 1.0f);
}

TEST(TimedLinePass, ALineWhoseTimeIsExactlyOverIsGone) {
  Scene scene;
  scene.System().m_timed_lines = {TimedLine(2.0f, kStepSeconds)};
  EXPECT_TRUE(scene.Draw().empty());
  EXPECT_TRUE(scene.System().m_timed_lines.empty());
}

TEST(TimedLinePass, ALineOfHalfASecondIsDrawnInTwentyNineSteps) {
  Scene scene;
  scene.System().m_timed_lines = {TimedLine(2.0f, 0.5f)};
  int drawn = 0;
  while (!scene.System().m_timed_lines.empty() && drawn < 100) {
    drawn += static_cast<int>(scene.Draw().size());
  }
  EXPECT_EQ(drawn, 29);
}

TEST(TimedLinePass, RemovalKeepsTheOrder) {
  Scene scene;
  scene.System().m_timed_lines = {TimedLine(1.0f, 1.0f), TimedLine(2.0f, 0.0f),
                                  TimedLine(3.0f, 1.0f)};
  const std::vector<DrawCommand> draws = scene.Draw();
  ASSERT_EQ(draws.size(), 2u);
  EXPECT_EQ(draws[0].placement.scale.x, 1.0f);
  EXPECT_EQ(draws[1].placement.scale.x, 3.0f);
}

// --- Crosshair ---

class Crosshair : public testing::Test {
 protected:
  void TearDown() override { g_show_system_cursor = false; }

  DrawCommand Last() {
    scene.Draw();
    return scene.Frame().commands.back();
  }

  /// The turn of one frame, as far as floats of this size tell it: the angle grows without end,
  /// from test to test of a process too.
  static void ExpectOneTurn(float before, float after) {
    const float resolution = 4.0f * (std::nextafter(after, 2.0f * after) - after);
    EXPECT_NEAR(after, before + 0.3f * 0.017453292f, resolution);
  }

  Scene scene;
};

TEST_F(Crosshair, ComesLastAtTheCursorAndWhite) {
  scene.AddSprite("sprite", "one");
  scene.world.native.cursor = {640, 360};
  const DrawCommand draw = Last();
  EXPECT_EQ(draw.texture, 12u);
  EXPECT_EQ(draw.program, Program::kDefault);
  ExpectVector(draw.placement.translate, 0.0f, 0.0f, 1.0f);
  ExpectVector(draw.placement.scale, 64.0f, 64.0f, 1.0f);
  ExpectColour(draw, 1.0f, 1.0f, 1.0f, 1.0f);
}

TEST_F(Crosshair, FollowsTheCursorInUnitsOfTheMonitorWithYUpwards) {
  // 320 of 720 lines of the window are 480 of 1080.
  scene.world.native.cursor = {640 + 320, 360 + 320};
  ExpectVector(Last().placement.translate, 480.0f, -480.0f, 1.0f);
}

TEST_F(Crosshair, TurnsByThreeTenthsOfADegreeAFrame) {
  const float before = Last().placement.rotate_radians;
  const float after = Last().placement.rotate_radians;
  ExpectOneTurn(before, after);
}

TEST_F(Crosshair, ShowsItsWholeTextureWhateverAnimationWasDrawn) {
  GameObj* animated = scene.AddAnimated("animated", "loop");
  Of<Animation>(animated).m_currStep = 0.5f;
  const DrawCommand draw = Last();
  EXPECT_EQ(draw.window.u_left, 0.0f);
  EXPECT_EQ(draw.window.u_right, 1.0f);
}

TEST_F(Crosshair, HidesTheSystemsCursorInEveryFrame) {
  for (int frame = 0; frame < 2; ++frame) {
    scene.world.native.cursor_visible = true;
    scene.world.Step();
    EXPECT_FALSE(scene.world.native.cursor_visible) << frame;
  }
}

TEST_F(Crosshair, TheSwitchShowsTheSystemsCursorInItsPlace) {
  g_show_system_cursor = true;
  scene.world.native.cursor_visible = false;
  scene.world.Step();
  EXPECT_TRUE(scene.world.native.cursor_visible);
  EXPECT_EQ(scene.Frame().commands.size(), 1u);
}

TEST_F(Crosshair, DoesNotTurnWhileItIsNotDrawn) {
  const float before = Last().placement.rotate_radians;
  g_show_system_cursor = true;
  scene.world.Step(10);
  g_show_system_cursor = false;
  ExpectOneTurn(before, Last().placement.rotate_radians);
}

}  // namespace
}  // namespace carapace_test
