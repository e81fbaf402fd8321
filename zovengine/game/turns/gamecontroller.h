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

/// True once "Player Move" was printed, which is done once in a run of the program.
extern bool g_player_move_printed;

/// Runs one level, from the root object of the level on: the units, the camera and the interface
/// are children of that root.
///
/// When it starts, at its first step, it starts the level's music, builds the level's tiles and
/// their colliders, and gathers its units. From then on it is the turn machine: every enemy acts,
/// then every player unit, and so on until one side is dead. There is no message for the end of a
/// shot or a push; the machine goes on when everything on the map has slowed down. The pointers to
/// objects are valid until the next change of state; the controller owns none of them.
class GameController final : public LogicComponent {
  RTTR_ENABLE(LogicComponent)

 public:
  using LogicComponent::LogicComponent;

  void Unserialize(const Value& value) override;
  void Serialize(Writer& writer) override;
  /// Starts the level: everything but the two persisted fields is set anew, the level of
  /// `m_level_map` is built, and the random numbers are seeded from the time of day. An object
  /// without an AudioSource ends the program.
  void Init() override;
  /// One step of the turn machine; the length of the step plays no part. Carries out a restart or a
  /// way back to the menu that was asked for; after that all objects are gone, this one included.
  void Update(float dt) override;
  void Destroy() override {}
  /// Takes the firing click, the movement keys, the keys of the level, a lost focus, and the
  /// queries for the selected unit and for this controller.
  void OnMessage(Message* message) override;

  /// Builds the tiles of the level file at `level_path` into this controller, as BuildTiles does.
  void BuildLevel(const std::string& level_path);

  /// Makes every living enemy ready to act and to fire again.
  void ResetEnemies();
  /// Silences the object and starts the level anew at the next update.
  void RequestRestart();
  /// Silences the object, ends a pause, and goes to the main menu at the next update.
  void RequestQuitToMenu();

  /// True if no player unit lives. Then, and every time, the interface goes to "ui_level_end":
  /// deliberate, the buttons and the elements that ask rely on it.
  bool AllPlayersDead();
  /// The same for the enemies.
  bool AllEnemiesDead();
  /// True if no active body but particles moves by 3 world units a second in x or y, or turns by
  /// 3 degrees a second. Before Init nothing moves.
  bool AllBodiesAtRest() const;
  /// True if every living enemy has finished its move of this round.
  bool AllEnemiesActed() const;
  /// Where the mouse points in the level: the cursor from the camera's position on, z 1 (unit:
  /// world units). A level without a camera is looked at from its origin.
  Vector3D MouseWorldPos() const;

  std::shared_ptr<ComponentManager<RigidBody>> m_rigid_bodies;  ///< null until Init
  std::uint32_t m_state = TURN_ENEMY_NEXT;                      ///< a TurnState
  std::string m_level_theme = "maintheme03.ogg";                ///< file name of the music
  std::string m_level_map;                                      ///< path of the level file
  std::vector<GameObj*> m_tile_objects;
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
  bool m_banner_done = false;   ///< the banner of victory or defeat is fully in
  bool m_restart = false;       ///< start the level anew at the next update
  bool m_quit_to_menu = false;  ///< go to the menu at the next update

 private:
  template <class Unit>
  bool EndsWithout(const std::vector<GameObj*>& units);
  void ResetFields();
  void StartSounds();
  void GatherChildren();

  // The turn machine
  void RenumberLabels();
  void CheckLevelEnd();
  bool IsHeldBack() const;
  bool IsRingClosing() const;
  void RunTurn();
  void RunAtRest();
  void EnemyNext();
  void EnemyShoot();
  void EnemySelect();
  void EnemyMove();
  void EnemyAim();
  void PlayerNext();
  void PlayerSelect();
  void PlayerMove();
  void PlayerAim();
  void EndEnemyTurn();
  void StepMove();
  GameObj* DrawTarget() const;
  GameObj* FirstPlayerToAct() const;
  void AimSelected();
  bool Select(GameObj* unit);
  void ReleaseSelected();
  bool SurvivesStatus(GameObj* unit);

  // Keys and the mouse
  bool IsPlayersTurn() const {
    return m_selected != nullptr && (m_state == TURN_PLAYER_MOVE || m_state == TURN_PLAYER_AIM);
  }
  void FireSelected();
  void PushSelected(std::uint32_t direction);
  void TakeKey(std::uint64_t key);
  void ToggleScreen();
  void LoseFocus();
  void ToggleDebug();
  void SkipUnit();
  void HealPlayers();
  void KillEnemies();
  void SwitchWeapon();
  void UndoMove();
};

}  // namespace ZOVEngine
