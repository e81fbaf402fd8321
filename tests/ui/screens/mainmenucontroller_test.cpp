#include "ui/screens/mainmenucontroller.h"

#include <gtest/gtest.h>

#include "core/app/screens.h"
#include "core/messages.h"
#include "support/reports.h"

namespace ZOVEngine {
namespace {

using carapace_test::Record;
using carapace_test::RecordOf;

using MainMenuControllerTest = carapace_test::ScreenTest;

TEST_F(MainMenuControllerTest, IsReadAndWrittenWithoutKeys) {
  world.LoadObjects(Record("root", {{"MainMenuController", "{}"}}));
  EXPECT_EQ(RecordOf(*world.Find("root")->GetComponent<MainMenuController>()), "{}");
}

TEST_F(MainMenuControllerTest, AKeyLeavesTheMenuOnItsScreen) {
  Enter(kMainMenuState);
  world.LoadObjects(Record("root", {{"MainMenuController", "{}"}}));
  world.Send(KeyUp(13));
  world.Step();
  EXPECT_EQ(g_state_machine->m_current, kMainMenuState);
  EXPECT_NE(world.Find("menu"), nullptr);
}

}  // namespace
}  // namespace ZOVEngine
