#include "autoplay/autoplayer.h"

#include <algorithm>
#include <cmath>

#include "autoplay/levelrun.h"
#include "game/componentkinds.h"
#include "game/hazards/passablehazard.h"
#include "game/turns/gamecontroller.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "objects/gameobjfactory.h"
#include "physics/components/colliderholder.h"
#include "physics/components/transform.h"
#include "platform/virtualkeys.h"

namespace ZOVEngine {
namespace {

constexpr Vector3D kDirections[] = {{0, 1, 0}, {0, -1, 0}, {-1, 0, 0}, {1, 0, 0}};
constexpr float kStride = 130.0f;    ///< of one drive, about (unit: world units)
constexpr int kDriveSteps = 36;      ///< a key is held for a drive
constexpr int kMostDrives = 3;       ///< in a turn
constexpr int kAimSteps = 3;         ///< from the aim to the click
constexpr float kUnitReach = 45.0f;  ///< about half of a unit
constexpr float kLineReach = 70.0f;  ///< a shot that passes at this distance misses
constexpr int kSkipKey = kVkF;
constexpr int kSwitchKey = kVkQ;

const Vector3D& Place(GameObj* object) {
  return object->GetComponent<Transform>()->m_world_pos;
}

float Distance(const Vector3D& a, const Vector3D& b) {
  return std::hypot(a.x - b.x, a.y - b.y);
}

/// Whether the segment from `from` to `to` meets a box that is wider by `margin` (the slab method).
bool MeetsBox(const Vector3D& from, const Vector3D& to, const iCollider& box, float margin) {
  float enter = 0.0f;
  float leave = 1.0f;
  for (int axis = 0; axis < 2; ++axis) {
    const float span = to.v[axis] - from.v[axis];
    const float low = box.m_min.v[axis] - margin - from.v[axis];
    const float high = box.m_max.v[axis] + margin - from.v[axis];
    if (span == 0.0f) {
      if (low > 0.0f || high < 0.0f) return false;
      continue;
    }
    enter = std::max(enter, std::min(low / span, high / span));
    leave = std::min(leave, std::max(low / span, high / span));
  }
  return enter <= leave;
}

/// Zones that one can drive and shoot through.
bool IsPassable(const GameObj& object) {
  return HasKind<PassableHazard>(object);
}

bool IsAlive(GameObj* object) {
  if (object->HasComponent<Player>()) return object->GetComponent<Player>()->m_alive;
  return object->GetComponent<Enemy>()->m_alive;
}

bool NoneAlive(const std::vector<GameObj*>& units) {
  return std::none_of(units.begin(), units.end(), IsAlive);
}

}  // namespace

bool AutoPlayer::HasLost() const {
  return NoneAlive(FindTurnController()->m_players);
}

bool AutoPlayer::HasWon() const {
  return !HasLost() && NoneAlive(FindTurnController()->m_enemies);
}

std::string AutoPlayer::Outcome() const {
  if (HasLost()) return "lost";
  return HasWon() ? "won" : "open";
}

int AutoPlayer::Rounds() const {
  return FindTurnController()->m_round;
}

bool AutoPlayer::Play(int rounds, int most_steps) {
  for (int step = 0; step < most_steps && Rounds() < rounds; ++step) {
    if (!Step()) return true;
  }
  return false;
}

bool AutoPlayer::Step() {
  GameController& controller = *FindTurnController();
  if (controller.m_state == TURN_LEVEL_END) return false;
  m_inputs.clear();
  Decide(controller);
  StepEngine();
  return true;
}

void AutoPlayer::Decide(GameController& controller) {
  if (controller.m_state != TURN_PLAYER_MOVE && controller.m_state != TURN_PLAYER_AIM) return;
  if (controller.m_selected != m_unit || controller.m_round != m_round) BeginTurn(controller);
  if (m_style == Style::kSkip) {
    Press({GameInput::Kind::kKey, kSkipKey, 0});
    return;
  }
  switch (m_phase) {
    case Phase::kPlan:
      Plan(controller);
      break;
    case Phase::kDrive:
      Drive(controller);
      break;
    case Phase::kSettle:
      if (controller.AllBodiesAtRest()) m_phase = Phase::kPlan;
      break;
    case Phase::kAim:
      AimAndFire(controller);
      break;
  }
}

void AutoPlayer::BeginTurn(const GameController& controller) {
  m_unit = controller.m_selected;
  m_round = controller.m_round;
  m_phase = Phase::kPlan;
  m_drives = 0;
  m_aim_steps = 0;
}

/// Chooses between the place where the unit is and those that one drive leads to.
void AutoPlayer::Plan(GameController& controller) {
  const Point here = Place(controller.m_selected);
  m_direction = -1;
  float best = Score(here, controller);
  const bool can_drive = m_drives < kMostDrives && controller.m_state == TURN_PLAYER_MOVE;
  for (int i = 0; can_drive && i < 4; ++i) {
    const Point there = here + kDirections[i] * kStride;
    if (!IsClear(here, there + kDirections[i] * kUnitReach)) continue;
    const float score = Score(there, controller);
    if (score <= best) continue;
    best = score;
    m_direction = i;
  }
  m_phase = m_direction < 0 ? Phase::kAim : Phase::kDrive;
  m_drive_steps = kDriveSteps;
  ++m_drives;
}

void AutoPlayer::Drive(GameController& controller) {
  if (m_drive_steps-- > 0 && controller.m_state == TURN_PLAYER_MOVE) {
    Press({GameInput::Kind::kDirection, m_direction, 0});
  } else {
    m_phase = Phase::kSettle;
  }
}

void AutoPlayer::AimAndFire(GameController& controller) {
  GameObj* target = ChooseTarget(Place(controller.m_selected), controller);
  if (target == nullptr) return;
  if (m_aim_steps == 0 && m_round % 2 == 1) Press({GameInput::Kind::kKey, kSwitchKey, 0});
  PointAt(Place(target), controller);
  if (++m_aim_steps < kAimSteps) return;
  Press({GameInput::Kind::kClick, 0, 0});
  ++m_shots;
  m_unit = nullptr;
}

/// How good it is to stand at a place: to see an enemy counts most, then not to be aimed at, then
/// to be near.
float AutoPlayer::Score(const Point& place, const GameController& controller) const {
  float nearest = 4000.0f;
  bool sees = false;
  for (GameObj* enemy : controller.m_enemies) {
    if (!IsAlive(enemy)) continue;
    nearest = std::min(nearest, Distance(place, Place(enemy)));
    sees = sees || IsClear(place, Place(enemy));
  }
  return (sees ? 5000.0f : 0.0f) - (IsAimedAt(place, controller) ? 3000.0f : 0.0f) - nearest;
}

/// Whether nothing stands between two places: walls, holes, and units but the acting one and those
/// at the ends.
bool AutoPlayer::IsClear(const Point& from, const Point& to) const {
  for (GameObj* object : g_game_obj_factory->m_objects) {
    if (object == nullptr || !object->active || !object->HasComponent<ColliderHolder>()) continue;
    const ColliderHolder& holder = *object->GetComponent<ColliderHolder>();
    const bool shot = object->name.find("Proj") != std::string::npos;
    if (!holder.m_active || object == m_unit || shot || IsPassable(*object)) continue;
    const bool at_end = Distance(Place(object), to) < kUnitReach;
    if (!at_end && MeetsBox(from, to, *holder.m_collider, 12.0f)) return false;
  }
  return true;
}

bool AutoPlayer::IsAimedAt(const Point& place, const GameController& controller) const {
  for (GameObj* enemy : controller.m_enemies) {
    if (!IsAlive(enemy)) continue;
    const auto& transform = *enemy->GetComponent<Transform>();
    const float angle = DegreesToRadians(transform.m_world_rotate + 90.0f);
    const Point offset = place - transform.m_world_pos;
    const float along = offset.x * std::cos(angle) + offset.y * std::sin(angle);
    const float aside = std::abs(offset.y * std::cos(angle) - offset.x * std::sin(angle));
    if (along > 0.0f && aside < kLineReach && IsClear(transform.m_world_pos, place)) return true;
  }
  return false;
}

/// The nearest living enemy in sight, or the nearest one; null when none lives.
GameObj* AutoPlayer::ChooseTarget(const Point& from, const GameController& controller) const {
  GameObj* chosen = nullptr;
  float best = 0.0f;
  for (GameObj* enemy : controller.m_enemies) {
    if (!IsAlive(enemy)) continue;
    const float unseen = IsClear(from, Place(enemy)) ? 0.0f : 10000.0f;
    const float cost = Distance(from, Place(enemy)) + unseen;
    if (chosen != nullptr && cost >= best) continue;
    chosen = enemy;
    best = cost;
  }
  return chosen;
}

/// Moves the cursor to a place in the world, to the pixel.
void AutoPlayer::PointAt(const Point& place, const GameController& controller) {
  const Point camera = controller.m_camera != nullptr ? Place(controller.m_camera) : Point();
  const Point from_camera = place - camera;
  const Point origin = PlayedCursor(0, 0);
  const Point next = PlayedCursor(1, 1);
  Press({GameInput::Kind::kCursor,
         static_cast<int>(std::lround((from_camera.x - origin.x) / (next.x - origin.x))),
         static_cast<int>(std::lround((from_camera.y - origin.y) / (next.y - origin.y)))});
}

void AutoPlayer::Press(const GameInput& input) {
  m_inputs.push_back(input);
  Apply(input);
}

}  // namespace ZOVEngine
