#include "editor/canvas/handles.h"

#include "editor/canvas/canvasstage.h"

namespace ZOVEngine {
namespace {

class HandlesTest : public carapace_test::CanvasStage {
 protected:
  HandlesTest() {
    auto* transform = world.Find("player1")->GetComponent<Transform>();
    transform->m_local_rotate = 0.0f;
    transform->DeriveWorld();
    index.Refresh(editor->document);
  }
  /// The handle of player1, which stands at (-720, 240) and is 90 units wide, at an offset from it.
  Handle At(std::uint32_t mode, float x, float y) {
    const Handles handles(index.Selected({Path("player1")}), mode, CanvasView());
    return handles.At(Vector3D(-720.0f + x, 240.0f + y, 0.0f));
  }
  SceneIndex index;
};

TEST_F(HandlesTest, ArrowsAreThereToMove) {
  EXPECT_EQ(At(EDIT_MOVE, 60.0f, 0.0f), Handle::kAxisX);
  EXPECT_EQ(At(EDIT_MOVE, 0.0f, 60.0f), Handle::kAxisY);
  EXPECT_EQ(At(EDIT_MOVE, 0.0f, 0.0f), Handle::kNone);
}

TEST_F(HandlesTest, ARingIsThereToTurn) {
  EXPECT_EQ(At(EDIT_ROTATE, 0.0f, -72.0f), Handle::kRing);
  EXPECT_EQ(At(EDIT_ROTATE, 0.0f, -40.0f), Handle::kNone);
}

TEST_F(HandlesTest, SquaresAreThereToScale) {
  EXPECT_EQ(At(EDIT_SCALE, 45.0f, -45.0f), Handle::kCorner);
  EXPECT_EQ(At(EDIT_SCALE, -45.0f, 0.0f), Handle::kVerticalEdge);
  EXPECT_EQ(At(EDIT_SCALE, 0.0f, 45.0f), Handle::kHorizontalEdge);
}

TEST_F(HandlesTest, SeveralObjectsHaveCornersOnly) {
  const Handles handles(index.Selected({Path("player1"), Path("player2")}), EDIT_SCALE,
                        CanvasView());
  EXPECT_EQ(handles.At(Vector3D(-675.0f, 0.0f, 0.0f)), Handle::kNone);
  EXPECT_EQ(handles.At(Vector3D(-675.0f, 285.0f, 0.0f)), Handle::kCorner);
}

TEST_F(HandlesTest, WithoutObjectsThereAreNone) {
  EXPECT_EQ(Handles({}, EDIT_MOVE, CanvasView()).At(Vector3D()), Handle::kNone);
}

}  // namespace
}  // namespace ZOVEngine
