#include "core/app/defaultstate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/app/screens.h"
#include "core/messages.h"
#include "render/rendersystem.h"
#include "support/reports.h"
#include "ui/screens/splashcontroller.h"

namespace ZOVEngine {
namespace {

using carapace_test::Named;
using carapace_test::ObjectFile;
using carapace_test::OutputOf;
using carapace_test::Record;
using carapace_test::ReportOf;
using ::testing::HasSubstr;

using DefaultStateTest = carapace_test::ScreenTest;

TEST_F(DefaultStateTest, ALevelLoadsItsObjectsAndNotItsBackground) {
  g_render_system->m_background_tex = "Before";
  Enter(kDefaultState);
  EXPECT_NE(world.Find("level"), nullptr);
  EXPECT_EQ(g_game_obj_factory->m_objects.size(), 1u);
  EXPECT_EQ(g_render_system->m_background_tex, "Before");
  EXPECT_EQ(GetState<DefaultState>(0).m_tileMapPath, "map");
  EXPECT_EQ(GetState<DefaultState>(0).m_objectsPath, "level-objects.json");
}

TEST_F(DefaultStateTest, TheCurrentLevelPathChoosesTheLevel) {
  EXPECT_EQ(g_current_level_path, "Level Editor/Levels/Level01/Level01.json");
  world.Directory().Write("other.json", R"({"TileMap": "m", "Objects": "other-objects.json"})");
  world.Directory().Write("other-objects.json", ObjectFile(Named("other")));
  g_current_level_path = "other.json";
  ChangeState(kDefaultState, "ignored.json");
  world.Step();
  EXPECT_NE(world.Find("other"), nullptr);
}

TEST_F(DefaultStateTest, AKeyThatALevelLacksIsPrintedAndKeepsTheString) {
  Enter(kDefaultState);
  world.Directory().Write("bare.json", "{}");
  g_current_level_path = "bare.json";
  ChangeState(kReenterState, "");
  const std::string output = OutputOf([&] { world.Step(); });
  EXPECT_THAT(output, HasSubstr("Cant find Key: TileMap\nCant find Key: Objects\n"));
  EXPECT_EQ(GetState<DefaultState>(0).m_tileMapPath, "map");
  EXPECT_NE(world.Find("level"), nullptr) << "the objects path of the level before";
}

TEST_F(DefaultStateTest, AMissingLevelFileIsReported) {
  g_current_level_path = "nowhere.json";
  ChangeState(kDefaultState, "");
  EXPECT_THAT(ReportOf([&] { world.Step(); }), HasSubstr("nowhere.jsonfile not found"));
}

TEST_F(DefaultStateTest, BroadcastsReachTheTurnController) {
  Enter(kDefaultState);
  OutputOf([&] { world.LoadObjects(Record("controller", {{"GameController", "{}"}})); });
  EXPECT_EQ(world.Send(CurrGC()).objectId, world.Find("controller")->id);
}

TEST_F(DefaultStateTest, BroadcastsDoNotReachTheSplashScreensController) {
  Enter(kDefaultState);
  world.LoadObjects(Record("stray", {{"SplashController", "{}"}}));
  world.Send(KeyUp(65));
  EXPECT_FALSE(world.Find("stray")->GetComponent<SplashController>()->m_first_done);
}

}  // namespace
}  // namespace ZOVEngine
