// The program from its start through the splash and the menu into a level, as fast as a user can
// be: a key each step, and clicks as soon as a button takes them. startup_bench runs it. Writes two
// moments of the monotonic clock to the file descriptor in MENU_PATH_FD (unit: nanoseconds): when
// the menu accepts a click, and when the first frame of the level has been shown; and between
// them the moment of the click on the level.
#include <SDL.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include "audio/mixer.h"
#include "core/app/winmain.h"
#include "core/messages.h"
#include "core/statemachine.h"
#include "objects/gameobjfactory.h"
#include "physics/components/transform.h"
#include "platform/native.h"
#include "platform/windowsystem.h"
#include "render/gldevice.h"
#include "ui/buttons/button.h"
#include "ui/screens/mainmenucontroller.h"

namespace {

using namespace ZOVEngine;

constexpr const char* kLevelButton = "menu_level_04";

void Tell(std::int64_t moment) {
  const char* descriptor = std::getenv("MENU_PATH_FD");
  if (descriptor == nullptr) return;
  if (write(std::atoi(descriptor), &moment, sizeof moment) != sizeof moment) std::abort();
}

void SwapAndTell() {
  g_native->SwapBuffers();
  if (g_state_machine->m_current != kDefaultState) return;
  Tell(NowNanoseconds());
  g_engine->running = false;
}

Button* FindButton(const std::string& click_name) {
  for (Button* button : ComponentTable<Button>().Components()) {
    if (button->m_click_name == click_name) return button;
  }
  return nullptr;
}

/// Where the middle of the button is in the window.
void PointAt(const Button& button) {
  const Vector3D place = button.m_owner->GetComponent<Transform>()->m_world_pos;
  const Vector3D size = g_window_system->m_size;
  const float scale = size.y / 1080.0f;
  SDL_WarpMouseInWindow(static_cast<SDL_Window*>(g_native->WindowHandle()),
                        static_cast<int>(size.x * 0.5f + place.x * scale),
                        static_cast<int>(size.y * 0.5f - place.y * scale));
}

/// Brings the mouse to the button; once the button has seen it, clicks. True after the click.
bool Click(const std::string& click_name) {
  const Button* button = FindButton(click_name);
  if (button == nullptr || !button->m_hover) {
    if (button != nullptr) PointAt(*button);
    return false;
  }
  for (const std::uint32_t pressed : {1u, 0u}) {
    MouseButton message(0, pressed, Vector3D());
    g_engine->Broadcast(&message);
  }
  return true;
}

/// One step of the way: a key until the menu is there, then the two buttons.
void Go() {
  enum class Stop { kSplash, kMenu, kLevels, kChosen };
  static Stop stop = Stop::kSplash;
  const auto& menus = ComponentTable<MainMenuController>().Components();
  if (stop == Stop::kSplash && menus.empty()) {
    KeyUp message(' ');
    g_engine->Broadcast(&message);
  } else if (stop == Stop::kSplash && menus.front()->m_ui_state == "menu_default") {
    Tell(NowNanoseconds());
    stop = Stop::kMenu;
  }
  if (stop == Stop::kMenu && Click("menu_play")) stop = Stop::kLevels;
  if (stop != Stop::kLevels) return;
  const std::int64_t before = NowNanoseconds();
  if (!Click(kLevelButton)) return;
  Tell(before);
  stop = Stop::kChosen;
}

}  // namespace

int main() {
  const std::unique_ptr<Native> native = MakeSdlNative();
  const std::unique_ptr<GLDevice> device =
      MakeGLDevice(SwapAndTell, [](int interval) { g_native->SetSwapInterval(interval); });
  const std::unique_ptr<Mixer> mixer = MakeOpenALMixer();
  g_native = native.get();
  g_gl_device = device.get();
  g_mixer = mixer.get();
  CreateEngine();
  InitSystems();
  MainLoop(*g_engine, NowNanoseconds, RestStep, [] {
    BeginStep();
    Go();
  });
  std::_Exit(EXIT_SUCCESS);
}
