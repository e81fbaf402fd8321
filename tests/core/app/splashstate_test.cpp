#include "core/app/splashstate.h"

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

using SplashStateTest = carapace_test::ScreenTest;

TEST_F(SplashStateTest, EnteringLoadsTheSplashScreenAndItsBackground) {
  world.Directory().Write("Level Editor/Levels/SplashScreen/SplashScreen.json",
                          R"({"Objects": "Level Editor/Levels/SplashScreen/Entity/Units.json",
                              "Background": "Dark"})");
  Enter(kMainMenuState);
  Enter(kSplashState);
  EXPECT_EQ(GetState<SplashState>(5).m_path, "Level Editor/Levels/SplashScreen/SplashScreen.json");
  EXPECT_NE(world.Find("splash"), nullptr);
  EXPECT_EQ(g_game_obj_factory->m_objects.size(), 1u);
  EXPECT_EQ(g_render_system->m_background_tex, "Dark");
}

TEST_F(SplashStateTest, BroadcastsReachTheSplashController) {
  world.Send(KeyUp(65));
  EXPECT_TRUE(world.Find("splash")->GetComponent<SplashController>()->m_first_done);
}

TEST_F(SplashStateTest, BroadcastsReachNoControllerOfAnotherScreen) {
  OutputOf([&] { world.LoadObjects(Record("level", {{"GameController", "{}"}})); });
  EXPECT_EQ(world.Send(CurrGC()).objectId, 0u);
}

}  // namespace
}  // namespace ZOVEngine
