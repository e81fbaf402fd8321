#pragma once

#include <gtest/gtest.h>
#include <imgui.h>

#include <memory>
#include <string>

#include "editor/leveleditor.h"
#include "support/imguiframe.h"
#include "support/world.h"

namespace carapace_test {

/// The program in its editor's state with the first level open, and a window of Dear ImGui that one
/// panel fills. The author's hands are ImGui's own input; what a panel shows is found by its text.
class PanelTest : public ::testing::Test {
 protected:
  /// A window of this size in the lower left corner of the display, which it fills unless it has a
  /// size of its own (unit: pixels).
  explicit PanelTest(float width, float height, ImVec2 display = ImVec2(0.0f, 0.0f));
  ~PanelTest() override;

  /// Shows the panel for some frames.
  void Show(int frames = 1);
  /// What Show fills the window with.
  virtual void ShowPanel() = 0;

  /// True if the text stood in the last frame, in one piece.
  bool Sees(const std::string& text) const { return FindText(text).x >= 0.0f; }
  /// The middle of the text's height, at its left end; negative if it is not shown (unit: pixels).
  ImVec2 FindText(const std::string& text) const;

  void Click(ImVec2 at, int button = 0);
  void ClickText(const std::string& text, float right = 4.0f) { Click(At(text, right)); }
  void DoubleClickText(const std::string& text);
  /// Holds the left button over `from` and lets it go over `to`.
  void Drag(ImVec2 from, ImVec2 to);
  /// A point in the line of a text, `right` of its beginning (unit: pixels).
  ImVec2 At(const std::string& text, float right = 4.0f) const;
  /// Types into the field that has the keyboard.
  void Type(const std::string& text);
  /// Presses and releases a key that the fixture knows.
  void Press(ImGuiKey key);
  void HoldControl(bool down);
  void HoldShift(bool down);

  /// The path of the first object of this name.
  ZOVEngine::ObjectPath PathOf(const std::string& name) const;
  void Select(const std::string& name) { editor->selection = {PathOf(name)}; }
  std::string LastLine() const;

  World world;
  ImVec2 size;  ///< of the panel's window
  ImGuiContextForTest context;
  std::unique_ptr<ZOVEngine::LevelEditor> editor;
};

}  // namespace carapace_test
