#pragma once

#include <SDL_events.h>
#include <imgui.h>

#include <array>
#include <cstddef>
#include <deque>
#include <functional>

namespace ZOVEngine {

/// The window's events on their way to the panels: which of them make the next frame.
///
/// What Dear ImGui's backend reads of mouse and modifier keys is the state of now. When frames are
/// slow, events wait in the window's queue; a press would be seen at a place to which the mouse
/// came later, or twice, and a key without the Control that was held with it. So each frame's state
/// is made of its events, in their order: moves and text as many as there are, but one change of a
/// button or a key, and a press only where the frame before has shown the mouse, because panels
/// find out in one frame what is under it and in the next what is pressed. Positions are client
/// pixels.
class ToolsInput {
 public:
  using Backend = std::function<void(const SDL_Event& event)>;

  /// Keeps an event of the platform until the frame that it belongs into.
  void Take(const SDL_Event& event);
  /// A change of a button or a key waits: what is behind it in the window's queue can wait there.
  bool IsFrameFull() const { return m_changes > 0; }
  /// Hands the events of the next frame to ImGui's backend.
  void Feed(const Backend& backend);
  /// Writes the frame's position, buttons and modifiers over what the backend has read.
  void Apply(ImGuiIO* io) const;
  /// Starts anew with nothing waiting and all buttons and modifiers up, at this place.
  void Reset(ImVec2 position);

 private:
  static constexpr std::size_t kButtons = 3;  ///< left, right, middle, as ImGui counts them

  void Follow(const SDL_Event& event);
  void FollowWindow(const SDL_WindowEvent& event);
  void FollowButton(const SDL_MouseButtonEvent& event);

  std::deque<SDL_Event> m_waiting;
  std::size_t m_changes = 0;  ///< of buttons and keys, among those that wait
  ImVec2 m_position{0.0f, 0.0f};
  std::array<bool, kButtons> m_down{};
  unsigned m_modifiers = 0;  ///< SDL's bits
};

}  // namespace ZOVEngine
