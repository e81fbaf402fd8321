#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "core/statemachine.h"
#include "editor/editordata.h"
#include "editor/leveleditor.h"
#include "game/levels/levelsave.h"
#include "physics/components/transform.h"
#include "support/world.h"

namespace carapace_test {

/// The four files of a shipped level.
inline Files LevelFiles(const std::string& level) {
  const ZOVEngine::LevelPaths paths(level);
  Files files;
  for (const std::string& path : {paths.level, paths.tile_map, paths.tiles, paths.objects}) {
    files[path] = ShippedFile(path);
  }
  return files;
}

/// The program in its editor's state, with the files of one shipped level, and a session.
class EditorTest : public ::testing::Test {
 protected:
  explicit EditorTest(const std::string& level = "Level01")
      : files(LevelFiles(level)), world(files) {
    ZOVEngine::g_editor = ZOVEngine::EditorData();
    ZOVEngine::ChangeState(ZOVEngine::kLevelEditorState, "");
    world.Step();
    editor = std::make_unique<ZOVEngine::LevelEditor>();
  }
  ~EditorTest() override {
    editor.reset();
    ZOVEngine::g_editor = ZOVEngine::EditorData();
  }

  /// The files of the level as they are now.
  Files Now() {
    Files now;
    for (const auto& [path, text] : files) now[path] = world.Directory().Read(path);
    return now;
  }

  /// Moves an object by (x, y), as a drag does.
  void Move(const ZOVEngine::ObjectPath& path, float x, float y) {
    ZOVEngine::ObjectGesture gesture;
    gesture.Begin({path});
    ZOVEngine::Transform& transform =
        *ZOVEngine::ObjectAt(path)->GetComponent<ZOVEngine::Transform>();
    transform.m_local_pos += ZOVEngine::Vector3D(x, y, 0.0f);
    world.Step();
    editor->Do(gesture.End(&editor->document, "Move"));
  }

  Files files;
  World world;
  std::unique_ptr<ZOVEngine::LevelEditor> editor;
};

}  // namespace carapace_test
