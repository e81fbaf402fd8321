#include "editor/canvas/clipboard.h"

#include "editor/canvas/canvasstage.h"

namespace ZOVEngine {
namespace {

class ClipboardTest : public carapace_test::CanvasStage {
 protected:
  ClipboardTest() { index.Refresh(editor->document); }
  void Copy(const Selection& selection) {
    clipboard.Copy(*editor, index.SelectedTopmost(selection));
  }
  SceneIndex index;
  Clipboard clipboard;
};

TEST_F(ClipboardTest, ACopyOfNothingKeepsWhatWasCopied) {
  Copy({Path("player1")});
  Copy({});
  EXPECT_FALSE(clipboard.IsEmpty());
}

TEST_F(ClipboardTest, TheLevelsRootIsNotCopied) {
  Copy({Path("level")});
  EXPECT_TRUE(clipboard.IsEmpty());
}

TEST_F(ClipboardTest, AnEmptyClipboardPastesNothing) {
  clipboard.Paste(*editor, index, Vector3D());
  EXPECT_EQ(editor->history.Size(), 0u);
}

TEST_F(ClipboardTest, ACopyDiffersFromItsOriginalInItsPlaceOnly) {
  Copy({Path("player1")});
  const std::string original = editor->document.Fields(Path("player1"), "Player");
  clipboard.Paste(*editor, index, Vector3D(33.0f, 44.0f, 0.0f));
  const ObjectPath copy = editor->Primary();
  EXPECT_EQ(editor->document.Fields(copy, "Player"), original);
  EXPECT_EQ(copy.size(), 2u);
  EXPECT_EQ(ObjectAt(copy)->GetComponent<Transform>()->m_local_pos, Vector3D(33.0f, 44.0f, 1.0f));
}

}  // namespace
}  // namespace ZOVEngine
