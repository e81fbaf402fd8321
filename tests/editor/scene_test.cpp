#include "editor/scene.h"

#include <gtest/gtest.h>

#include "core/engine.h"
#include "core/statemachine.h"
#include "editor/editordata.h"
#include "editor/editortest.h"
#include "editor/leveldocument.h"
#include "editor/objectpath.h"
#include "game/levels/levelsave.h"
#include "objects/gameobjfactory.h"
#include "render/rendersystem.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::ShippedFile;
using carapace_test::World;

class EditorSceneTest : public ::testing::TestWithParam<const char*> {
 protected:
  EditorSceneTest() : m_world(World::ShippedFiles()) {
    ChangeState(kLevelEditorState, "");
    m_world.Step();
  }
  ~EditorSceneTest() override { g_editor = EditorData(); }

  void Open(const std::string& level) {
    const LevelPaths paths(level);
    ASSERT_TRUE(m_document.SetText(ShippedFile(paths.objects)));
    BuildScene(m_document, ShippedFile(paths.tiles));
  }

  LevelDocument m_document;
  World m_world;
};

TEST_P(EditorSceneTest, AnOpenLevelHasAnObjectForEveryRecordAtItsPath) {
  Open(GetParam());
  const std::vector<PlacedObject> objects = LevelObjects();
  ASSERT_GT(objects.size(), 50u);
  for (const PlacedObject& placed : objects) {
    EXPECT_EQ(m_document.Name(placed.path), placed.object->name);
    EXPECT_EQ(PathTo(placed.object), placed.path);
  }
}

TEST_P(EditorSceneTest, TilesStayAsTheyAreWhileStepsGoBy) {
  Open(GetParam());
  const std::string before = TilesText();
  m_world.Step(30);
  EXPECT_EQ(TilesText(), before);
  BuildScene(m_document, before);
  EXPECT_EQ(TilesText(), before);
}

INSTANTIATE_TEST_SUITE_P(All, EditorSceneTest,
                         ::testing::Values("Level00", "Level01", "Level02", "Level03", "Level04"));

class StillSceneTest : public carapace_test::EditorTest {
 protected:
  StillSceneTest() : EditorTest("Level04") {}
};

TEST_F(StillSceneTest, ALevelThatIsEditedStandsStill) {
  ASSERT_TRUE(editor->Open("Level04"));
  world.Step(30);
  EXPECT_TRUE(g_render_system->LastFrame().instances.empty()) << "no particle is born";
}

}  // namespace
}  // namespace ZOVEngine
