#include "core/app/loadscreen.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "render/rendersystem.h"
#include "support/reports.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::Files;
using carapace_test::OutputOf;
using carapace_test::Record;
using carapace_test::ReportOf;
using carapace_test::World;
using ::testing::HasSubstr;

TEST(LoadScreen, LoadsTheObjectsAndStoresTheBackground) {
  World world(Files{{"screen.json", R"({"Objects": "objects.json", "Background": "Nebula"})"},
                    {"objects.json", "{\"GameObjFactory\": [" + Record("first", {}) + "]}"}});
  LoadScreen("screen.json");
  EXPECT_NE(world.Find("first"), nullptr);
  EXPECT_EQ(g_render_system->m_background_tex, "Nebula");
}

TEST(LoadScreen, IsSeenFromTheOriginWhereverALevelWasSeenFrom) {
  World world(Files{{"screen.json", R"({"Objects": "objects.json", "Background": "Nebula"})"},
                    {"objects.json", R"({"GameObjFactory": []})"}});
  g_render_system->m_view_translate = Vector3D(-120.0f, 12.0f, 45.0f);
  LoadScreen("screen.json");
  EXPECT_EQ(g_render_system->m_view_translate, Vector3D());
}

TEST(LoadScreen, KeysOfLevelsThatAScreenDoesNotUseAreIgnored) {
  World world(
      Files{{"screen.json",
             R"({"TileMap": 5, "BGM": [], "Background": "Nebula", "Objects": "objects.json"})"},
            {"objects.json", R"({"GameObjFactory": []})"}});
  EXPECT_EQ(OutputOf([] { LoadScreen("screen.json"); }), "");
}

TEST(LoadScreen, AMissingBackgroundIsPrintedAndIsEmpty) {
  World world(Files{{"screen.json", R"({"Objects": "objects.json"})"},
                    {"objects.json", R"({"GameObjFactory": []})"}});
  EXPECT_EQ(OutputOf([] { LoadScreen("screen.json"); }), "Cant find Key: Background\n");
  EXPECT_EQ(g_render_system->m_background_tex, "");
}

TEST(LoadScreen, MissingObjectsArePrintedAndThenMissedAsAFile) {
  World world(Files{{"screen.json", R"({"Background": "Nebula"})"}});
  std::string report;
  const std::string output =
      OutputOf([&] { report = ReportOf([] { LoadScreen("screen.json"); }); });
  EXPECT_EQ(output, "Cant find Key: Objects\n");
  EXPECT_THAT(report, HasSubstr("file not found"));
}

TEST(LoadScreen, TheBackgroundAloneLeavesTheObjectsOut) {
  World world(Files{{"level.json", R"({"Objects": "objects.json", "Background": "Nebula"})"},
                    {"objects.json", "{\"GameObjFactory\": [" + Record("first", {}) + "]}"}});
  ShowBackground("level.json");
  EXPECT_EQ(g_render_system->m_background_tex, "Nebula");
  EXPECT_EQ(world.Find("first"), nullptr);
}

TEST(LoadScreen, AMissingScreenIsReported) {
  World world;
  EXPECT_THAT(ReportOf([] { LoadScreen("nowhere.json"); }),
              HasSubstr("nowhere.jsonfile not found"));
}

}  // namespace
}  // namespace ZOVEngine
