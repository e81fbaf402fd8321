#include "render/graphicsconfig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "jsonunserializer.h"
#include "render/graphicsfiles.h"
#include "support/scene.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;
using testing::HasSubstr;

TEST(GraphicsConfig, AnAbsentFileEndsTheProgramWithItsName) {
  World world;
  world.Directory().Write("gone", "");
  std::filesystem::remove(kGraphicsConfigPath);
  EXPECT_THAT(ReportOf([] { g_render_system->Init(); }),
              HasSubstr(std::string(kGraphicsConfigPath) + "file not found"));
}

TEST(GraphicsConfig, EachMissingKeyIsNamed) {
  const std::string output = StartOutput({{kGraphicsConfigPath, "{}"}});
  for (const char* key :
       {"texPath", "fontPath", "vshader", "fshader", "fontvshader", "fontfshader",
        "instancevshader", "instancefshader", "lightvshader", "lightfshader", "vsync"}) {
    EXPECT_THAT(output, HasSubstr(std::string("Cant find Key: ") + key + "\n"));
  }
}

TEST(GraphicsConfig, AMissingKeyLeavesTheMember) {
  Scene scene;
  RenderSystem& system = scene.System();
  system.m_texture_paths = {"kept"};
  system.m_font_path = "kept";
  system.m_light_shader.fragment_path = "kept";
  system.m_vsync = true;
  JsonDocument document;
  document.ParseText("{}", "settings");
  ReadGraphicsConfig(document.Root(), &system);
  EXPECT_EQ(system.m_texture_paths, (std::vector<std::string>{"kept"}));
  EXPECT_EQ(system.m_font_path, "kept");
  EXPECT_EQ(system.m_light_shader.fragment_path, "kept");
  EXPECT_TRUE(system.m_vsync);
}

TEST(GraphicsConfig, AMalformedFileIsAFileWithoutKeys) {
  EXPECT_THAT(StartOutput({{kGraphicsConfigPath, "{\"texPath\": ["}}),
              HasSubstr("Cant find Key: texPath\n"));
}

TEST(GraphicsConfig, AListOfTheWrongTypeIsReportedWithItsKey) {
  World world;
  world.Directory().Write(kGraphicsConfigPath, R"({"texPath": 7})");
  const std::string report = ReportOf([] { g_render_system->Init(); });
  EXPECT_THAT(report, HasSubstr(kGraphicsConfigPath));
  EXPECT_THAT(report, HasSubstr("texPath"));
}

TEST(GraphicsConfig, APathOfTheWrongTypeIsReportedWithItsKey) {
  World world;
  world.Directory().Write(kGraphicsConfigPath, R"({"texPath": ["a", 7]})");
  EXPECT_THAT(ReportOf([] { g_render_system->Init(); }), HasSubstr("texPath"));
}

TEST(GraphicsConfig, AFontOfTheWrongTypeIsReportedWithItsKey) {
  World world;
  world.Directory().Write(kGraphicsConfigPath, R"({"texPath": [], "fontPath": true})");
  EXPECT_THAT(ReportOf([] { g_render_system->Init(); }), HasSubstr("fontPath"));
}

TEST(GraphicsConfig, IsSavedWithItsKeysInTheirOrder) {
  World world(WithShaders(Config({"Resources/Textures/x.tga"})));
  std::filesystem::remove(kGraphicsConfigPath);
  EXPECT_TRUE(g_render_system->SaveGraphicsConfig());
  EXPECT_EQ(KeysOf(world.Directory().Read(kGraphicsConfigPath)),
            (std::vector<std::string>{"texPath", "fontPath", "vshader", "fshader", "fontvshader",
                                      "fontfshader", "instancevshader", "instancefshader",
                                      "lightvshader", "lightfshader", "vsync"}));
}

TEST(GraphicsConfig, WhatIsSavedReadsBackEqual) {
  World world(WithShaders(Config({"Resources/Textures/x.tga", "y"}, "some.ttf", true)));
  RenderSystem& system = *g_render_system;
  system.SaveGraphicsConfig();
  const std::vector<std::string> paths = system.m_texture_paths;
  system.m_texture_paths.clear();
  system.m_font_path.clear();
  system.m_light_shader.vertex_path.clear();
  system.m_vsync = false;
  JsonDocument document;
  document.Open(kGraphicsConfigPath);
  document.Parse();
  ReadGraphicsConfig(document.Root(), &system);
  EXPECT_EQ(system.m_texture_paths, paths);
  EXPECT_EQ(system.m_font_path, "some.ttf");
  EXPECT_EQ(system.m_light_shader.vertex_path, "d.vert");
  EXPECT_TRUE(system.m_vsync);
}

TEST(GraphicsConfig, AFolderThatIsGoneMakesSavingFail) {
  World world;
  std::filesystem::remove_all("Resources/Textures");
  EXPECT_FALSE(g_render_system->SaveGraphicsConfig());
}

}  // namespace
}  // namespace carapace_test
