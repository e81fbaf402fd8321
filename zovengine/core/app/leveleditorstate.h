#pragma once

#include <cstdint>
#include <vector>

#include "core/statemachine.h"

namespace ZOVEngine {

struct KeyDown;
struct KeyUp;
struct MouseButton;
struct MouseScroll;

/// The level editor: shows the level through a camera of its own while the engine is paused, moves
/// that camera, saves the level and imports dropped files.
///
/// No state of the game leads to it; the program is in it only when it starts in it, and F5 leaves
/// it for the splash screen. It has no fields: what it remembers stands in `g_editor`, which the
/// panels share. While a panel holds the keyboard it ignores every message.
class LevelEditorState final : public State {
 public:
  /// Makes the editor's camera, and pauses the engine.
  void Enter() override;
  void Update(float) override {}
  void Exit() override {}
  /// Mouse, wheel, keys and dropped files. Control and S save with the first of these messages that
  /// comes while both are down.
  void SendMessage(Message* message) override;

 private:
  /// Returns false for a message that the editor does not handle, and for one after which there is
  /// nothing to save: the release of Control, and the one that leaves the editor.
  static bool Handle(Message* message);
  static void Pan(const MouseButton& message);
  static void Zoom(const MouseScroll& message);
  static void OnKeyDown(const KeyDown& message);
  static bool OnKeyUp(const KeyUp& message);
  static void Import(const std::vector<std::string>& files);
  static void Leave();
};

}  // namespace ZOVEngine
