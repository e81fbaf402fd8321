#include "editor/shell/toolsinput.h"

#include <algorithm>
#include <cfloat>

namespace ZOVEngine {
namespace {

const ImVec2 kNowhere(-FLT_MAX, -FLT_MAX);  ///< ImGui's mouse that is over no window

/// ImGui's number of a button of SDL; a large one for a button that it has no use for.
std::size_t ButtonNumber(std::uint8_t sdl_button) {
  if (sdl_button == SDL_BUTTON_LEFT) return 0;
  if (sdl_button == SDL_BUTTON_RIGHT) return 1;
  if (sdl_button == SDL_BUTTON_MIDDLE) return 2;
  return static_cast<std::size_t>(-1);
}

ImVec2 Place(int x, int y) {
  return ImVec2(static_cast<float>(x), static_cast<float>(y));
}

bool IsAt(const ImVec2& a, const ImVec2& b) {
  return a.x == b.x && a.y == b.y;
}

/// True for what panels hear of. The others, such as drops, may point to memory that is gone later.
bool IsForPanels(const SDL_Event& event) {
  switch (event.type) {
    case SDL_MOUSEMOTION:
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
    case SDL_MOUSEWHEEL:
    case SDL_KEYDOWN:
    case SDL_KEYUP:
    case SDL_TEXTINPUT:
    case SDL_WINDOWEVENT:
      return true;
    default:
      return false;
  }
}

/// True for a button or a key that goes up or down.
bool IsChange(const SDL_Event& event) {
  const bool button = event.type == SDL_MOUSEBUTTONDOWN || event.type == SDL_MOUSEBUTTONUP;
  return button || event.type == SDL_KEYUP || (event.type == SDL_KEYDOWN && event.key.repeat == 0);
}

}  // namespace

void ToolsInput::Take(const SDL_Event& event) {
  if (!IsForPanels(event)) return;
  m_waiting.push_back(event);
  m_changes += IsChange(event) ? 1 : 0;
}

void ToolsInput::Feed(const Backend& backend) {
  const ImVec2 shown = m_position;
  while (!m_waiting.empty()) {
    const SDL_Event event = m_waiting.front();
    if (event.type == SDL_MOUSEBUTTONDOWN) {
      m_position = Place(event.button.x, event.button.y);
      if (!IsAt(m_position, shown)) return;
    }
    m_waiting.pop_front();
    Follow(event);
    backend(event);
    if (!IsChange(event)) continue;
    --m_changes;
    return;
  }
}

void ToolsInput::Follow(const SDL_Event& event) {
  switch (event.type) {
    case SDL_MOUSEMOTION:
      m_position = Place(event.motion.x, event.motion.y);
      break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
      FollowButton(event.button);
      break;
    case SDL_KEYDOWN:
    case SDL_KEYUP:
      m_modifiers = event.key.keysym.mod;
      break;
    case SDL_WINDOWEVENT:
      FollowWindow(event.window);
      break;
    default:
      break;
  }
}

void ToolsInput::FollowButton(const SDL_MouseButtonEvent& event) {
  m_position = Place(event.x, event.y);
  const std::size_t button = ButtonNumber(event.button);
  if (button < kButtons) m_down[button] = event.type == SDL_MOUSEBUTTONDOWN;
}

void ToolsInput::FollowWindow(const SDL_WindowEvent& event) {
  const bool held = std::find(m_down.begin(), m_down.end(), true) != m_down.end();
  if (event.event == SDL_WINDOWEVENT_LEAVE && !held) m_position = kNowhere;
  if (event.event == SDL_WINDOWEVENT_FOCUS_LOST) m_down.fill(false);
}

void ToolsInput::Apply(ImGuiIO* io) const {
  io->MousePos = m_position;
  for (std::size_t i = 0; i < kButtons; ++i) io->MouseDown[i] = m_down[i];
  io->KeyCtrl = (m_modifiers & KMOD_CTRL) != 0;
  io->KeyShift = (m_modifiers & KMOD_SHIFT) != 0;
  io->KeyAlt = (m_modifiers & KMOD_ALT) != 0;
}

void ToolsInput::Reset(ImVec2 position) {
  m_waiting.clear();
  m_changes = 0;
  m_position = position;
  m_down.fill(false);
  m_modifiers = 0;
}

}  // namespace ZOVEngine
