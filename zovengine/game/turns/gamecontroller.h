#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/base/vector3d.h"
#include "game/levels/tilemap.h"
#include "objects/componentmanager.h"
#include "objects/logiccomponent.h"
#include "physics/components/rigidbody.h"

namespace ZOVEngine {

/// The states of the turn machine. The numbers are those of `GameController::m_state`.
enum TurnState : std::uint32_t {
  TURN_ENEMY_NEXT = 0,     ///< is any enemy left to act?
  TURN_ENEMY_SHOOT = 1,    ///< the selected enemy fires its stored aim
  TURN_ENEMY_SELECT = 2,   ///< pick the next enemy
  TURN_ENEMY_MOVE = 3,     ///< the selected enemy walks its waypoints
  TURN_ENEMY_AIM = 4,      ///< the selected enemy picks a target and turns to it
  TURN_PLAYER_NEXT = 5,    ///< is any player unit left to act?
  TURN_PLAYER_SELECT = 6,  ///< pick the next player unit
  TURN_PLAYER_MOVE = 7,    ///< keys move the unit, the mouse aims, a click fires
  TURN_PLAYER_AIM = 8,     ///< energy spent: the mouse aims, a click fires
  TURN_LEVEL_END = 9,      ///< level over
};

/// Runs one level, as a component of the level's root object: the units, the camera and the
/// interface are children of that root.
///
/// Its first step starts the music, builds the tiles and their colliders, and gathers the units.
/// Every step then tests for the end of the level and runs the turn machine (TurnMachine); messages
/// go to TurnInput. The fields here are the state of all three: buttons, elements of the interface,
/// units and shots read them. The pointers to objects are valid until the next change of state; the
/// controller owns none of them.
class GameController final : public LogicComponent {
  RTTR_ENABLE(LogicComponent)

 public:
  using LogicComponent::LogicComponent;

  template <class Visitor>
  static void Fields(Visitor& visit);
  template <class Visitor>
  static void Inspected(Visitor& visit);
  void Unserialize(const Value& value) override;
  void Serialize(Writer& writer) override;
  /// Starts the level: everything but the two persisted fields is set anew, the level of
  /// `m_level_map` is built, and the random numbers are seeded from the time of day. An object
  /// without an AudioSource ends the program.
  void Init() override;
  /// One step of the level; its length plays no part. Carries out a requested restart or return to
  /// the menu instead, after which no object is left, this one included.
  void Update(float dt) override;
  void Destroy() override {}
  /// Answers the queries for the selected unit and for this controller, and carries out input.
  void OnMessage(Message* message) override;

  /// Builds the tiles of the level file at `level_path` into this controller, as BuildTiles does.
  void BuildLevel(const std::string& level_path);

  /// Makes every living enemy ready to act and to fire again.
  void ResetEnemies();
  /// Silences the object and starts the level anew at the next update.
  void RequestRestart();
  /// Silences the object, ends a pause, and goes to the main menu at the next update.
  void RequestQuitToMenu();

  /// True if no player unit lives. Each time that this is true, the interface goes to
  /// "ui_level_end"; deliberate: the buttons and elements that ask rely on it.
  bool AllPlayersDead();
  /// The same for the enemies.
  bool AllEnemiesDead();
  /// True if no active body but particles moves by 3 world units a second in x or y, or turns by
  /// 3 degrees a second. Before Init nothing moves.
  bool AllBodiesAtRest() const;
  /// True if every living enemy has finished its move of this round.
  bool AllEnemiesActed() const;
  /// The point of the level under the mouse: the camera's position plus the cursor's, z 1 (unit:
  /// world units). A level without a camera is seen from its origin.
  Vector3D MouseWorldPos() const;

  std::shared_ptr<ComponentManager<RigidBody>> m_rigid_bodies;  ///< null until Init
  std::uint32_t m_state = TURN_ENEMY_NEXT;                      ///< a TurnState
  std::string m_level_theme = "maintheme03.ogg";                ///< file name of the music
  std::string m_level_map;                                      ///< path of the level file
  std::vector<GameObj*> m_tile_objects;                         ///< filled by BuildLevel
  TileMap m_tile_map;
  GameObj* m_camera = nullptr;      ///< the child with a Camera
  GameObj* m_selected = nullptr;    ///< the acting unit; null until the first selection
  std::vector<GameObj*> m_players;  ///< in the order of the children
  std::vector<GameObj*> m_enemies;  ///< in the order of the children
  Vector3D m_turn_start_pos;        ///< of the acting unit when it was selected; undo goes there
  std::int32_t m_round = 0;         ///< finished rounds
  std::string m_ui_state = "ui_default";
  bool m_music_on = true;
  bool m_sfx_on = true;
  bool m_debug = false;         ///< debug drawing is on
  bool m_fade_done = false;     ///< the dimming at the level's end is over
  bool m_banner_done = false;   ///< the banner of victory or defeat has faded in
  bool m_restart = false;       ///< start the level anew at the next update
  bool m_quit_to_menu = false;  ///< go to the menu at the next update

 private:
  template <class Unit>
  bool EndsWithout(const std::vector<GameObj*>& units);
  void ResetFields();
  void StartSounds();
  void GatherChildren();
  void CheckLevelEnd();
};

}  // namespace ZOVEngine
