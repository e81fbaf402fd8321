#include "editor/shell/toolsmouse.h"

#include <SDL.h>

#include <algorithm>
#include <cfloat>

namespace ZOVEngine {
namespace {

const ImVec2 kNowhere(-FLT_MAX, -FLT_MAX);  ///< ImGui's mouse that is over no window

/// ImGui's number of a button of SDL; kButtons or more for one that it has no use for.
unsigned ButtonNumber(std::uint8_t sdl_button) {
  if (sdl_button == SDL_BUTTON_LEFT) return 0;
  if (sdl_button == SDL_BUTTON_RIGHT) return 1;
  if (sdl_button == SDL_BUTTON_MIDDLE) return 2;
  return ~0u;
}

ImVec2 Place(int x, int y) {
  return ImVec2(static_cast<float>(x), static_cast<float>(y));
}

}  // namespace

void ToolsMouse::Take(const void* platform_event) {
  const SDL_Event& event = *static_cast<const SDL_Event*>(platform_event);
  switch (event.type) {
    case SDL_MOUSEMOTION:
      m_position = Place(event.motion.x, event.motion.y);
      break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
      m_position = Place(event.button.x, event.button.y);
      SetButton(ButtonNumber(event.button.button), event.type == SDL_MOUSEBUTTONDOWN);
      break;
    case SDL_KEYDOWN:
      m_full = m_full || event.key.repeat == 0;
      break;
    case SDL_KEYUP:
      m_full = true;
      break;
    case SDL_WINDOWEVENT:
      if (event.window.event == SDL_WINDOWEVENT_LEAVE && !IsHeld()) m_position = kNowhere;
      if (event.window.event == SDL_WINDOWEVENT_FOCUS_LOST) m_down.fill(false);
      break;
    default:
      break;
  }
}

void ToolsMouse::Apply(ImGuiIO* io) {
  io->MousePos = m_position;
  for (std::size_t i = 0; i < kButtons; ++i) io->MouseDown[i] = m_down[i];
  m_full = false;
}

void ToolsMouse::Reset(ImVec2 position) {
  m_position = position;
  m_down.fill(false);
  m_full = false;
}

bool ToolsMouse::IsHeld() const {
  return std::find(m_down.begin(), m_down.end(), true) != m_down.end();
}

void ToolsMouse::SetButton(unsigned button, bool down) {
  if (button >= kButtons) return;
  m_down[button] = down;
  m_full = true;
}

}  // namespace ZOVEngine
