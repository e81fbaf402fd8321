#pragma once

#include <imgui.h>

#include <cstddef>
#include <vector>

namespace ZOVEngine {

/// What the panels drew last, so that a frame in which nothing changed need not be drawn again.
///
/// Keeps a copy, since Dear ImGui makes its lists anew in each frame. What an image that a panel
/// shows looks like is not part of it.
class LastPanels {
 public:
  /// Takes the draw data of a frame; true if they differ from those taken before.
  bool Take(const ImDrawData& data);

 private:
  std::vector<std::byte> m_last, m_next;
};

}  // namespace ZOVEngine
