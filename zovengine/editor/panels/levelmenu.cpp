#include "editor/panels/levelmenu.h"

#include <imgui.h>
#include <imgui_stdlib.h>

#include <utility>

#include "core/engine.h"
#include "editor/editordata.h"
#include "editor/editorview.h"
#include "editor/recovery.h"
#include "gameobj.h"
#include "objects/componentmanager.h"
#include "physics/components/transform.h"
#include "render/rendersystem.h"

namespace ZOVEngine {
namespace {

constexpr int kOfferFrame = 2;  ///< in which work that was found is offered
constexpr const char* kNewTitle = "New level";
constexpr const char* kUnsavedTitle = "Unsaved work";
constexpr const char* kRecoveryTitle = "Unsaved work was found";
const ImVec2 kWideButton(150.0f, 0.0f);
const ImVec4 kFault(1.0f, 0.53f, 0.55f, 1.0f);
const ImVec4 kUnsaved(1.0f, 0.79f, 0.3f, 1.0f);

bool BeginDialog(const char* title) {
  const ImVec2 display = ImGui::GetIO().DisplaySize;
  ImGui::SetNextWindowPos(ImVec2(display.x * 0.5f, display.y * 0.4f), ImGuiCond_Appearing,
                          ImVec2(0.5f, 0.5f));
  return ImGui::BeginPopupModal(title, nullptr, ImGuiWindowFlags_AlwaysAutoResize);
}

bool DialogButton(const char* label) {
  const bool pressed = ImGui::Button(label, kWideButton);
  ImGui::SameLine();
  if (pressed) ImGui::CloseCurrentPopup();
  return pressed;
}

void ResetView() {
  if (g_editor.m_editor_camera == nullptr) return;
  g_editor.m_editor_camera->GetComponent<Transform>()->m_local_pos = Vector3D();
}

}  // namespace

float LevelMenu::Show(LevelEditor& editor) {
  float height = 0.0f;
  if (ImGui::BeginMainMenuBar()) {
    ShowLevelMenu(editor);
    ShowEditMenu(editor);
    ShowViewMenu(editor);
    ShowState(editor);
    height = ImGui::GetWindowHeight();
    ImGui::EndMainMenuBar();
  }
  // Not in the first frame: over panels that appear in the frame of a dialog ImGui ends the
  // program.
  if (m_frames <= kOfferFrame && m_frames++ == kOfferFrame) {
    m_recoverable = RecoverableLevels();
    if (!m_recoverable.empty()) m_dialog = kRecoveryTitle;
  }
  if (!m_dialog.empty()) ImGui::OpenPopup(std::exchange(m_dialog, "").c_str());
  ShowNewDialog(editor);
  ShowUnsavedDialog(editor);
  ShowRecoveryDialog(editor);
  return height;
}

void LevelMenu::Leave(LevelEditor& editor, std::function<void()> action) {
  if (!editor.IsChanged()) return action();
  m_pending = std::move(action);
  m_dialog = kUnsavedTitle;
}

void LevelMenu::ShowLevelMenu(LevelEditor& editor) {
  if (!ImGui::BeginMenu("Level")) return;
  if (ImGui::MenuItem("New ...")) Leave(editor, [this] { m_dialog = kNewTitle; });
  ShowOpenMenu(editor);
  if (ImGui::BeginMenu("Recent", !editor.recent.empty())) {
    OfferLevels(editor, std::vector<std::string>(editor.recent));
    ImGui::EndMenu();
  }
  ImGui::Separator();
  if (ImGui::MenuItem("Save", "Ctrl+S", false, editor.IsOpen())) editor.Save();
  if (ImGui::MenuItem("Test-play (Escape returns)", "F9", false, editor.IsOpen())) {
    editor.wants_test_play = true;
  }
  if (ImGui::MenuItem("Close", nullptr, false, editor.IsOpen())) {
    Leave(editor, [&editor] { editor.Close(); });
  }
  ImGui::Separator();
  if (ImGui::MenuItem("Quit")) Leave(editor, [] { g_engine->running = false; });
  ImGui::EndMenu();
}

void LevelMenu::ShowOpenMenu(LevelEditor& editor) {
  if (!ImGui::BeginMenu("Open")) return;
  if (ImGui::IsWindowAppearing()) m_names = FindLevels();
  OfferLevels(editor, m_names.levels);
  if (!m_names.screens.empty()) {
    ImGui::Separator();
    ImGui::TextDisabled("Screens of the game");
    OfferLevels(editor, m_names.screens);
  }
  ImGui::EndMenu();
}

void LevelMenu::OfferLevels(LevelEditor& editor, const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    if (ImGui::MenuItem(name.c_str())) Leave(editor, [&editor, name] { editor.Open(name); });
  }
}

void LevelMenu::ShowEditMenu(LevelEditor& editor) {
  if (!ImGui::BeginMenu("Edit")) return;
  const History& history = editor.history;
  const bool can_undo = history.Position() > 0, can_redo = history.Position() < history.Size();
  const std::string undo =
      "Undo " + (can_undo ? history.Label(history.Position() - 1) : std::string());
  const std::string redo = "Redo " + (can_redo ? history.Label(history.Position()) : std::string());
  if (ImGui::MenuItem(undo.c_str(), "Ctrl+Z", false, can_undo)) editor.Undo();
  if (ImGui::MenuItem(redo.c_str(), "Ctrl+Y", false, can_redo)) editor.Redo();
  ImGui::EndMenu();
}

void LevelMenu::ShowViewMenu(LevelEditor& editor) {
  if (!ImGui::BeginMenu("View")) return;
  EditorOverlays& overlays = editor.overlays;
  ImGui::MenuItem("Snap to half tiles", "Alt frees", &editor.snap);
  ImGui::Separator();
  ImGui::MenuItem("Grid of the tiles", nullptr, &overlays.grid);
  ImGui::MenuItem("Colliders", nullptr, &overlays.colliders);
  ImGui::MenuItem("Patrol paths", nullptr, &overlays.patrols);
  ImGui::MenuItem("Reach of hazards", nullptr, &overlays.hazards);
  ImGui::MenuItem("Aims of enemies", nullptr, &overlays.aims);
  ImGui::MenuItem("Energy of the selected unit", nullptr, &overlays.energy);
  ImGui::Separator();
  if (ImGui::MenuItem("Reset", "C")) ResetView();
  const bool shown = g_render_system->m_hides == nullptr;
  if (ImGui::MenuItem("Interface of the game", nullptr, shown)) {
    g_render_system->m_hides = shown ? IsGameInterface : nullptr;
  }
  ImGui::EndMenu();
}

/// The name of the level and whether it is saved.
void LevelMenu::ShowState(LevelEditor& editor) {
  ImGui::Spacing();
  if (!editor.IsOpen()) {
    ImGui::TextDisabled("No level is open: choose Level, then New or Open.");
  } else if (editor.IsChanged()) {
    ImGui::TextColored(kUnsaved, "%s (not saved)", g_editor.m_level_name.c_str());
  } else {
    ImGui::TextDisabled("%s", g_editor.m_level_name.c_str());
  }
}

void LevelMenu::ShowNewDialog(LevelEditor& editor) {
  if (!BeginDialog(kNewTitle)) return;
  if (ImGui::IsWindowAppearing()) ImGui::SetKeyboardFocusHere();
  ImGui::InputText("Name", &m_new.name);
  ImGui::InputInt("Columns", &m_new.width);
  ImGui::InputInt("Rows", &m_new.height);
  ImGui::InputInt("Size of a cell", &m_new.tile_size, 10);
  const std::string fault = FaultOfLevelName(m_new.name);
  ImGui::TextColored(kFault, "%s", m_new.name.empty() ? "" : fault.c_str());
  ImGui::BeginDisabled(!fault.empty());
  if (DialogButton("Create") && editor.Create(m_new)) m_new = NewLevel();
  ImGui::EndDisabled();
  DialogButton("Cancel");
  ImGui::EndPopup();
}

void LevelMenu::ShowUnsavedDialog(LevelEditor& editor) {
  if (!BeginDialog(kUnsavedTitle)) return;
  ImGui::Text("\"%s\" has changes that are not saved.", g_editor.m_level_name.c_str());
  const bool save = DialogButton("Save"), drop = DialogButton("Do not save");
  if (DialogButton("Go on editing")) m_pending = nullptr;
  if (drop) DropRecovery(g_editor.m_level_name);
  if ((drop || (save && editor.Save())) && m_pending) std::exchange(m_pending, nullptr)();
  ImGui::EndPopup();
}

void LevelMenu::ShowRecoveryDialog(LevelEditor& editor) {
  if (!BeginDialog(kRecoveryTitle)) return;
  ImGui::Text("The editor ended before this was saved:");
  for (const std::string& name : std::vector<std::string>(m_recoverable)) {
    ImGui::PushID(name.c_str());
    ImGui::BulletText("%s", name.c_str());
    const bool recover = DialogButton("Recover");
    const bool drop = ImGui::Button("Throw away", kWideButton);
    if (recover) Recover(editor, name);
    if (drop) DropRecovery(name);
    if (recover || drop) std::erase(m_recoverable, name);
    ImGui::PopID();
  }
  if (m_recoverable.empty()) ImGui::CloseCurrentPopup();
  DialogButton("Later");
  ImGui::EndPopup();
}

}  // namespace ZOVEngine
