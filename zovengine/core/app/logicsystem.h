#pragma once

#include <memory>
#include <string>

#include "core/statemachine.h"
#include "core/system.h"

namespace ZOVEngine {

/// Runs the states of the game and steps all logic components, table by table.
///
/// A broadcast goes to the current state and nowhere else; the state knows which components hear
/// it. Every walk works on a copy of its table's array; the copy is taken when the table's turn
/// comes, so a change of state made by a controller leaves the later tables empty for the rest of
/// the step.
class LogicSystem final : public System {
  RTTR_ENABLE(System)

 public:
  /// Sets g_logic_system and registers the logic component tables.
  LogicSystem();
  ~LogicSystem() override;

  /// Fetches the tables, loads the archetypes, makes the states and enters the splash state.
  void Init() override;
  /// Loads every file of `directory` whose name is a stem, a dot and "json" as the archetype of
  /// that name. Names with two dots are skipped.
  static void LoadArchetypes(const std::string& directory);
  /// The state step, then Update of all logic components.
  void Update(float dt) override;
  /// The state step, then Update of the components that stay live in a pause. A controller that was
  /// loaded in the pause is initialised before them, but not updated.
  void PausedUpdate(float dt) override;
  /// Hands the message to the current state, if there are states.
  void SendMessage(Message* message) override;

  StateMachine m_machine;

 private:
  struct Walks;

  std::unique_ptr<Walks> m_walks;  ///< null until Init
};

extern LogicSystem* g_logic_system;

}  // namespace ZOVEngine
