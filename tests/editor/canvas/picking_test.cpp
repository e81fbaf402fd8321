#include "editor/canvas/picking.h"

#include <gmock/gmock.h>

#include "editor/canvas/canvasstage.h"

namespace ZOVEngine {
namespace {

using ::testing::IsEmpty;

class PickingTest : public carapace_test::CanvasStage {
 protected:
  PickingTest() { index.Refresh(editor->document); }
  std::vector<std::string> NamesAt(float x, float y, PickDepth depth) {
    std::vector<std::string> names;
    for (const SceneEntry* entry :
         PickAt(index, editor->selection, Vector3D(x, y, 0.0f), 1.5f, depth)) {
      names.push_back(entry->object->name);
    }
    return names;
  }
  SceneIndex index;
};

TEST_F(PickingTest, EachTargetIsListedOnce) {
  EXPECT_EQ(NamesAt(-720.0f, 240.0f, PickDepth::kUnit), std::vector<std::string>{"player1"});
}

TEST_F(PickingTest, PartsAreListedFromTheTop) {
  const auto names = NamesAt(-720.0f, 240.0f, PickDepth::kPart);
  ASSERT_GT(names.size(), 1u);
  EXPECT_NE(names.front(), "player1");
}

TEST_F(PickingTest, TheBodyOfAUnitComesBeforeTheAimingLineOfAnother) {
  // The line of enemy1 reaches 700 units to its left.
  world.Find("player1")->GetComponent<Transform>()->m_local_pos = Vector3D(400.0f, 120.0f, 1.0f);
  world.Step();
  EXPECT_EQ(NamesAt(400.0f, 120.0f, PickDepth::kUnit),
            (std::vector<std::string>{"player1", "enemy1"}));
}

TEST_F(PickingTest, TheOneBelowTheLastIsTheFirst) {
  const SceneEntry* first = index.Find(Path("player1"));
  const SceneEntry* second = index.Find(Path("player2"));
  EXPECT_EQ(PickBelow({first, second}, first->path), second);
  EXPECT_EQ(PickBelow({first, second}, second->path), first);
  EXPECT_EQ(PickBelow({first, second}, {}), first);
  EXPECT_EQ(PickBelow({}, first->path), nullptr);
}

TEST_F(PickingTest, PaintIsNoTargetButAPart) {
  const Vector3D place = Place("decal");
  EXPECT_THAT(NamesAt(place.x, place.y, PickDepth::kUnit), IsEmpty());
  EXPECT_EQ(NamesAt(place.x, place.y, PickDepth::kPart), std::vector<std::string>{"decal"});
  editor->selection = {Path("decal")};
  EXPECT_EQ(NamesAt(place.x, place.y, PickDepth::kUnit), std::vector<std::string>{"decal"});
}

TEST_F(PickingTest, ABoxThatTouchesNothingPicksNothing) {
  const Vector3D from(-100.0f, -50.0f, 0.0f), to(100.0f, 50.0f, 0.0f);
  EXPECT_THAT(PickInBox(index, from, to, 1.5f), IsEmpty());
}

}  // namespace
}  // namespace ZOVEngine
