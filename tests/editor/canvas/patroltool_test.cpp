#include "editor/canvas/patroltool.h"

#include <gmock/gmock.h>

#include "editor/canvas/canvasstage.h"
#include "game/units/enemy.h"

namespace ZOVEngine {
namespace {

using ::testing::SizeIs;

/// enemy1 stands at (660, 120), the last of its waypoints (660, 360) and (660, 120).
class PatrolToolTest : public carapace_test::CanvasStage {
 protected:
  const std::vector<Vector3D>& Waypoints() const {
    return world.Find("enemy1")->GetComponent<Enemy>()->m_waypoints;
  }
};

TEST_F(PatrolToolTest, AWaypointIsDraggedAsOneGesture) {
  const std::string before = Text();
  Drag(660.0f, 360.0f, 545.0f, 300.0f);
  EXPECT_EQ(Waypoints()[0].x, 540.0f);
  EXPECT_EQ(Waypoints()[0].y, 300.0f);
  EXPECT_EQ(editor->history.Size(), 1u);
  const std::string after = Text();
  EXPECT_NE(after, before);
  editor->Undo();
  EXPECT_EQ(Text(), before);
  EXPECT_EQ(Waypoints()[0].x, 660.0f);
  editor->Redo();
  EXPECT_EQ(Text(), after);
}

TEST_F(PatrolToolTest, EscapeTakesTheDragBack) {
  Drag(660.0f, 360.0f, 545.0f, 300.0f, false);
  Tap(Key::kEscape);
  Release();
  EXPECT_EQ(Waypoints()[0].x, 660.0f);
  EXPECT_EQ(editor->history.Size(), 0u);
}

TEST_F(PatrolToolTest, ADoubleClickOnALegAddsAWaypoint) {
  DoubleClick(662.0f, 240.0f);
  ASSERT_THAT(Waypoints(), SizeIs(3));
  EXPECT_EQ(Waypoints()[0].y, 240.0f);
  EXPECT_EQ(Waypoints()[1].y, 360.0f);
  EXPECT_EQ(editor->history.Size(), 1u);
}

TEST_F(PatrolToolTest, DeleteOverAWaypointRemovesItAndNotTheSelection) {
  editor->selection = {Path("player1")};
  MouseAt(660.0f, 360.0f);
  Tap(Key::kDelete);
  EXPECT_THAT(Waypoints(), SizeIs(1));
  EXPECT_NE(world.Find("player1"), nullptr);
}

TEST_F(PatrolToolTest, ControlAndADoubleClickEndThePathThere) {
  editor->selection = {Path("enemy1")};
  ImGui::GetIO().KeyCtrl = true;
  DoubleClick(300.0f, 0.0f);
  ASSERT_THAT(Waypoints(), SizeIs(3));
  EXPECT_EQ(Waypoints()[2].x, 300.0f);
}

TEST_F(PatrolToolTest, AnEnemyOnItsWaypointHasTheMouseUnlessControlIsHeld) {
  Drag(660.0f, 120.0f, 600.0f, 120.0f);
  EXPECT_EQ(Place("enemy1").x, 600.0f);
  EXPECT_EQ(Waypoints()[1].x, 660.0f);
  editor->Undo();
  Frame();
  ImGui::GetIO().KeyCtrl = true;
  Drag(660.0f, 120.0f, 600.0f, 120.0f);
  EXPECT_EQ(Place("enemy1").x, 660.0f);
  EXPECT_EQ(Waypoints()[1].x, 600.0f);
}

TEST_F(PatrolToolTest, AHiddenPathHasNoWaypointsToDrag) {
  editor->overlays.patrols = false;
  Drag(660.0f, 360.0f, 540.0f, 300.0f);
  EXPECT_EQ(Waypoints()[0].x, 660.0f);
}

TEST_F(PatrolToolTest, ARebuildEndsTheDragOfAWaypoint) {
  const std::string before = Text();
  Drag(660.0f, 360.0f, 540.0f, 300.0f, false);
  ASSERT_TRUE(editor->Save());
  MouseAt(500.0f, 300.0f);
  Release();
  EXPECT_EQ(Text(), before);
  EXPECT_EQ(Waypoints()[0].x, 660.0f);
}

}  // namespace
}  // namespace ZOVEngine
