#include "render/rendersystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <rttr/type>

#include "core/base/profile.h"
#include "game/hazards/environmentrough.h"
#include "platform/windowsystem.h"
#include "render/graphicsfiles.h"
#include "render/picturefiles.h"
#include "support/reports.h"
#include "support/scene.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;
using testing::HasSubstr;

// --- Construction ---

TEST(RenderSystemTest, StandsInItsGlobalAndRegistersItsThreeTables) {
  World world;
  ASSERT_NE(g_render_system, nullptr);
  EXPECT_EQ(g_game_obj_factory->TypeName(&typeid(Render)), "Render");
  EXPECT_EQ(g_game_obj_factory->TypeName(&typeid(Animation)), "Animation");
  EXPECT_EQ(g_game_obj_factory->TypeName(&typeid(Font)), "Font");
}

TEST(RenderSystemTest, IsKnownToReflectionByItsName) {
  World world;
  const rttr::type type = rttr::type::get(static_cast<System&>(*g_render_system));
  EXPECT_EQ(type.get_metadata("systemname").get_value<std::string>(), "RenderSystem");
}

TEST(RenderSystemTest, StartsWithNothingSelectedAndNoDebugDrawing) {
  World world;
  EXPECT_EQ(g_render_system->m_selected_id, -1);
  EXPECT_EQ(g_render_system->m_camera_mode, -1);
  EXPECT_FALSE(g_render_system->m_debug_draw);
  EXPECT_TRUE(g_render_system->m_debug_toggle);
}

TEST(RenderSystemTest, TheDestructorSaysSoAndReleasesTheDevice) {
  World world;
  RenderSystem* system = g_render_system;
  std::erase(g_engine->systems, system);
  EXPECT_EQ(OutputOf([&] { delete system; }), "Destructor of RenderSystem\n");
  EXPECT_EQ(world.device.released, 1);
  EXPECT_EQ(g_render_system, nullptr);
}

// --- Init ---

TEST(RenderInit, SaysSo) {
  EXPECT_THAT(StartOutput({}), HasSubstr("Init RenderSystem\n"));
}

TEST(RenderInit, StartsTheDeviceInOrder) {
  Files files = WithShaders(Config({"Resources/Textures/x.tga"}, "font.ttf"));
  files["Resources/Textures/x.tga"] = OnePixel(1, 2, 3);
  files["font.ttf"] = ShippedFile("Resources/Fonts/Play-Bold.ttf");
  World world(files);
  std::vector<std::string> calls = world.device.calls;
  calls.erase(calls.begin(), std::find(calls.begin(), calls.end(), "SetSwapInterval"));
  calls.resize(std::min<std::size_t>(calls.size(), 8));
  EXPECT_EQ(calls,
            (std::vector<std::string>{"SetSwapInterval", "CompileProgram default",
                                      "CompileProgram instance", "CompileProgram light",
                                      "CompileProgram font", "CreateResources", "UploadGlyph"}));
}

TEST(RenderInit, PassesEachProgramItsTwoSourcesAndKeepsItsName) {
  World world(WithShaders(Config({})));
  const auto expect = [&](Program program, const ShaderRecord& record, const std::string& tag) {
    EXPECT_EQ(world.device.programs[program].vertex, "vertex " + tag);
    EXPECT_EQ(world.device.programs[program].fragment, "fragment " + tag);
    EXPECT_EQ(record.vertex_path, tag + ".vert");
  };
  expect(Program::kDefault, g_render_system->m_default_shader, "a");
  expect(Program::kFont, g_render_system->m_font_shader, "b");
  expect(Program::kInstance, g_render_system->m_instance_shader, "c");
  expect(Program::kLight, g_render_system->m_light_shader, "d");
  EXPECT_EQ(g_render_system->m_default_shader.program, 1u);
  EXPECT_EQ(g_render_system->m_instance_shader.program, 2u);
  EXPECT_EQ(g_render_system->m_light_shader.program, 3u);
  EXPECT_EQ(g_render_system->m_font_shader.program, 4u);
}

TEST(RenderInit, TheRefreshSettingReachesTheDevice) {
  World world(WithShaders(Config({}, "none.ttf", true)));
  EXPECT_TRUE(g_render_system->m_vsync);
  EXPECT_TRUE(world.device.vsync);
}

TEST(RenderInit, TheProjectionShowsOneUnitAsOnePixelOf1080Lines) {
  World world;
  const Matrix4x4& p = world.device.projection;
  // Half the height, 540 units at a distance of 1303.5, is the upper edge.
  EXPECT_NEAR(p.at[1][1] * 540.0f / 1303.5f, 1.0f, 2e-4f);
  EXPECT_NEAR(p.at[0][0] * 960.0f / 1303.5f, 1.0f, 2e-4f);
}

TEST(RenderInit, TheProjectionIsRightHandedFromATenthToThreeThousand) {
  World world;
  const Matrix4x4& p = world.device.projection;
  const auto depth = [&](float z) {
    return (p.at[2][2] * z + p.at[2][3]) / (p.at[3][2] * z + p.at[3][3]);
  };
  EXPECT_NEAR(depth(-0.1f), -1.0f, 1e-4f);
  EXPECT_NEAR(depth(-3000.0f), 1.0f, 1e-4f);
  EXPECT_EQ(p.at[3][2], -1.0f);
}

TEST(RenderInit, TheViewStandsBackFromTheOriginBeforeTheFirstFrame) {
  World world;
  g_render_system->m_view_translate = Vector3D(1.0f, 2.0f, 3.0f);
  g_render_system->m_view = Matrix4x4();
  g_render_system->Init();
  EXPECT_EQ(g_render_system->m_view_translate, Vector3D());
  Matrix4x4 expected = Matrix4x4::Identity();
  expected.m[11] = -1303.5f;
  for (int i = 0; i < 16; ++i) EXPECT_EQ(g_render_system->m_view.m[i], expected.m[i]) << i;
}

TEST(RenderUpdate, KeepsTheViewOfItsFrame) {
  Scene scene;
  Of<Transform>(scene.AddCamera()).m_local_pos = Vector3D(100.0f, -40.0f, 20.0f);
  scene.Draw();
  for (int i = 0; i < 16; ++i) EXPECT_EQ(scene.System().m_view.m[i], scene.Frame().view.m[i]) << i;
  EXPECT_EQ(scene.System().m_view.m[3], -100.0f);
}

TEST(RenderInit, TheAspectStaysWhenTheWindowChangesItsSize) {
  Scene scene;
  const Matrix4x4 before = scene.System().m_projection;
  g_window_system->m_size = Vector3D(300.0f, 900.0f, 1.0f);
  scene.Draw();
  EXPECT_EQ(scene.System().m_projection.at[0][0], before.at[0][0]);
  EXPECT_NEAR(before.at[1][1] / before.at[0][0], 1280.0f / 720.0f, 1e-4f);
}

TEST(RenderInit, AWindowWithoutWidthIsReported) {
  World world;
  g_window_system->m_size = Vector3D(0.0f, 720.0f, 1.0f);
  EXPECT_THAT(ReportOf([] { g_render_system->Init(); }), HasSubstr("aspect of the window"));
}

TEST(RenderInit, AWindowWithoutHeightIsReported) {
  World world;
  g_window_system->m_size = Vector3D(1280.0f, 0.0f, 1.0f);
  EXPECT_THAT(ReportOf([] { g_render_system->Init(); }), HasSubstr("aspect of the window"));
}

TEST(RenderInit, WithoutADeviceNothingIsLoadedAndAnimationsGoOn) {
  Scene scene;
  const auto& animation = Of<Animation>(scene.AddAnimated("object", "loop"));
  const int executed = scene.world.device.executed;
  scene.world.device.calls.clear();
  g_gl_device = nullptr;
  g_render_system->Init();
  scene.world.Step();
  EXPECT_TRUE(scene.world.device.calls.empty());
  EXPECT_EQ(scene.world.device.executed, executed);
  EXPECT_EQ(animation.m_currStep, 0.25f);
}

// --- Shaders ---

constexpr const char* kShaderError = "Error: Shader file not successfully read.\n";

TEST(CompileShader, AMissingSourceIsReportedOnceAndTheDeviceGetsWhatWasRead) {
  Files files = WithShaders(Config({}));
  files["a.frag"] = "";
  std::string fragment = "unset";
  std::string vertex;
  const std::string output = OutputOf([&] {
    World world(files);
    vertex = world.device.programs[Program::kDefault].vertex;
    fragment = world.device.programs[Program::kDefault].fragment;
  });
  EXPECT_EQ(CountOf(output, kShaderError), 1u);
  EXPECT_EQ(vertex, "vertex a");
  EXPECT_EQ(fragment, "");
}

TEST(CompileShader, FourProgramsWithoutSourcesAreReportedFourTimes) {
  EXPECT_EQ(CountOf(StartOutput({{kGraphicsConfigPath, Config({})}}), kShaderError), 4u);
}

TEST(CompileShader, AFolderInPlaceOfASourceIsReported) {
  World world(WithShaders(Config({})));
  std::filesystem::remove("a.vert");
  std::filesystem::create_directory("a.vert");
  EXPECT_EQ(CountOf(OutputOf([] { g_render_system->Init(); }), kShaderError), 1u);
}

TEST(CompileShader, AnEmptySourceIsReadSuccessfully) {
  World world(WithShaders(Config({})));
  world.Directory().Write("a.vert", "");
  EXPECT_EQ(CountOf(OutputOf([] { g_render_system->Init(); }), kShaderError), 0u);
}

// --- Textures ---

constexpr const char* kTextureError = "ERROR: Failed to load texture.\n";

TEST(LoadTextures, TheNumberIsThePositionAndTheKeyThePathWithoutRootAndEnding) {
  Files files =
      WithShaders(Config({"Resources/Textures/first.tga", "Resources/Textures/Units/Sheet_A.tga"}));
  files["Resources/Textures/first.tga"] = OnePixel(10, 20, 30);
  files["Resources/Textures/Units/Sheet_A.tga"] = OnePixel(40, 50, 60);
  World world(files);
  EXPECT_EQ(g_render_system->m_textures.at("first"), 0u);
  EXPECT_EQ(g_render_system->m_textures.at("Units/Sheet_A"), 1u);
  g_render_system->LoadTextures();
  EXPECT_EQ(world.device.textures.at(0).pixels, (std::vector<std::uint8_t>{10, 20, 30, 255}));
  EXPECT_EQ(world.device.textures.at(1).pixels, (std::vector<std::uint8_t>{40, 50, 60, 255}));
}

TEST(LoadTextures, APictureThatFailsIsReportedAndKeepsItsPositionFree) {
  Files files =
      WithShaders(Config({"Resources/Textures/absent.tga", "Resources/Textures/first.tga"}));
  files["Resources/Textures/first.tga"] = OnePixel(10, 20, 30);
  std::uint32_t number = 0;
  bool has_key = true;
  const std::string output = OutputOf([&] {
    World world(files);
    number = g_render_system->m_textures.at("first");
    has_key = g_render_system->m_textures.count("absent") != 0;
  });
  EXPECT_EQ(CountOf(output, kTextureError), 1u);
  EXPECT_EQ(number, 1u);
  EXPECT_FALSE(has_key);
}

TEST(LoadTextures, APathTooShortForAKeyIsReportedAndHasNone) {
  World world(WithShaders(Config({"x.tga", "", "Resources/Textures/tga"})));
  const std::string output = OutputOf([] { g_render_system->LoadTextures(); });
  EXPECT_EQ(CountOf(output, kTextureError), 3u);
  EXPECT_TRUE(g_render_system->m_textures.empty());
}

TEST(LoadTextures, ANameWithoutStemHasTheEmptyKey) {
  World world(WithShaders(Config({"Resources/Textures/.tga"})));
  world.Directory().Write("Resources/Textures/.tga", OnePixel(1, 2, 3));
  g_render_system->LoadTextures();
  EXPECT_EQ(g_render_system->m_textures.count(""), 1u);
}

TEST(LoadTextures, TwoPicturesOfOneKeyShowTheLast) {
  Files files = WithShaders(Config({"Resources/Textures/same.tga", "Resources/Textures/same.bmp"}));
  files["Resources/Textures/same.tga"] = OnePixel(1, 1, 1);
  files["Resources/Textures/same.bmp"] = OnePixel(2, 2, 2);
  World world(files);
  EXPECT_EQ(g_render_system->m_textures.at("same"), 1u);
}

TEST(LoadTextures, LoadingAgainForgetsTheKeysThatDrawingInserted) {
  Scene scene;
  scene.AddSprite("sprite", "misspelt");
  scene.Draw();
  ASSERT_EQ(scene.System().m_textures.count("misspelt"), 1u);
  scene.System().LoadTextures();
  EXPECT_TRUE(scene.System().m_textures.empty());
}

TEST(LoadTextures, AThousandAndTwentyFourAreAccepted) {
  World world;
  g_render_system->m_texture_paths.assign(1024, "Resources/Textures/x.tga");
  EXPECT_EQ(ReportOf([] { OutputOf([] { g_render_system->LoadTextures(); }); }), "");
}

TEST(LoadTextures, OneMoreIsReportedWithFileAndKey) {
  World world;
  g_render_system->m_texture_paths.assign(1025, "Resources/Textures/x.tga");
  const std::string report = ReportOf([] { g_render_system->LoadTextures(); });
  EXPECT_THAT(report, HasSubstr(kGraphicsConfigPath));
  EXPECT_THAT(report, HasSubstr("texPath"));
}

// --- Messages ---

TEST(RenderMessages, F5InvertsTheToggleAndOtherKeysDoNot) {
  World world;
  world.Send(KeyDown(116));
  EXPECT_FALSE(g_render_system->m_debug_toggle);
  world.Send(KeyDown(117));
  EXPECT_FALSE(g_render_system->m_debug_toggle);
  world.Send(KeyDown(116));
  EXPECT_TRUE(g_render_system->m_debug_toggle);
}

TEST(RenderMessages, TheSelectedUnitIsStored) {
  World world;
  SelectedUnit message;
  message.objectId = 17;
  g_render_system->SendMessage(&message);
  EXPECT_EQ(g_render_system->m_selected_id, 17);
}

TEST(RenderMessages, TheLevelsBackgroundIsStored) {
  World world;
  world.Send(LevelBG("Background_Other"));
  EXPECT_EQ(g_render_system->m_background_tex, "Background_Other");
}

TEST(RenderMessages, TheCameraModeIsStored) {
  World world;
  world.Send(SetCamera(3));
  EXPECT_EQ(g_render_system->m_camera_mode, 3);
}

TEST(RenderMessages, ALineIsStoredWithItsColourUnchanged) {
  World world;
  world.Send(DrawLine({1, 2, 3}, {4, 5, 6}, 7, 255, 128, 64, 32));
  ASSERT_EQ(g_render_system->m_lines.size(), 1u);
  const LineRecord& line = g_render_system->m_lines[0];
  EXPECT_EQ(line.start, Vector3D(1, 2, 3));
  EXPECT_EQ(line.end, Vector3D(4, 5, 6));
  EXPECT_EQ(line.width, 7.0f);
  EXPECT_EQ(line.colour, (Colour{255, 128, 64, 32}));
}

TEST(RenderMessages, OthersAreIgnored) {
  World world;
  world.Send(KeyUp(116));
  world.Send(MouseScroll(1));
  EXPECT_TRUE(g_render_system->m_debug_toggle);
  EXPECT_EQ(g_render_system->m_selected_id, -1);
}

// --- Frame ---

TEST(RenderUpdate, ExecutesThenPresentsOneFrameAStep) {
  World world;
  world.Step(3);
  EXPECT_EQ(world.device.executed, 3);
  EXPECT_EQ(world.device.presented, 3);
  EXPECT_EQ(world.device.frame_calls, (std::vector<std::string>{"Execute", "Present"}));
}

TEST(RenderUpdate, DrawsWhileTheEngineIsPaused) {
  World world;
  g_engine->paused = true;
  world.Step();
  EXPECT_EQ(world.device.presented, 1);
}

TEST(RenderUpdate, AMinimisedWindowIsNotDrawnButItsAnimationsGoOn) {
  Scene scene;
  Animation& animation = Of<Animation>(scene.AddAnimated("animated", "loop"));
  scene.world.Step();
  const int drawn = scene.world.device.executed;
  const float frame = animation.m_currStep;
  scene.world.native.minimised = true;
  scene.world.Step();
  EXPECT_EQ(scene.world.device.executed, drawn);
  EXPECT_EQ(scene.world.device.presented, drawn);
  EXPECT_NE(animation.m_currStep, frame);
  scene.world.native.minimised = false;
  scene.world.Step();
  EXPECT_EQ(scene.world.device.executed, drawn + 1);
}

TEST(RenderUpdate, ALiveToolsLayerPresentsItself) {
  World world;
  g_window_state.imguiLive = true;
  world.Step();
  g_window_state.imguiLive = false;
  EXPECT_EQ(world.device.executed, 1);
  EXPECT_EQ(world.device.presented, 0);
}

TEST(RenderUpdate, KeepsTheStepAndRecordsItsTime) {
  World world;
  ProfileTable().erase("Render");
  world.Step();
  EXPECT_EQ(g_render_system->m_dt, kStep);
  ASSERT_EQ(ProfileTable().count("Render"), 1u);
  EXPECT_TRUE(ProfileTable()["Render"].isSystemTime);
  EXPECT_GT(ProfileTable()["Render"].value, 0.0f);
}

TEST(RenderUpdate, ForgetsLinesAndContactsAtItsEnd) {
  World world;
  g_render_system->m_lines.push_back({});
  g_render_system->m_collided_ids.push_back(1);
  world.Step();
  EXPECT_TRUE(g_render_system->m_lines.empty());
  EXPECT_TRUE(g_render_system->m_collided_ids.empty());
}

TEST(RenderUpdate, StacksTilesInstancesHazardsWorldLinesInterfaceTimedLinesAndText) {
  Scene scene;
  // Made in the opposite order, since the passes decide and not the table.
  GameObj* camera = scene.AddCamera();
  scene.AddSprite("interface", "six", camera);
  scene.AddSprite("world", "five");
  scene.AddSprite("hazard", "three")->AddComponent<EnvironmentRough>();
  scene.AddParticle("four");
  GameObj* tile = scene.AddSprite("tile", "two");
  Of<Render>(tile).m_tile = true;
  scene.System().m_glyphs['a'] = {77, 8, 8, 0, 8, 640};
  GameObj* text = scene.AddObject("text", camera);
  text->AddComponent<Font>();
  Of<Font>(text).m_text = "a";
  scene.System().m_timed_lines.push_back({{}, {1.0f, 0.0f, 1.0f}, 2.0f, 1.0f, {}, 0.0f});
  scene.world.Send(DrawLine({}, {1.0f, 0.0f, 1.0f}, 3.0f, 1.0f, 1.0f, 1.0f, 1.0f));

  using DrawKind = DrawCommand::Kind;
  const std::vector<DrawCommand> draws = scene.Draw();
  ASSERT_EQ(draws.size(), 9u);
  EXPECT_EQ(draws[0].texture, 2u);
  EXPECT_EQ(draws[1].kind, DrawKind::kInstances);
  EXPECT_EQ(draws[2].texture, 3u);
  EXPECT_EQ(draws[3].texture, 5u);
  EXPECT_EQ(draws[4].texture, 4u);
  EXPECT_EQ(draws[5].placement.scale.x, 3.0f);
  EXPECT_EQ(draws[6].texture, 6u);
  EXPECT_EQ(draws[7].placement.scale.x, 2.0f);
  EXPECT_EQ(draws[8].kind, DrawKind::kText);
}

TEST(RenderUpdate, TheGroundIsTheBackgroundAndTheTiles) {
  Scene scene;
  scene.AddSprite("sprite", "one");
  for (int i = 0; i < 3; ++i) Of<Render>(scene.AddSprite("tile", "two")).m_tile = true;
  scene.Draw();
  EXPECT_EQ(scene.System().LastFrame().ground, 4u);
  scene.Draw();
  EXPECT_EQ(scene.System().LastFrame().ground, 4u) << "of each frame";
}

TEST(RenderUpdate, DepthsAndLayersDoNotSort) {
  Scene scene;
  GameObj* high = scene.AddSprite("high", "one");
  Of<Transform>(high).m_local_pos.z = 500.0f;
  Of<Render>(high).m_zLayer = 9.0f;
  scene.AddSprite("low", "two");
  EXPECT_EQ(scene.DrawTextures(), (std::vector<int>{1, 2}));
}

TEST(RenderUpdate, ASteadyPictureKeepsItsMemory) {
  Scene scene;
  for (int i = 0; i < 20; ++i) {
    GameObj* sprite = scene.AddSprite("sprite", "one");
    if (i % 2 == 0) Of<iModel>(sprite).m_vertices.resize(4);
    scene.AddAnimated("animated", "loop");
  }
  scene.Draw();
  const Frame& frame = scene.System().LastFrame();
  const auto memory = [&] {
    return std::vector<const void*>{frame.commands.data(), frame.vertices.data(),
                                    frame.indices.data()};
  };
  const std::vector<const void*> before = memory();
  scene.world.Step(10);
  EXPECT_EQ(memory(), before);
}

}  // namespace
}  // namespace carapace_test
