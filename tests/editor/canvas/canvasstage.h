#pragma once

#include <gtest/gtest.h>
#include <imgui.h>

#include <memory>
#include <string>

#include "core/statemachine.h"
#include "editor/canvas/canvas.h"
#include "editor/canvas/keys.h"
#include "editor/editordata.h"
#include "editor/editorview.h"
#include "editor/leveleditor.h"
#include "game/levels/levelsave.h"
#include "physics/components/transform.h"
#include "support/imguiframe.h"
#include "support/world.h"

namespace carapace_test {

/// The editor with a shipped level open and its canvas, driven by the mouse and the keys that ImGui
/// has, one frame and one step of the engine at a time.
class CanvasStage : public ::testing::Test {
 protected:
  using GameObj = ZOVEngine::GameObj;
  using ObjectPath = ZOVEngine::ObjectPath;
  using Transform = ZOVEngine::Transform;
  using Vector3D = ZOVEngine::Vector3D;
  using Key = ZOVEngine::CanvasKey;

  CanvasStage() : world(LevelFiles()) {
    ZOVEngine::g_editor = ZOVEngine::EditorData();
    ZOVEngine::ChangeState(ZOVEngine::kLevelEditorState, "");
    world.Step();
    editor = std::make_unique<ZOVEngine::LevelEditor>();
    canvas = std::make_unique<ZOVEngine::Canvas>();
    EXPECT_TRUE(editor->Open("Level01"));
    Frame();
  }
  ~CanvasStage() override {
    canvas.reset();
    editor.reset();
    ZOVEngine::g_editor = ZOVEngine::EditorData();
  }

  static Files LevelFiles() {
    Files files;
    for (const char* level : {"Level01", "Level02"}) {
      const ZOVEngine::LevelPaths paths(level);
      for (const std::string& path : {paths.level, paths.tile_map, paths.tiles, paths.objects}) {
        files[path] = ShippedFile(path);
      }
    }
    return files;
  }

  /// One frame of the canvas, beside a panel if there is one, and one step of the engine.
  void Frame() {
    ImGui::GetIO().DeltaTime = frame_time;
    ImGui::NewFrame();
    canvas->Show(*editor);
    if (panel_width > 0.0f) {
      ImGui::SetNextWindowPos(ImVec2(0.0f, 0.0f));
      ImGui::SetNextWindowSize(ImVec2(panel_width, 1080.0f));
      ImGui::Begin("panel");
      ImGui::End();
    }
    ImGui::Render();
    world.Step();
  }

  /// Puts the mouse over a point of the level.
  void MouseAt(float x, float y) {
    const Vector3D at = ZOVEngine::WorldToWindow(Vector3D(x, y, 0.0f));
    ImGuiContextForTest::MoveMouse(at.x, at.y);
    Frame();
  }
  void Press() {
    ImGuiContextForTest::HoldMouse(true);
    Frame();
  }
  void Release() {
    ImGuiContextForTest::HoldMouse(false);
    Frame();
  }
  /// A click that is no double click with the one before.
  void Click(float x, float y) {
    frame_time = 1.0f;
    MouseAt(x, y);
    frame_time = 1.0f / 60.0f;
    Press();
    Release();
  }
  void DoubleClick(float x, float y) {
    Click(x, y);
    Press();
    Release();
  }
  /// Drags from one point of the level to another over several frames.
  void Drag(float x, float y, float to_x, float to_y, bool release = true) {
    frame_time = 1.0f;
    MouseAt(x, y);
    frame_time = 1.0f / 60.0f;
    Press();
    for (const float part : {0.25f, 0.5f, 0.75f, 1.0f}) {
      MouseAt(x + (to_x - x) * part, y + (to_y - y) * part);
    }
    if (release) Release();
  }

  void Hold(Key key, bool down) {
    ImGui::GetIO().KeysDown[static_cast<int>(key)] = down;
    Frame();
  }
  void Tap(Key key) {
    Hold(key, true);
    Hold(key, false);
  }
  void TapWithControl(Key key, bool shift = false) {
    ImGui::GetIO().KeyCtrl = true;
    ImGui::GetIO().KeyShift = shift;
    Tap(key);
    ImGui::GetIO().KeyCtrl = ImGui::GetIO().KeyShift = false;
    Frame();
  }

  /// The path of the first object of this name.
  ObjectPath Path(const std::string& name) const { return ZOVEngine::PathTo(world.Find(name)); }
  Vector3D Place(const std::string& name) const {
    return world.Find(name)->GetComponent<Transform>()->m_local_pos;
  }
  std::string PrimaryName() const {
    GameObj* object = ZOVEngine::ObjectAt(editor->Primary());
    return object != nullptr ? object->name : "";
  }
  std::string Text() const { return editor->document.Text(); }

  ImGuiContextForTest imgui;
  World world;
  std::unique_ptr<ZOVEngine::LevelEditor> editor;
  std::unique_ptr<ZOVEngine::Canvas> canvas;
  float frame_time = 1.0f / 60.0f;  ///< (unit: seconds)
  float panel_width = 0.0f;         ///< of a panel over the picture's left side (unit: pixels)
};

}  // namespace carapace_test
