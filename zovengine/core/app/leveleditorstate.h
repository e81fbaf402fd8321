#pragma once

#include "core/statemachine.h"

namespace ZOVEngine {

/// The level editor's place in the table of states. No state of the game leads to it; the program
/// is in it only when it starts in it.
class LevelEditorState final : public State {
 public:
  void Enter() override {}
  void Update(float) override {}
  void Exit() override {}
  void SendMessage(Message*) override {}
};

}  // namespace ZOVEngine
