#include "support/paneltest.h"

#include <imgui_internal.h>

#include <cmath>

#include "core/statemachine.h"
#include "editor/editordata.h"
#include "game/levels/levelsave.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;

constexpr const char* kLevel = "Level01";

Files LevelFiles() {
  const LevelPaths paths(kLevel);
  Files files;
  for (const std::string& path : {paths.level, paths.tile_map, paths.tiles, paths.objects}) {
    files[path] = ShippedFile(path);
  }
  return files;
}

bool IsGlyphAt(const ImDrawVert& vertex, const ImFontGlyph& glyph) {
  constexpr float kNear = 1.0e-5f;
  return std::abs(vertex.uv.x - glyph.U0) < kNear && std::abs(vertex.uv.y - glyph.V0) < kNear;
}

/// The glyphs of a text that are drawn: all but spaces.
std::vector<const ImFontGlyph*> VisibleGlyphs(const std::string& text) {
  std::vector<const ImFontGlyph*> glyphs;
  for (const char letter : text) {
    const ImFontGlyph* glyph = ImGui::GetIO().Fonts->Fonts[0]->FindGlyph(
        static_cast<ImWchar>(static_cast<unsigned char>(letter)));
    if (glyph->Visible) glyphs.push_back(glyph);
  }
  return glyphs;
}

/// Where these glyphs follow each other in a list of vertices, four for each.
ImVec2 FindGlyphs(const ImVector<ImDrawVert>& vertices,
                  const std::vector<const ImFontGlyph*>& glyphs) {
  const int room = vertices.Size - 4 * static_cast<int>(glyphs.size());
  for (int i = 0; i <= room; ++i) {
    std::size_t same = 0;
    while (same < glyphs.size() &&
           IsGlyphAt(vertices[i + 4 * static_cast<int>(same)], *glyphs[same])) {
      ++same;
    }
    if (same < glyphs.size()) continue;
    return ImVec2(vertices[i].pos.x, (vertices[i].pos.y + vertices[i + 2].pos.y) / 2.0f);
  }
  return ImVec2(-1.0f, -1.0f);
}

}  // namespace

PanelTest::PanelTest(float width, float height, ImVec2 display)
    : world(LevelFiles()),
      size(width, height),
      context(display.x > 0.0f ? display.x : width, display.y > 0.0f ? display.y : height) {
  ImGuiIO& io = ImGui::GetIO();
  for (int key = 0; key < ImGuiKey_COUNT; ++key) io.KeyMap[key] = 100 + key;
  g_editor = EditorData();
  ChangeState(kLevelEditorState, "");
  world.Step();
  editor = std::make_unique<LevelEditor>();
  EXPECT_TRUE(editor->Open(kLevel));
}

PanelTest::~PanelTest() {
  editor.reset();
  g_editor = EditorData();
}

void PanelTest::Show(int frames) {
  for (int i = 0; i < frames; ++i) {
    ImGui::NewFrame();
    ImGui::SetNextWindowPos(ImVec2(0.0f, ImGui::GetIO().DisplaySize.y - size.y));
    ImGui::SetNextWindowSize(size);
    ImGui::Begin("panel", nullptr, ImGuiWindowFlags_NoDecoration);
    ShowPanel();
    ImGui::End();
    ImGui::Render();
  }
}

ImVec2 PanelTest::FindText(const std::string& text) const {
  const std::vector<const ImFontGlyph*> glyphs = VisibleGlyphs(text);
  const ImDrawData* drawn = ImGui::GetDrawData();
  // The last list is in front.
  for (int i = drawn->CmdListsCount - 1; i >= 0; --i) {
    const ImVec2 found = FindGlyphs(drawn->CmdLists[i]->VtxBuffer, glyphs);
    if (found.x >= 0.0f) return found;
  }
  return ImVec2(-1.0f, -1.0f);
}

ImVec2 PanelTest::At(const std::string& text, float right) const {
  const ImVec2 found = FindText(text);
  EXPECT_GE(found.x, 0.0f) << text << " is not shown";
  return ImVec2(found.x + right, found.y);
}

void PanelTest::Click(ImVec2 at, int button) {
  ImGuiContextForTest::MoveMouse(at.x, at.y);
  Show();
  ImGui::GetIO().MouseDown[button] = true;
  Show();
  ImGui::GetIO().MouseDown[button] = false;
  Show(2);
  // The next click is none of a double click.
  for (double& time : ImGui::GetIO().MouseClickedTime) time = -100.0;
}

void PanelTest::DoubleClickText(const std::string& text) {
  const ImVec2 at = At(text);
  ImGuiContextForTest::MoveMouse(at.x, at.y);
  Show();
  for (const bool down : {true, false, true, false}) {
    ImGuiContextForTest::HoldMouse(down);
    Show();
  }
  Show();
}

void PanelTest::Drag(ImVec2 from, ImVec2 to) {
  ImGuiContextForTest::MoveMouse(from.x, from.y);
  Show();
  ImGuiContextForTest::HoldMouse(true);
  Show();
  for (const float part : {0.3f, 0.6f, 1.0f}) {
    ImGuiContextForTest::MoveMouse(from.x + (to.x - from.x) * part,
                                   from.y + (to.y - from.y) * part);
    Show(2);
  }
  ImGuiContextForTest::HoldMouse(false);
  Show(2);
}

void PanelTest::Type(const std::string& text) {
  ImGui::GetIO().AddInputCharactersUTF8(text.c_str());
  Show(2);
}

void PanelTest::Press(ImGuiKey key) {
  const int index = ImGui::GetIO().KeyMap[key];
  ImGui::GetIO().KeysDown[index] = true;
  Show();
  ImGui::GetIO().KeysDown[index] = false;
  Show();
}

void PanelTest::HoldControl(bool down) {
  ImGui::GetIO().KeyCtrl = down;
}

void PanelTest::HoldShift(bool down) {
  ImGui::GetIO().KeyShift = down;
}

ObjectPath PanelTest::PathOf(const std::string& name) const {
  for (const PlacedObject& placed : LevelObjects()) {
    if (editor->document.Name(placed.path) == name) return placed.path;
  }
  ADD_FAILURE() << "no object is named " << name;
  return {};
}

std::string PanelTest::LastLine() const {
  return editor->log.Lines().empty() ? "" : editor->log.Lines().back().text;
}

}  // namespace carapace_test
