#include "core/app/mainmenustate.h"

#include <gtest/gtest.h>

#include "core/app/screens.h"
#include "core/messages.h"
#include "game/turns/gamecontroller.h"
#include "render/rendersystem.h"
#include "support/reports.h"
#include "ui/screens/splashcontroller.h"

namespace ZOVEngine {
namespace {

using carapace_test::OutputOf;
using carapace_test::Record;

using MainMenuStateTest = carapace_test::ScreenTest;

TEST_F(MainMenuStateTest, EnteringLoadsTheMenuAndItsBackground) {
  world.Directory().Write("Level Editor/Levels/MainMenu/MainMenu.json",
                          R"({"Objects": "Level Editor/Levels/MainMenu/Entity/Units.json",
                              "Background": "Night"})");
  Enter(kMainMenuState);
  EXPECT_EQ(GetState<MainMenuState>(3).m_path, "Level Editor/Levels/MainMenu/MainMenu.json");
  EXPECT_NE(world.Find("menu"), nullptr);
  EXPECT_EQ(g_game_obj_factory->m_objects.size(), 1u);
  EXPECT_EQ(g_render_system->m_background_tex, "Night");
}

TEST_F(MainMenuStateTest, BroadcastsReachNoControllerOfAnotherScreen) {
  Enter(kMainMenuState);
  OutputOf([&] {
    world.LoadObjects(Record("stray", {{"SplashController", "{}"}}) + "," +
                      Record("level", {{"GameController", "{}"}}));
  });
  world.Send(KeyUp(65));
  EXPECT_FALSE(world.Find("stray")->GetComponent<SplashController>()->m_first_done);
  EXPECT_EQ(world.Send(CurrGC()).objectId, 0u);
}

}  // namespace
}  // namespace ZOVEngine
