// Plays a scene of a level and writes its frames, as fast as the machine can draw them.
//
//   carapace_film LEVEL SEED TURN... [--before N] [--frames N] [--every N]
//
// A TURN is that of one player unit after another: words between commas, of which the last ends it.
//   up=N down=N left=N right=N  drives for N steps      switch     takes the other weapon
//   fire=ANGLE                  aims and fires          skip       passes
//   auto=ROUNDS                 leaves so many rounds to the automatic player
//   shot=NAME, fall=NAME        waits, with the turns left to the automatic player, until the enemy
//                               of this name fires, or has no health left
// ANGLE is in degrees, counter-clockwise from straight up. The scene turns on its last word: with
// --frames, so many steps from --before steps ahead of it on go to standard output, every N-th of
// them as 1280 by 720 pixels of r, g, b, rows from the top. Without --frames nothing is drawn:
// after the last word it prints what the shot has done. LEVEL is a file; the working directory is
// the repository. A film needs a display: tools/screen gives one.
#include <GL/glew.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "audio/silentmixer.h"
#include "autoplay/autoplayer.h"
#include "autoplay/gameinput.h"
#include "autoplay/levelrun.h"
#include "autoplay/quiet.h"
#include "core/app/headlessengine.h"
#include "core/app/loadscreen.h"
#include "core/app/winmain.h"
#include "core/base/vector3d.h"
#include "game/turns/gamecontroller.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "objects/gameobjfactory.h"
#include "physics/components/transform.h"
#include "platform/gldriver.h"
#include "platform/native.h"
#include "platform/virtualkeys.h"
#include "platform/windowsystem.h"
#include "render/gldevice.h"
#include "render/rendersystem.h"

namespace {

using namespace ZOVEngine;

constexpr int kWidth = 1280;
constexpr int kHeight = 720;
constexpr int kMostSteps = 60000;  ///< of a scene that hangs
constexpr int kAimSteps = 50;      ///< of the sweep to the aim
constexpr int kHoldSteps = 20;     ///< from there to the click
constexpr float kSweep = 35.0f;    ///< (unit: degrees)
constexpr float kCursorDistance = 420.0f;
constexpr int kOutcomeSteps = 600;  ///< in which a shot does what it does

struct Request {
  std::string level;
  std::uint32_t seed = 0;
  std::vector<std::string> turns;
  int before = 90;
  int frames = 0;  ///< the steps that are filmed; 0 for none
  int every = 5;
};

[[noreturn]] void Fail(const std::string& reason) {
  std::cerr << "carapace_film: " << reason << '\n';
  std::exit(EXIT_FAILURE);
}

int ReadNumber(std::string_view text) {
  char* end = nullptr;
  const std::string digits(text);
  const long value = std::strtol(digits.c_str(), &end, 10);
  if (digits.empty() || *end != '\0') Fail("\"" + digits + "\" is no number");
  return static_cast<int>(value);
}

Request ReadRequest(const std::vector<std::string>& arguments) {
  Request request;
  if (arguments.size() < 3) Fail("needs a level, a seed and turns");
  request.level = arguments[0];
  request.seed = static_cast<std::uint32_t>(ReadNumber(arguments[1]));
  const std::map<std::string, int*> options = {
      {"--before", &request.before}, {"--frames", &request.frames}, {"--every", &request.every}};
  for (std::size_t i = 2; i < arguments.size(); ++i) {
    const auto option = options.find(arguments[i]);
    if (option == options.end()) {
      request.turns.push_back(arguments[i]);
    } else if (++i < arguments.size()) {
      *option->second = ReadNumber(arguments[i]);
    }
  }
  return request;
}

/// Counts the steps of a scene, and has those of the film drawn and written.
class Film {
 public:
  /// The film has `length` steps from step `first` on; `device` draws them. Without one, nothing is
  /// drawn.
  Film(int first, int length, int every, GLDevice* device)
      : m_first(first), m_end(first + length), m_every(every), m_device(device) {}

  int Steps() const { return m_steps; }
  bool IsOver() const { return m_steps >= m_end; }

  /// To be called before each step: a step that is not shown is not drawn, which takes most of its
  /// time.
  void BeginStep() {
    if (++m_steps > kMostSteps) Fail("the scene comes to no end");
    const int step = m_steps - 1;
    m_shown =
        m_device != nullptr && step >= m_first && step < m_end && (step - m_first) % m_every == 0;
    g_gl_device = m_shown ? m_device : nullptr;
  }

  /// Writes the frame in the back buffer.
  void Write() const {
    if (!m_shown) return;
    constexpr std::size_t kRow = std::size_t{3} * kWidth;
    std::vector<std::uint8_t> pixels(kRow * kHeight);
    glReadBuffer(GL_BACK);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, kWidth, kHeight, GL_RGB, GL_UNSIGNED_BYTE, pixels.data());
    for (std::size_t y = kHeight; y-- > 0;) std::fwrite(&pixels[y * kRow], 1, kRow, stdout);
  }

 private:
  int m_first;
  int m_end;
  int m_every;
  GLDevice* m_device;
  int m_steps = 0;
  bool m_shown = false;
};

Film* g_film = nullptr;

/// The engine in a window, silent, whose frames go to g_film and not to the screen.
class WindowEngine {
 public:
  WindowEngine() {
    PrepareGLDriver();
    g_native = m_native.get();
    g_gl_device = m_device.get();
    g_mixer = &m_mixer;
    CreateEngine();
    InitSystems();
    g_render_system->LoadTextures();  // while the device is there: it comes and goes with the film
  }
  ~WindowEngine() {
    g_gl_device = m_device.get();
    DestroyEngine();
    g_mixer = nullptr;
    g_gl_device = nullptr;
    g_native = nullptr;
  }
  WindowEngine(const WindowEngine&) = delete;
  WindowEngine& operator=(const WindowEngine&) = delete;

  GLDevice* Device() const { return m_device.get(); }

 private:
  std::unique_ptr<Native> m_native = MakeSdlNative();
  std::unique_ptr<GLDevice> m_device = MakeGLDevice([] { g_film->Write(); }, [](int) {});
  SilentMixer m_mixer;
};

const Vector3D& Place(GameObj* object) {
  return object->GetComponent<Transform>()->m_world_pos;
}

struct Side {
  int alive = 0;
  int health = 0;
};

template <class Kind>
Side CountSide(const std::vector<GameObj*>& units) {
  Side side;
  for (GameObj* object : units) {
    const Kind& unit = *object->GetComponent<Kind>();
    if (unit.m_alive) ++side.alive;
    if (unit.m_alive) side.health += std::max(unit.m_health, 0);
  }
  return side;
}

/// Plays the turns of a request in the level that runs.
class Scene {
 public:
  Scene(const Request& request, Film* film) : m_request(request), m_film(film) {}

  void Play() {
    for (const std::string& turn : m_request.turns) {
      std::istringstream words(turn);
      for (std::string word; std::getline(words, word, ',');) Act(word);
    }
  }

  /// Steps on until the film is over.
  void FinishFilm() {
    while (!m_film->IsOver()) Step();
  }

  /// Steps on until the last shot has had its effect, and prints what that was.
  void PrintOutcome(std::ostream& out) {
    const Side enemies = CountSide<Enemy>(Controller().m_enemies);
    const Side players = CountSide<Player>(Controller().m_players);
    for (int i = 0; i < kOutcomeSteps && Controller().m_state != TURN_LEVEL_END; ++i) {
      if (i > 0 && Controller().m_selected != m_unit) break;
      Step();
    }
    const Side enemies_left = CountSide<Enemy>(Controller().m_enemies);
    const Side players_left = CountSide<Player>(Controller().m_players);
    out << "enemies " << enemies.alive - enemies_left.alive << " dead "
        << enemies.health - enemies_left.health << " health, players "
        << players.alive - players_left.alive << " dead " << players.health - players_left.health
        << " health" << std::endl;
  }

 private:
  GameController& Controller() { return *FindTurnController(); }

  void Step() {
    m_film->BeginStep();
    StepEngine();
  }

  void WaitForTurn() {
    while (Controller().m_state != TURN_PLAYER_MOVE || Controller().m_selected == m_unit) {
      if (Controller().m_state == TURN_LEVEL_END) Fail("the level is over");
      Step();
    }
  }

  void EndTurn() {
    m_unit = Controller().m_selected;
    Step();
  }

  void Act(const std::string& word) {
    const std::size_t sign = word.find('=');
    const std::string verb = word.substr(0, sign);
    const std::string value = sign == std::string::npos ? "" : word.substr(sign + 1);
    if (verb == "auto") return PlayRounds(ReadNumber(value));
    if (verb == "shot") return AwaitShot(value);
    if (verb == "fall") return AwaitFall(value);
    WaitForTurn();
    if (verb == "skip") return Skip();
    if (verb == "switch") return Press({GameInput::Kind::kKey, kVkQ, 0});
    if (verb == "fire") return Fire(static_cast<float>(ReadNumber(value)));
    Drive(verb, ReadNumber(value));
  }

  void Skip() {
    Press({GameInput::Kind::kKey, kVkF, 0});
    EndTurn();
  }

  void Drive(const std::string& verb, int steps) {
    static const std::vector<std::string> directions = {"up", "down", "left", "right"};
    const auto found = std::find(directions.begin(), directions.end(), verb);
    if (found == directions.end()) Fail("\"" + verb + "\" is no word of a turn");
    for (int i = 0; i < steps; ++i) {
      Apply({GameInput::Kind::kDirection, static_cast<int>(found - directions.begin()), 0});
      Step();
    }
    while (!Controller().AllBodiesAtRest()) Step();
  }

  /// Sweeps the aim to the angle and clicks.
  void Fire(float angle) {
    for (int i = 0; i <= kAimSteps + kHoldSteps; ++i) {
      const float left = 1.0f - std::min(static_cast<float>(i) / kAimSteps, 1.0f);
      PointAt(angle + kSweep * left * left);
      Step();
    }
    Press({GameInput::Kind::kClick, 0, 0});
    EndTurn();
  }

  /// Moves the cursor to a point before the acting unit, to the pixel.
  void PointAt(float angle) {
    const float radians = DegreesToRadians(angle);
    const Vector3D camera =
        Controller().m_camera != nullptr ? Place(Controller().m_camera) : Vector3D();
    const Vector3D offset(-std::sin(radians) * kCursorDistance, std::cos(radians) * kCursorDistance,
                          0.0f);
    const Vector3D place = Place(Controller().m_selected) + offset - camera;
    const Vector3D origin = PlayedCursor(0, 0);
    const Vector3D next = PlayedCursor(1, 1);
    Apply({GameInput::Kind::kCursor,
           static_cast<int>(std::lround((place.x - origin.x) / (next.x - origin.x))),
           static_cast<int>(std::lround((place.y - origin.y) / (next.y - origin.y)))});
  }

  void Press(const GameInput& input) {
    Apply(input);
    Step();
  }

  void PlayRounds(int rounds) {
    const int last = Controller().m_round + rounds;
    PlayUntil([this, last] { return Controller().m_round >= last; });
  }

  void AwaitShot(const std::string& name) {
    PlayUntil([this, &name] {
      return Controller().m_state == TURN_ENEMY_SHOOT && Controller().m_round > 0 &&
             Controller().m_selected->name == name;
    });
  }

  void AwaitFall(const std::string& name) {
    for (GameObj* unit : Controller().m_enemies) {
      if (unit->name != name) continue;
      return PlayUntil([unit] { return unit->GetComponent<Enemy>()->m_health <= 0; });
    }
    Fail("no enemy is named " + name);
  }

  /// Leaves the turns to the automatic player until the condition holds.
  void PlayUntil(const std::function<bool()>& condition) {
    AutoPlayer player;
    while (!condition()) {
      m_film->BeginStep();
      if (!player.Step()) Fail("the level is over before that");
    }
    m_unit = Controller().m_selected;
  }

  const Request& m_request;
  Film* m_film;
  const GameObj* m_unit = nullptr;  ///< that acted last
};

/// Plays the scene without drawing it, prints its outcome to `out`, and returns the steps up to the
/// end of its last word.
int Rehearse(const Request& request, std::ostream* out) {
  const HeadlessEngine engine;
  Film film(0, 0, 1, nullptr);
  EnterLevel(request.level, request.seed);
  Scene scene(request, &film);
  scene.Play();
  const int steps = film.Steps();
  if (out != nullptr) scene.PrintOutcome(*out);
  return steps;
}

void MakeFilm(const Request& request) {
  const int first = std::max(Rehearse(request, nullptr) - request.before, 0);
  const WindowEngine engine;
  Film film(first, request.frames, request.every, engine.Device());
  g_film = &film;
  ShowBackground(request.level);
  EnterLevel(request.level, request.seed);
  Scene scene(request, &film);
  scene.Play();
  scene.FinishFilm();
}

}  // namespace

int main(int argc, char** argv) try {
  const Request request = ReadRequest({argv + 1, argv + argc});
  std::ostream out(std::cout.rdbuf());
  const Quiet quiet;  // the engine prints what it does
  if (request.frames > 0) {
    MakeFilm(request);
  } else {
    Rehearse(request, &out);
  }
} catch (const std::exception& error) {
  std::fprintf(stderr, "%s\n", error.what());
  return 1;
}
