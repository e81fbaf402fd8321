#include "editor/canvas/sceneindex.h"

#include <gmock/gmock.h>

#include "editor/canvas/canvasstage.h"

namespace ZOVEngine {
namespace {

class SceneIndexTest : public carapace_test::CanvasStage {
 protected:
  SceneIndexTest() { index.Refresh(editor->document); }
  SceneIndex index;
};

TEST_F(SceneIndexTest, IsMadeAnewOnlyWhenTheSceneIs) {
  EXPECT_FALSE(index.Refresh(editor->document));
  editor->Do(editor->scene.Delete({Path("player1")}));
  EXPECT_TRUE(index.Refresh(editor->document));
  EXPECT_FALSE(index.Refresh(editor->document));
}

TEST_F(SceneIndexTest, HasEveryObjectOfTheDocumentUnderItsPath) {
  for (const PlacedObject& placed : LevelObjects()) {
    if (!editor->document.Has(placed.path)) continue;
    const SceneEntry* entry = index.Find(placed.path);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->object, placed.object);
  }
  EXPECT_EQ(index.Find({99, 3}), nullptr);
}

TEST_F(SceneIndexTest, APartBelongsToTheUnitBelowTheLevelsRoot) {
  ObjectPath part = Path("player1");
  part.push_back(1);
  EXPECT_EQ(index.Entries()[index.Find(part)->unit].object, world.Find("player1"));
  EXPECT_TRUE(index.Find(Path("level"))->is_level);
  const SceneEntry* lamp = index.Find(Path("lamp"));
  EXPECT_EQ(index.Entries()[lamp->unit].object, lamp->object);
}

TEST_F(SceneIndexTest, TheInterfaceIsWhatStandsOnTheScreen) {
  EXPECT_TRUE(index.Find(Path("ui_skip"))->is_interface);
  EXPECT_TRUE(index.Find(Path("ui_strip_top"))->is_interface) << "a plain image, by its name";
  EXPECT_TRUE(index.Find(Path("ui_pause_resume"))->is_interface);
  EXPECT_FALSE(index.Find(Path("player1"))->is_interface);
  ObjectPath ring = Path("player1");
  ring.push_back(0);
  EXPECT_FALSE(index.Find(ring)->is_interface);
}

TEST_F(SceneIndexTest, PaintIsAPlainImageBeneathTheLevel) {
  EXPECT_TRUE(index.Find(Path("decal"))->is_paint);
  EXPECT_FALSE(index.Find(Path("lamp"))->is_paint) << "it has a light";
  EXPECT_FALSE(index.Find(Path("player1"))->is_paint);
  EXPECT_FALSE(index.Find(Path("ui_strip_top"))->is_paint);
}

TEST_F(SceneIndexTest, AllButTheLevelsRootMayBeDragged) {
  EXPECT_TRUE(index.Find(Path("player1"))->transform->CanBeDragged);
  EXPECT_FALSE(index.Find(Path("level"))->transform->CanBeDragged);
}

TEST_F(SceneIndexTest, ASelectedAncestorStandsForItsParts) {
  ObjectPath part = Path("player2");
  part.push_back(1);
  const auto topmost = index.SelectedTopmost({part, Path("player2"), Path("player1")});
  ASSERT_EQ(topmost.size(), 2u);
  EXPECT_EQ(topmost[0]->path, Path("player1"));
  EXPECT_EQ(topmost[1]->path, Path("player2"));
}

}  // namespace
}  // namespace ZOVEngine
