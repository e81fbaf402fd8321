#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>

#include "core/base/noncopyable.h"

namespace ZOVEngine {

struct Message;

/// Ids of the states. 1 is not used; 2 is never in the table: it asks to leave the current state
/// and enter it again.
inline constexpr std::int32_t kDefaultState = 0;
inline constexpr std::int32_t kReenterState = 2;
inline constexpr std::int32_t kMainMenuState = 3;
inline constexpr std::int32_t kLevelEditorState = 4;
inline constexpr std::int32_t kSplashState = 5;

/// One screen of the program: what it loads when it is entered, and which components hear
/// broadcasts.
class State : private NonCopyable {
 public:
  State() = default;

  virtual void Enter() = 0;
  virtual void Update(float dt) = 0;
  virtual void Exit() = 0;
  virtual void SendMessage(Message* message) = 0;
  virtual ~State() = default;
};

/// The states and which of them runs. The logic system embeds it and steps it.
struct StateMachine {
  std::int32_t m_current = kSplashState;
  std::int32_t m_next = kSplashState;  ///< the requested id
  std::string m_levelPath;  ///< the last non-empty argument of ChangeState; never read back
  std::unordered_map<std::int32_t, std::unique_ptr<State>> m_states;

  /// The state of `id`; an id that is not in the table ends the program with a report.
  State& At(std::int32_t id) const;
  /// Carries out a requested change, then updates the current state (unit: seconds).
  void Step(float dt);
};

/// Gives components read access to `m_current`; set by the logic system.
extern StateMachine* g_state_machine;

/// The state that a program starts in; the logic system enters it in its Init.
extern std::int32_t g_start_state;

/// The level that DefaultState loads when it is entered; set by the level buttons.
extern std::string g_current_level_path;

/// Requests the state `id` and destroys all objects at once, the caller's own included: the caller
/// must return from its update without touching any object. The state is entered in the logic
/// system's next step. A change to the state that runs already only clears the objects.
void ChangeState(std::int32_t id, const std::string& path);

}  // namespace ZOVEngine
