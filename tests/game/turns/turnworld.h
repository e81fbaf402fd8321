#pragma once

#include <string>
#include <vector>

#include "audio/audiosource.h"
#include "core/base/random.h"
#include "core/engine.h"
#include "core/statemachine.h"
#include "game/levels/tileworld.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "physics/components/rigidbody.h"
#include "render/rendersystem.h"
#include "support/stage.h"
#include "support/unitrecords.h"

namespace carapace_test {

/// A piece of the interface that is a child of a unit.
inline std::string ElementNamed(const std::string& element, float scale = 1.0f) {
  return Record("element", {{"Transform", PlacedAt(0, 0, scale)},
                            {"UIElement", R"({"m_ui_element_name": ")" + element + "\"}"}});
}

/// A level of 20 by 11 cells without tiles, whose turn machine the test runs by hand.
///
/// Its first step has run, in which the level started; then the machine was set back to its start.
/// By default there are an enemy "e" on the left, a player unit "p" on the right, and a camera
/// "view" in the middle.
class TurnWorld : public Stage {
 public:
  TurnWorld()
      : TurnWorld(
            {UnitAt(UnitKind::kEnemy, "e", -300, 0), UnitAt(UnitKind::kPlayer, "p", 300, 0)}) {}
  explicit TurnWorld(const std::vector<std::string>& units) : Stage(LevelWith(units)) {
    ZOVEngine::g_current_level_path = kPlainLevel;
    ZOVEngine::ChangeState(ZOVEngine::kDefaultState, "");
    OutputOf([&] { world.Step(); });
    Controller().m_state = ZOVEngine::TURN_ENEMY_NEXT;
    Controller().m_ui_state = "ui_default";
    Sounds().sounds.clear();
    ZOVEngine::SeedRand(1);
  }

  ZOVEngine::GameController& Controller() const { return Of<ZOVEngine::GameController>("level"); }
  ZOVEngine::Player& GetPlayer(const std::string& name) const {
    return Of<ZOVEngine::Player>(name);
  }
  ZOVEngine::Enemy& GetEnemy(const std::string& name) const { return Of<ZOVEngine::Enemy>(name); }
  ZOVEngine::RigidBody& GetBody(const std::string& name) const {
    return Of<ZOVEngine::RigidBody>(name);
  }
  ZOVEngine::AudioSource& Sounds() const { return Of<ZOVEngine::AudioSource>("level"); }
  /// True if the level's sound of this name was asked for since the last step.
  bool IsAskedFor(const std::string& sound) const { return AsksFor(Find("level"), sound); }

  /// Runs updates of the turn machine, and nothing else, and returns what they printed.
  std::string Turn(int updates = 1) const {
    return OutputOf([&] {
      for (int i = 0; i < updates; ++i) Controller().Update(ZOVEngine::kStep);
    });
  }
  /// The same once, from the state `from` on.
  std::string TurnFrom(std::uint32_t from) const {
    Controller().m_state = from;
    return Turn();
  }
  std::uint32_t State() const { return Controller().m_state; }
  /// Hands control to a unit as the machine does, from its selection on.
  void GiveControl(const std::string& player) const {
    for (ZOVEngine::GameObj* other : Controller().m_players) {
      other->GetComponent<ZOVEngine::Player>()->m_acted = other->name != player;
    }
    TurnFrom(ZOVEngine::TURN_PLAYER_SELECT);
  }
  std::string Key(std::uint64_t key) const {
    return OutputOf([&] { world.Send(ZOVEngine::KeyUp(key)); });
  }
  std::string Click(std::uint32_t button = 0, std::uint32_t pressed = 1) const {
    return OutputOf([&] { world.Send(ZOVEngine::MouseButton(button, pressed, {0, 0, 1})); });
  }
  void Push(std::uint32_t direction, std::uint32_t pressed = 1) const {
    world.Send(ZOVEngine::PlayerDirectionKey(direction, pressed));
  }
  /// Sets something on the map in motion.
  void Disturb() const { GetBody("stone").m_vel.x = 3.0f; }

 private:
  static Files LevelWith(const std::vector<std::string>& units) {
    std::vector<std::string> children = units;
    children.push_back(
        Record("view", {{"Transform", PlacedAt(0, 0, 1)}, {"Camera", R"({"m_xlimit": 1})"}}));
    children.push_back(Record("stone", {{"Transform", PlacedAt(0, 300, 1)}, {"RigidBody", "{}"}}));
    Files files = PlainLevel({}, 20, 11, 60);
    files[kPlainUnits] = ObjectsFile(
        {Record("level",
                {{"Transform", PlacedAt(0, 0, 1)},
                 {"GameController", R"({"m_level_theme": "theme.ogg", "m_level_map": ")" +
                                        std::string(kPlainLevel) + "\"}"},
                 {"AudioSource",
                  R"({"sounds": [], "loop": [], "is_3D": [], "start_play": [], "volume": [],
              "sound_type": []})"}},
                children)});
    return files;
  }
};

}  // namespace carapace_test
