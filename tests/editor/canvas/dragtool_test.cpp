#include "editor/canvas/dragtool.h"

#include "editor/canvas/canvasstage.h"

namespace ZOVEngine {
namespace {

class DragToolTest : public carapace_test::CanvasStage {
 protected:
  DragToolTest() { index.Refresh(editor->document); }
  bool Begin(const Selection& selection, Handle handle, std::uint32_t mode) {
    return drag.Begin(index.SelectedTopmost(selection), handle, mode,
                      Vector3D(-720.0f, 300.0f, 0.0f), {});
  }
  Transform& PlaceOf(const std::string& name) {
    return *world.Find(name)->GetComponent<Transform>();
  }
  SceneIndex index;
  DragTool drag;
};

TEST_F(DragToolTest, StepsAreCountedFromTheBeginning) {
  ASSERT_TRUE(Begin({Path("player1")}, Handle::kBody, EDIT_MOVE));
  for (int i = 0; i < 1000; ++i) drag.Update(Vector3D(0.1f, 0.7f, 0.0f), SnapGrid());
  drag.Update(Vector3D(-720.0f, 300.0f, 0.0f), SnapGrid());
  drag.End(*editor);
  EXPECT_EQ(editor->history.Size(), 0u);
}

TEST_F(DragToolTest, AnEdgeScalesOneSideOnly) {
  ASSERT_TRUE(Begin({Path("player1")}, Handle::kHorizontalEdge, EDIT_SCALE));
  drag.Update(Vector3D(-720.0f, 360.0f, 0.0f), SnapGrid(60.0f));
  EXPECT_EQ(PlaceOf("player1").m_local_scale.x, 90.0f);
  EXPECT_EQ(PlaceOf("player1").m_local_scale.y, 180.0f);
  EXPECT_EQ(drag.Measure(), "x 2.00");
}

TEST_F(DragToolTest, AnAngleStaysWithinHalfATurn) {
  PlaceOf("player1").m_local_rotate = 170.0f;
  ASSERT_TRUE(Begin({Path("player1")}, Handle::kRing, EDIT_ROTATE));
  drag.Update(Vector3D(-780.0f, 240.0f, 0.0f), SnapGrid());
  EXPECT_NEAR(PlaceOf("player1").m_local_rotate, -100.0f, 0.01f);
}

TEST_F(DragToolTest, NothingSelectedIsNoDrag) {
  EXPECT_FALSE(Begin({}, Handle::kBody, EDIT_MOVE));
  EXPECT_FALSE(drag.IsOpen());
}

TEST_F(DragToolTest, ANudgeOfNothingIsNoGesture) {
  Nudge(*editor, {}, 30.0f, 0.0f);
  EXPECT_EQ(editor->history.Size(), 0u);
}

}  // namespace
}  // namespace ZOVEngine
