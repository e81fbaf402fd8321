#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "core/base/random.h"
#include "core/engine.h"
#include "core/statemachine.h"
#include "game/levels/levelsave.h"
#include "game/objectquery.h"
#include "game/turns/gamecontroller.h"
#include "physics/components/transform.h"
#include "platform/virtualkeys.h"
#include "platform/windowsystem.h"
#include "support/reports.h"
#include "support/world.h"
#include "ui/buttons/button.h"
#include "ui/interfacestate.h"
#include "ui/screens/mainmenucontroller.h"
#include "ui/screens/splashcontroller.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;

constexpr int kStepsPerOutput = 500;  ///< what the program prints is dropped after so many steps
constexpr float kScreenHeight = 1080.0f;  ///< (unit: world units)

const std::set<std::string> kScreens = {"splash",
                                        "menu_slide",
                                        "menu_default",
                                        "menu_level_select",
                                        "menu_howtoplay",
                                        "menu_glossary",
                                        "menu_credits",
                                        "menu_quit",
                                        "ui_default",
                                        "ui_pause",
                                        "ui_options",
                                        "ui_how_to_play",
                                        "ui_pause_glossary",
                                        "ui_pause_credits",
                                        "ui_quit_confirm",
                                        "ui_quit_mainmenu_confirm",
                                        "ui_level_end"};

constexpr std::array<std::uint64_t, 12> kKeys = {
    kVkEscape, kVkSpace, kVkB, kVkF, kVkG, kVkH, kVkQ, kVkR, kVkF6, kVkF8, kVkA, kVkReturn};
constexpr std::array<std::uint32_t, 4> kDirections = {kVkW, kVkA, kVkS, kVkD};

/// A number from the environment, or what every run takes.
int Setting(const char* name, int usual) {
  const char* text = std::getenv(name);
  return text == nullptr ? usual : std::atoi(text);
}

/// The splash, the menu and the levels as they are shipped. The first level stands in for a level
/// that the menu offers and that is not there.
Files ShippedGame() {
  Files files = World::ShippedFiles();
  for (const char* level : {"Level01", "Level02", "Level03", "Level04"}) {
    const LevelPaths offered(level);
    const bool is_there =
        std::filesystem::exists(std::string(CARAPACE_SOURCE_DIR "/") + offered.level);
    const LevelPaths shipped(is_there ? level : "Level01");
    files[offered.level] = ShippedFile(shipped.level);
    for (const std::string& path : {shipped.tile_map, shipped.tiles, shipped.objects}) {
      files[path] = ShippedFile(path);
    }
  }
  return files;
}

/// The first component of type T of the world, or null.
template <class T>
T* Only() {
  for (GameObj* object : g_game_obj_factory->m_objects) {
    if (T* component = FindComponent<T>(object)) return component;
  }
  return nullptr;
}

/// What is on the screen, in the words of kScreens, or nothing while a level starts anew.
std::string Screen() {
  if (const auto* menu = Only<MainMenuController>()) return menu->m_ui_state;
  if (const auto* game = Only<GameController>()) return game->m_ui_state;
  return Only<SplashController>() != nullptr ? "splash" : "";
}

/// Uses the whole program without sense: points anywhere or at a button that lives, presses and
/// releases both buttons of the mouse and all keys, leaves the window and comes back.
///
/// Its diligence changes every few seconds, so that it now hammers on the keys and now lets a level
/// come to its end. Whatever it does goes through the window's events and the polled keys. The same
/// seed does the same on every machine.
class RandomUser {
 public:
  RandomUser(World* world, std::uint32_t seed) : m_world(*world), m_random(seed) {}

  void Step() {
    if (--m_mood_steps <= 0) ChangeMood();
    UseMouse();
    UseKeys();
    if (Chance(2000)) LeaveAndComeBack();
    m_world.Step();
    // A level seeds from the time of day.
    SeedRand(Draw());
  }

 private:
  void ChangeMood() {
    constexpr std::array<int, 3> kKeyPauses = {15, 120, 100000};
    constexpr std::array<int, 3> kClickPauses = {3, 10, 60};
    m_mood_steps = 60 + Below(240);
    m_key_pause = kKeyPauses[Draw() % kKeyPauses.size()];
    m_click_pause = kClickPauses[Draw() % kClickPauses.size()];
  }

  void UseMouse() {
    if (Chance(m_click_pause)) Point();
    if (Chance(m_click_pause)) Toggle(kVkLeftButton);
    if (Chance(50)) Toggle(kVkRightButton);
    if (Chance(100)) m_world.native.PushWheel(Below(2) == 0 ? 120 : -120);
  }

  void UseKeys() {
    if (Chance(30)) Toggle(kDirections[Draw() % kDirections.size()]);
    if (!Chance(m_key_pause)) return;
    const std::uint64_t usual = kKeys[Draw() % kKeys.size()];
    const std::uint64_t any = Draw() % 256;
    const std::uint64_t key = Chance(8) ? any : usual;
    m_world.native.Push(NativeEventKind::kKeyDown, key);
    m_world.native.Push(NativeEventKind::kKeyUp, key);
  }

  void Point() {
    const std::vector<Button*> living = LivingButtons();
    if (living.empty() || Chance(4)) {
      m_world.native.cursor = {Below(1480) - 100, Below(920) - 100};
    } else {
      PointAt(*living[Draw() % living.size()]);
    }
    m_world.native.PushMouseMove(m_world.native.cursor.x, m_world.native.cursor.y);
  }

  void PointAt(Button& button) {
    const Vector3D& place = button.m_owner->GetComponent<Transform>()->m_world_pos;
    const Vector3D& size = g_window_system->m_size;
    const float ratio = size.y / kScreenHeight;
    m_world.native.cursor = {static_cast<int>(size.x * 0.5f + place.x * ratio),
                             static_cast<int>(size.y * 0.5f - place.y * ratio)};
  }

  static std::vector<Button*> LivingButtons() {
    std::vector<Button*> living;
    for (GameObj* object : g_game_obj_factory->m_objects) {
      auto* button = FindComponent<Button>(object);
      if (button != nullptr && button->m_usable_state == InterfaceState(object))
        living.push_back(button);
    }
    return living;
  }

  void Toggle(std::uint32_t code) {
    if (m_world.native.IsKeyDown(code)) {
      m_world.native.Release(code);
    } else {
      m_world.native.Press(code);
    }
  }

  void LeaveAndComeBack() {
    m_world.native.Push(NativeEventKind::kKillFocus);
    m_world.native.Push(NativeEventKind::kSetFocus);
  }

  std::uint32_t Draw() { return static_cast<std::uint32_t>(m_random()); }
  int Below(int end) { return static_cast<int>(Draw() % static_cast<std::uint32_t>(end)); }
  bool Chance(int one_in) { return Below(one_in) == 0; }

  World& m_world;
  std::mt19937 m_random;
  int m_mood_steps = 0;
  int m_key_pause = 1;    ///< mean, between two keys (unit: steps)
  int m_click_pause = 1;  ///< the same for what the left mouse button does
};

/// Lets the user act for some steps, and again until all screens were seen, up to `most` steps.
struct Visit {
  std::set<std::string> seen;
  int quits = 0;  ///< how often the program was told to end

  void Go(RandomUser* user, int steps, int most) {
    for (int step = 0; step < steps || (step < most && !SawAll()); ++step) {
      user->Step();
      if (const std::string screen = Screen(); !screen.empty()) seen.insert(screen);
      if (!g_engine->running) ++quits;
      g_engine->running = true;
    }
  }
  bool SawAll() const { return seen == kScreens && quits > 0; }
};

TEST(RandomUser, ReachesEveryScreenAndBreaksNone) {
  const int steps = Setting("CARAPACE_USER_STEPS", 5000);
  const auto seed = static_cast<std::uint32_t>(Setting("CARAPACE_USER_SEED", 7));
  World world(ShippedGame());
  RandomUser user(&world, seed);
  Visit visit;
  for (int step = 0; step < steps; step += kStepsPerOutput) {
    const bool last = step + kStepsPerOutput >= steps;
    OutputOf([&] { visit.Go(&user, kStepsPerOutput, last ? 10 * steps : 0); });
  }
  EXPECT_EQ(visit.seen, kScreens);
  EXPECT_GT(visit.quits, 0) << "no answer that quits was clicked";
  g_menu_entry_click = false;
}

}  // namespace
}  // namespace carapace_test
