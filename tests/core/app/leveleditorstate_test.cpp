#include "core/app/leveleditorstate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/app/screens.h"
#include "core/messages.h"
#include "ui/screens/splashcontroller.h"

namespace ZOVEngine {
namespace {

using carapace_test::Record;
using ::testing::IsEmpty;

using LevelEditorStateTest = carapace_test::ScreenTest;

TEST_F(LevelEditorStateTest, EnteringLoadsNoObjects) {
  Enter(kLevelEditorState);
  EXPECT_EQ(g_state_machine->m_current, 4);
  EXPECT_THAT(g_game_obj_factory->m_objects, IsEmpty());
}

TEST_F(LevelEditorStateTest, BroadcastsReachNoController) {
  Enter(kLevelEditorState);
  world.LoadObjects(Record("stray", {{"SplashController", "{}"}}));
  world.Send(KeyUp(65));
  EXPECT_FALSE(world.Find("stray")->GetComponent<SplashController>()->m_first_done);
}

TEST_F(LevelEditorStateTest, LeavingItEntersTheNextScreen) {
  Enter(kLevelEditorState);
  Enter(kSplashState);
  EXPECT_NE(world.Find("splash"), nullptr);
}

}  // namespace
}  // namespace ZOVEngine
