// A whole step of the boss's level in a window, drawn and shown: in play, with a shot in the air,
// and while the boss dies, at 1280x720 and at 1920x1080.
//
// Steps run back to back. A frame is the time on the wall from one step's start to its end: world,
// passes, submission, and the swap, which waits for a rasteriser that is behind. The main thread's
// share is its own processor time outside the swap. The bounds are those of software rendering at
// 1280x720; 1920x1080 stands beside them without one. Needs a display: tools/screen gives one.

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <map>
#include <memory>
#include <vector>

#include "core/app/winmain.h"
#include "core/base/random.h"
#include "core/statemachine.h"
#include "game/turns/gamecontroller.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "objects/gameobjfactory.h"
#include "platform/native.h"
#include "platform/windowsystem.h"
#include "render/gldevice.h"
#include "repository.h"
#include "threadclock.h"

namespace {

using namespace ZOVEngine;
using carapace_bench::ThreadMicroseconds;

constexpr const char* kLevel = "Level Editor/Levels/Level04/Level04.json";
constexpr std::uint32_t kSeed = 7;
constexpr int kMostStepsToATurn = 3600;
constexpr int kWarmUp = 120;     ///< steps
constexpr int kPlaySteps = 600;  ///< that are timed
constexpr int kMostDyingSteps = 600;
constexpr double kPlayBound = 16.0;   ///< of the median frame (unit: milliseconds)
constexpr double kDeathBound = 22.0;  ///< of the median frame (unit: milliseconds)
constexpr double kSpreadBound = 2.0;  ///< of the 99th percentile to the median
constexpr double kOwnBound = 2.0;     ///< of the main thread's median share (unit: milliseconds)
constexpr double kDrawBound = 40.0;   ///< draw calls of a frame outside of text

double g_swap_own = 0.0;  ///< processor time of the main thread in swaps (unit: microseconds)

void Swap() {
  const double start = ThreadMicroseconds();
  g_native->SwapBuffers();
  g_swap_own += ThreadMicroseconds() - start;
}

/// The numbers of all timed frames of one scene.
struct Frames {
  std::vector<double> whole;  ///< (unit: milliseconds)
  std::vector<double> own;    ///< (unit: milliseconds)
  std::vector<double> draws;  ///< outside of text
  double redundant = 0.0;     ///< binds, of all frames
};

/// The value that `share` of the values do not exceed.
double Quantile(std::vector<double> values, double share) {
  if (values.empty()) return 0.0;
  std::sort(values.begin(), values.end());
  const auto place = static_cast<std::size_t>(share * static_cast<double>(values.size()));
  return values[std::min(place, values.size() - 1)];
}

/// The program without sound, from its start to the boss's level.
class Stage {
 public:
  Stage() {
    std::cout.setstate(std::ios::failbit);  // what the engine prints is not for here
    g_native = m_native.get();
    g_gl_device = m_device.get();
    g_start_state = kDefaultState;
    g_current_level_path = kLevel;
    CreateEngine();
    InitSystems();
  }
  ~Stage() {
    DestroyEngine();
    g_gl_device = nullptr;
    g_native = nullptr;
  }
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;

  void Step() { RunStep(*g_engine, BeginStep); }

  void TimeStep(Frames* frames) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point start = Clock::now();
    const double own = ThreadMicroseconds() - g_swap_own;
    Step();
    frames->own.push_back((ThreadMicroseconds() - g_swap_own - own) * 1e-3);
    const std::chrono::duration<double, std::milli> whole = Clock::now() - start;
    frames->whole.push_back(whole.count());
    const DeviceCounters counters = m_device->Counters();
    frames->draws.push_back(counters.draw_calls - counters.text_draw_calls);
    frames->redundant += counters.redundant_binds;
  }

  /// Enters the level anew and plays until it is a player's turn.
  void ReachPlayersTurn() {
    m_healths.clear();
    ChangeState(kReenterState, "");
    Step();
    SeedRand(kSeed);
    for (int i = 0; i < kMostStepsToATurn; ++i) {
      if (Controller().m_state == TURN_PLAYER_MOVE) return;
      Step();
    }
    Fail("no player's turn");
  }

  /// Fires a shot of the acting unit unless one is in the air, and keeps everybody alive.
  void Play() {
    Heal<Player>(Controller().m_players);
    Heal<Enemy>(Controller().m_enemies);
    GameObj* unit = Controller().m_selected;
    const auto flies = [](const GameObj* child) {
      return child->active && child->name.find("Projectile") != std::string::npos;
    };
    if (std::any_of(unit->children.begin(), unit->children.end(), flies)) return;
    const float angle = 0.7f * static_cast<float>(++m_shots);
    unit->GetComponent<Player>()->Fire(
        Vector3D(1000.0f * std::cos(angle), 1000.0f * std::sin(angle), 1.0f));
  }

  /// Gives the units the health with which they were seen first, so that their bars stay as wide.
  template <class Kind>
  void Heal(const std::vector<GameObj*>& units) {
    for (GameObj* unit : units) {
      int& health = unit->GetComponent<Kind>()->m_health;
      health = m_healths.try_emplace(unit, health).first->second;
    }
  }

  Enemy& Boss() {
    for (GameObj* unit : Controller().m_enemies) {
      if (unit->GetComponent<Enemy>()->m_boss) return *unit->GetComponent<Enemy>();
    }
    Fail("no boss");
  }

  [[noreturn]] static void Fail(const char* reason) {
    std::fprintf(stderr, "frame_bench: %s\n", reason);
    std::exit(EXIT_FAILURE);
  }

 private:
  static GameController& Controller() {
    return *ComponentTable<GameController>().Components().front();
  }

  std::unique_ptr<Native> m_native = MakeSdlNative();
  std::unique_ptr<GLDevice> m_device =
      MakeGLDevice(Swap, [](int interval) { g_native->SetSwapInterval(interval); });
  int m_shots = 0;
  std::map<const GameObj*, int> m_healths;
};

Frames TimePlay(Stage* stage) {
  stage->ReachPlayersTurn();
  Frames frames;
  for (int i = 0; i < kWarmUp + kPlaySteps; ++i) {
    if (i == kWarmUp) frames = {};
    stage->Play();
    stage->TimeStep(&frames);
  }
  return frames;
}

Frames TimeDeath(Stage* stage) {
  stage->ReachPlayersTurn();
  stage->Boss().m_health = 0;
  for (int i = 0; i < kWarmUp && !stage->Boss().m_dying; ++i) stage->Step();
  Frames frames;
  for (int i = 0; i < kMostDyingSteps && stage->Boss().m_alive; ++i) stage->TimeStep(&frames);
  return frames;
}

void PrintFigure(const char* name, double value, const char* unit, double bound) {
  std::printf("  %-42s %7.2f %s", name, value, unit);
  if (bound >= 0.0) std::printf("  (at most %.0f: %s)", bound, value <= bound ? "met" : "MISSED");
  std::printf("\n");
}

/// Prints the figures of a scene, with their bounds if `bound`, that of the median, is not below 0.
void Print(const char* name, const Frames& frames, double bound) {
  const bool bounded = bound >= 0.0;
  const double median = Quantile(frames.whole, 0.5);
  std::printf("%s, %zu frames\n", name, frames.whole.size());
  PrintFigure("step, draw and swap, median", median, "ms", bound);
  PrintFigure("its 99th percentile to the median", Quantile(frames.whole, 0.99) / median, "  ",
              bounded ? kSpreadBound : -1.0);
  PrintFigure("main thread's share, median", Quantile(frames.own, 0.5), "ms",
              bounded ? kOwnBound : -1.0);
  PrintFigure("draw calls outside of text, most", Quantile(frames.draws, 1.0), "  ",
              bounded ? kDrawBound : -1.0);
  PrintFigure("redundant binds, all frames", frames.redundant, "  ", bounded ? 0.0 : -1.0);
}

}  // namespace

int main() {
  carapace_bench::EnterRepository();
  Stage stage;
  Print("play, 1280x720", TimePlay(&stage), kPlayBound);
  Print("the boss's death, 1280x720", TimeDeath(&stage), kDeathBound);
  SetDisplayMode(false, 1920, 1080);
  Print("play, 1920x1080", TimePlay(&stage), -1.0);
  Print("the boss's death, 1920x1080", TimeDeath(&stage), -1.0);
  if (g_engine->paused) Stage::Fail("the window lost the focus meanwhile");
}
