#include "editor/canvas/pointer.h"

#include <gmock/gmock.h>

#include "editor/canvas/canvasstage.h"
#include "render/components/render.h"

namespace ZOVEngine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// player1 stands at (-720, 240), player2 at (-720, -240), enemy1 at (660, 120).
class PointerTest : public carapace_test::CanvasStage {};

TEST_F(PointerTest, AClickSelectsTheWholeUnit) {
  Click(-720.0f, 240.0f);
  EXPECT_THAT(editor->selection, ElementsAre(Path("player1")));
}

TEST_F(PointerTest, AClickOnEmptyGroundSelectsNothing) {
  Click(-720.0f, 240.0f);
  Click(0.0f, 0.0f);
  EXPECT_THAT(editor->selection, IsEmpty());
}

TEST_F(PointerTest, ALightIsPickedByItsFixture) {
  const Vector3D place = Place("lamp");
  Click(place.x + 40.0f, place.y);
  EXPECT_EQ(editor->Primary(), Path("lamp"));
}

TEST_F(PointerTest, AnObjectWithoutAnImageIsPickedByItsHandle) {
  world.Find("lamp")->GetComponent<Render>()->m_visible = false;
  const Vector3D place = Place("lamp");
  Click(place.x + 40.0f, place.y);
  EXPECT_THAT(editor->selection, IsEmpty());
  Click(place.x, place.y);
  EXPECT_EQ(editor->Primary(), Path("lamp"));
}

TEST_F(PointerTest, PaintIsPickedWithAltAndThenDragged) {
  const Vector3D place = Place("decal");
  Click(place.x, place.y);
  EXPECT_THAT(editor->selection, IsEmpty());
  ImGui::GetIO().KeyAlt = true;
  Click(place.x, place.y);
  EXPECT_EQ(editor->Primary(), Path("decal"));
  ImGui::GetIO().KeyAlt = false;
  Drag(place.x, place.y, place.x + 60.0f, place.y);
  EXPECT_EQ(Place("decal").x, place.x + 60.0f);
}

TEST_F(PointerTest, TheInterfaceIsNotPicked) {
  Click(-476.0f, 510.0f);
  EXPECT_THAT(editor->selection, IsEmpty());
}

TEST_F(PointerTest, AnElementOfTheInterfaceThatIsSelectedIsDragged) {
  const Vector3D place = Place("ui_skip");
  editor->selection = {Path("ui_skip")};
  Drag(place.x, place.y, place.x - 60.0f, place.y + 60.0f);
  EXPECT_NE(Place("ui_skip").x, place.x);
  EXPECT_EQ(editor->history.Size(), 1u);
}

TEST_F(PointerTest, ADoubleClickGoesDownToThePart) {
  DoubleClick(-720.0f, 303.0f);
  EXPECT_EQ(editor->Primary().size(), 3u);
  EXPECT_TRUE(IsWithin(editor->Primary(), Path("player1")));
}

TEST_F(PointerTest, AltGoesDownToThePart) {
  ImGui::GetIO().KeyAlt = true;
  Click(-720.0f, 303.0f);
  EXPECT_EQ(editor->Primary().size(), 3u);
}

TEST_F(PointerTest, ASecondClickOnTheSamePlaceSelectsTheOneBelow) {
  world.Find("player2")->GetComponent<Transform>()->m_local_pos = Place("player1");
  Frame();
  Click(-720.0f, 240.0f);
  EXPECT_EQ(PrimaryName(), "player2");
  Click(-720.0f, 240.0f);
  EXPECT_EQ(PrimaryName(), "player1");
  Click(-720.0f, 240.0f);
  EXPECT_EQ(PrimaryName(), "player2");
}

TEST_F(PointerTest, ShiftAddsAndRemoves) {
  Click(-720.0f, 240.0f);
  ImGui::GetIO().KeyShift = true;
  Click(-720.0f, -240.0f);
  EXPECT_THAT(editor->selection, ElementsAre(Path("player1"), Path("player2")));
  Click(-720.0f, 240.0f);
  EXPECT_THAT(editor->selection, ElementsAre(Path("player2")));
}

TEST_F(PointerTest, ABoxSelectsWhatItTouches) {
  Drag(-850.0f, 300.0f, -650.0f, -300.0f);
  EXPECT_THAT(editor->selection, ElementsAre(Path("player1"), Path("player2")));
  EXPECT_EQ(editor->history.Size(), 0u);
}

TEST_F(PointerTest, NothingIsPickedWhileTilesAreInHand) {
  editor->tiles_in_hand = true;
  Click(-720.0f, 240.0f);
  EXPECT_THAT(editor->selection, IsEmpty());
}

TEST_F(PointerTest, NothingIsPickedThroughAPanel) {
  panel_width = 500.0f;
  Frame();
  Click(-720.0f, 240.0f);
  EXPECT_THAT(editor->selection, IsEmpty());
}

TEST_F(PointerTest, ADragOverSeveralStepsIsOneGesture) {
  const std::string before = Text();
  Drag(-720.0f, 240.0f, -620.0f, 140.0f);
  EXPECT_EQ(editor->history.Size(), 1u);
  EXPECT_EQ(editor->history.Label(0), "Move player1");
  const std::string after = Text();
  EXPECT_NE(after, before);
  editor->Undo();
  EXPECT_EQ(Text(), before);
  EXPECT_EQ(Place("player1").x, -720.0f);
  editor->Redo();
  EXPECT_EQ(Text(), after);
}

TEST_F(PointerTest, ADragSnapsToHalfTiles) {
  Drag(-720.0f, 240.0f, -611.0f, 251.0f);
  EXPECT_EQ(Place("player1").x, -600.0f);
  EXPECT_EQ(Place("player1").y, 240.0f);
}

TEST_F(PointerTest, AltAndTheSwitchLeaveTheMouseFree) {
  editor->snap = false;
  Drag(-720.0f, 240.0f, -609.0f, 252.0f);
  EXPECT_NEAR(Place("player1").x, -609.0f, 0.01f);
  editor->snap = true;
  Drag(-609.0f, 252.0f, -507.0f, 303.0f, false);
  ImGui::GetIO().KeyAlt = true;
  Frame();
  Release();
  EXPECT_NEAR(Place("player1").x, -507.0f, 0.01f);
}

TEST_F(PointerTest, EscapeTakesADragBackAndLeavesTheSelection) {
  const std::string before = Text();
  Drag(-720.0f, 240.0f, -600.0f, 0.0f, false);
  EXPECT_NE(Place("player1").x, -720.0f);
  Tap(Key::kEscape);
  Release();
  EXPECT_EQ(Place("player1").x, -720.0f);
  EXPECT_EQ(Text(), before);
  EXPECT_EQ(editor->history.Size(), 0u);
  EXPECT_THAT(editor->selection, SizeIs(1));
}

TEST_F(PointerTest, TheRightButtonTakesADragBack) {
  Drag(-720.0f, 240.0f, -600.0f, 0.0f, false);
  ImGui::GetIO().MouseDown[1] = true;
  Frame();
  ImGui::GetIO().MouseDown[1] = false;
  Release();
  EXPECT_EQ(Place("player1").x, -720.0f);
  EXPECT_EQ(editor->history.Size(), 0u);
}

TEST_F(PointerTest, ADragMayEndOutsideThePicture) {
  Drag(-720.0f, 240.0f, -1200.0f, 900.0f);
  EXPECT_EQ(editor->history.Size(), 1u);
  EXPECT_EQ(Place("player1").x, -1200.0f);
}

TEST_F(PointerTest, ADragMayEndOverAPanel) {
  panel_width = 300.0f;
  Frame();
  Drag(-720.0f, 240.0f, -930.0f, 240.0f);
  EXPECT_EQ(editor->history.Size(), 1u);
  EXPECT_EQ(Place("player1").x, -930.0f);
}

TEST_F(PointerTest, AllSelectedObjectsMoveTogether) {
  editor->selection = {Path("player1"), Path("player2")};
  Drag(-720.0f, 240.0f, -660.0f, 270.0f);
  EXPECT_EQ(Place("player1").x, -660.0f);
  EXPECT_EQ(Place("player2").x, -660.0f);
  EXPECT_EQ(Place("player2").y, -210.0f);
  EXPECT_EQ(editor->history.Size(), 1u);
}

TEST_F(PointerTest, AChildOfASelectedObjectIsMovedOnceOnly) {
  ObjectPath child = Path("player1");
  child.push_back(1);
  const Vector3D before = ObjectAt(child)->GetComponent<Transform>()->m_local_pos;
  editor->selection = {child, Path("player1")};
  Drag(-720.0f, 240.0f, -660.0f, 240.0f);
  EXPECT_EQ(Place("player1").x, -660.0f);
  EXPECT_EQ(ObjectAt(child)->GetComponent<Transform>()->m_local_pos, before);
}

TEST_F(PointerTest, AChildOfATurnedObjectFollowsTheMouse) {
  ObjectPath child = Path("player1");
  child.push_back(1);
  editor->snap = false;
  world.Find("player1")->GetComponent<Transform>()->m_local_rotate = 90.0f;
  Frame();
  const auto* transform = ObjectAt(child)->GetComponent<Transform>();
  const Vector3D from = transform->m_world_pos;
  editor->selection = {child};
  Drag(from.x, from.y, from.x + 60.0f, from.y + 30.0f);
  EXPECT_NEAR(transform->m_world_pos.x, from.x + 60.0f, 0.1f);
  EXPECT_NEAR(transform->m_world_pos.y, from.y + 30.0f, 0.1f);
}

TEST_F(PointerTest, AnObjectThatMayNotBeDraggedStays) {
  Frame();
  world.Find("player1")->GetComponent<Transform>()->CanBeDragged = false;
  Drag(-720.0f, 240.0f, -600.0f, 240.0f);
  EXPECT_EQ(Place("player1").x, -720.0f);
  EXPECT_THAT(editor->selection, SizeIs(1));
}

TEST_F(PointerTest, ADragOfADeletedObjectIsOver) {
  Drag(-720.0f, 240.0f, -600.0f, 240.0f, false);
  editor->Do(editor->scene.Delete({Path("player1")}));
  const std::string deleted = Text();
  MouseAt(-500.0f, 240.0f);
  Release();
  EXPECT_EQ(Text(), deleted);
  EXPECT_EQ(editor->history.Size(), 1u);
}

TEST_F(PointerTest, ADragEndsWhenTheSceneIsBuiltAnew) {
  const std::string before = Text();
  Drag(-720.0f, 240.0f, -600.0f, 240.0f, false);
  ASSERT_TRUE(editor->Save());
  MouseAt(-500.0f, 240.0f);
  Release();
  EXPECT_EQ(Text(), before);
  EXPECT_EQ(Place("player1").x, -720.0f);
  EXPECT_EQ(editor->history.Size(), 0u);
}

TEST_F(PointerTest, AnArrowMovesAlongItsAxisOnly) {
  Click(-720.0f, 240.0f);
  Drag(-660.0f, 240.0f, -540.0f, 360.0f);
  EXPECT_EQ(Place("player1").x, -600.0f);
  EXPECT_EQ(Place("player1").y, 240.0f);
}

TEST_F(PointerTest, TheRingTurnsInStepsOfFifteenDegrees) {
  g_editor.m_edit_mode = EDIT_ROTATE;
  auto* transform = world.Find("player1")->GetComponent<Transform>();
  transform->m_local_rotate = 0.0f;
  Click(-720.0f, 240.0f);
  Drag(-648.0f, 240.0f, -720.0f, 320.0f);
  EXPECT_EQ(transform->m_local_rotate, 90.0f);
  EXPECT_EQ(Place("player1").x, -720.0f);
  EXPECT_EQ(editor->history.Label(0), "Turn player1");
}

TEST_F(PointerTest, ACornerScalesWidthAndHeightAlikeInTenths) {
  g_editor.m_edit_mode = EDIT_SCALE;
  auto* transform = world.Find("player1")->GetComponent<Transform>();
  transform->m_local_rotate = 0.0f;
  Click(-720.0f, 240.0f);
  Drag(-675.0f, 285.0f, -630.0f, 330.0f);
  EXPECT_FLOAT_EQ(transform->m_local_scale.x, 180.0f);
  EXPECT_FLOAT_EQ(transform->m_local_scale.y, 180.0f);
  EXPECT_EQ(transform->m_local_scale.z, 1.0f);
  EXPECT_EQ(editor->history.Label(0), "Scale player1");
}

TEST_F(PointerTest, TwoObjectsTurnAboutTheirMiddle) {
  g_editor.m_edit_mode = EDIT_ROTATE;
  editor->selection = {Path("player1"), Path("player2")};
  Frame();
  Drag(-720.0f, 240.0f, -960.0f, 0.0f);
  EXPECT_NEAR(Place("player1").x, -960.0f, 0.01f);
  EXPECT_NEAR(Place("player1").y, 0.0f, 0.01f);
  EXPECT_NEAR(Place("player2").x, -480.0f, 0.01f);
}

}  // namespace
}  // namespace ZOVEngine
