#pragma once

#include <imgui.h>

#include <array>
#include <cstddef>

namespace ZOVEngine {

/// The mouse of the panels as the window's events tell of it, one change of a button at a time.
///
/// What Dear ImGui's backend reads is the mouse of now. When frames are slow, events wait in the
/// window's queue; a press would be seen at a place to which the mouse came later, or twice. So
/// each frame's mouse is made of the events that were taken for it: their order is kept, and each
/// press is where it was made. Positions are client pixels.
class ToolsMouse {
 public:
  /// Takes an event of the platform; most are none of the mouse.
  void Take(const void* platform_event);
  /// A button or a key went up or down since the last frame: what comes behind it in the queue must
  /// wait for the next one, or a short press would be over before a frame has shown it.
  bool IsFrameFull() const { return m_full; }
  /// Begins a frame: writes position and buttons over what the backend has read.
  void Apply(ImGuiIO* io);
  /// Starts anew with all buttons up, at this place.
  void Reset(ImVec2 position);

 private:
  static constexpr std::size_t kButtons = 3;  ///< left, right, middle, as ImGui counts them

  bool IsHeld() const;
  void SetButton(unsigned button, bool down);

  ImVec2 m_position{0.0f, 0.0f};
  std::array<bool, kButtons> m_down{};
  bool m_full = false;
};

}  // namespace ZOVEngine
