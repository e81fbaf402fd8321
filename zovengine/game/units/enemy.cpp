#include "game/units/enemy.h"

#include <array>
#include <cmath>
#include <iostream>
#include <string>

#include "audio/audiosource.h"
#include "game/objectquery.h"
#include "game/shots/projectiledefault.h"
#include "game/shots/projectileexplosion.h"
#include "game/turns/gamecontroller.h"
#include "objects/fields.h"
#include "objects/statec.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"
#include "render/components/light.h"
#include "render/components/render.h"

namespace ZOVEngine {
namespace {

constexpr float kFadePerSecond = 2.0f;  ///< of shield and field, in alpha
constexpr float kArrival = 3.0f;        ///< of a turn; a fast one passes 6 a step (unit: degrees)
constexpr float kTurnSpeed = 360.0f;    ///< (unit: degrees per second)
constexpr float kBossTurnSpeed = 100.0f;
constexpr float kBossDeathTime = 5.0f;      ///< (unit: seconds)
constexpr float kExplosionInterval = 0.3f;  ///< (unit: seconds)
constexpr float kLightPerSecond = 100.0f;   ///< of a dying boss
constexpr unsigned kStrobePeriod = 5;       ///< (unit: steps)
constexpr const char* kField = "DeathField";
constexpr const char* kMiddleShot = "MiddleProj";

/// A boss's outer shot, and its angle from the middle one (unit: radians).
struct OuterShot {
  const char* name;
  float spread;
};
constexpr OuterShot kOuterShotsOfPhase1[] = {{"LeftProjPhase1", -0.25f},
                                             {"RightProjPhase1", 0.25f}};
constexpr OuterShot kOuterShotsOfPhase2[] = {{"LeftProjPhase2", -0.25f},
                                             {"RightProjPhase2", 0.25f}};
/// Of all three shots together, by phase.
constexpr const char* kBossFlashes[] = {"Sheet_Fire_BossPhase1", "Sheet_Fire_BossPhase2"};
constexpr const char* kShields[] = {"ShieldPhase1", "ShieldPhase2"};
constexpr std::array kExplosions = {"DeathExplosion00", "DeathExplosion01", "DeathExplosion02",
                                    "DeathExplosion03", "DeathExplosion04", "DeathExplosion05",
                                    "DeathExplosion06", "DeathExplosion07", "DeathExplosion08",
                                    "DeathExplosion09", "DeathExplosion10"};

/// Counts the steps of all dying bosses together, deliberately: two of them strobe in one rhythm.
unsigned g_strobe_steps = 0;

void SetFieldsActive(GameController* controller, bool active) {
  if (controller == nullptr) return;
  ForEachChildNamed(controller->m_owner, kField,
                    [active](GameObj* field) { field->SetActive(active); });
}

/// One step of the fade of the children of this name, up to the first that is there. True when no
/// child had to go on.
bool FadeInChildren(GameObj* object, const char* name, float dt) {
  bool done = true;
  for (GameObj* child : object->children) {
    auto* render = child->name == name ? FindComponent<Render>(child) : nullptr;
    if (render == nullptr) continue;
    float& alpha = render->m_colour[3];
    if (alpha >= 1.0f) {
      alpha = 1.0f;
      break;
    }
    alpha += kFadePerSecond * dt;
    done = false;
  }
  return done;
}

Vector3D DirectionAt(float angle) {
  return Vector3D(std::cos(angle), std::sin(angle), 0.0f);
}

void FireShell(GameObj* object, const Vector3D& muzzle, const Vector3D& direction) {
  if (auto* shell = FindComponent<ProjectileExplosion>(object)) shell->Fire(muzzle, direction);
}

}  // namespace

template <class Visitor>
void Enemy::Fields(Visitor& visit) {
  visit("m_health", &Enemy::m_health, "Curr HP", FieldBounds{0.0, 99.0});
  visit("m_max_health", &Enemy::m_max_health, "Max HP", FieldBounds{1.0, 99.0});
  visit("m_alive", &Enemy::m_alive, "Alive");
  visit("m_selected_first_weapon", &Enemy::m_selected_first_weapon, "Selected First Weapon");
  visit("m_boss", &Enemy::m_boss, "Boss");
  visit("m_waypoints", &Enemy::m_waypoints, "Waypoints");
  visit("m_move_speed", &Enemy::m_move_speed, "Move Speed", FieldBounds{0.0, 5000.0});
  visit("m_move_limit", &Enemy::m_move_limit, "Move Limit", FieldBounds{0.0, 10.0});
  visit("m_snap_range", &Enemy::m_snap_range, "Snap Range", FieldBounds{0.0, 200.0});
}
ZOV_COMPONENT_FIELDS(Enemy)

void Enemy::Init() {
  Bind();
  if (!m_boss) return;
  ForEachChildNamed(m_owner, kShields[0], [](GameObj* shield) { shield->SetActive(true); });
  ForEachChildNamed(m_owner, kShields[1], [](GameObj* shield) {
    if (auto* render = FindComponent<Render>(shield)) render->m_colour[3] = 0.0f;
    shield->SetActive(false);
  });
  for (const char* name : kExplosions) {
    ForEachChildNamed(m_owner, name, [](GameObj* explosion) {
      SetState(explosion, "default");
      explosion->SetActive(false);
    });
  }
}

void Enemy::Destroy() {
  std::cout << "Enemy Destroy" << '\n';
}

void Enemy::Update(float dt) {
  m_dt = dt;
  if (!m_alive) return;
  if (!m_init) Init();
  GameController* controller = FindController(m_owner);
  if (!RunUpkeep(controller)) return;
  BeginPhaseTwo(controller);
  FadePhaseIn(controller);
  ShowHeldBarrel();
  if (m_turning) Turn(controller);
  if (m_health >= 1) {
    RunAlive();
  } else if (m_boss) {
    DieAsBoss(controller);
  } else {
    Die(controller);
  }
}

void Enemy::BeginPhaseTwo(GameController* controller) {
  if (m_phase_two || !m_boss || m_health > m_max_health / 2) return;
  if (controller == nullptr || !controller->AllBodiesAtRest()) return;
  m_selected_first_weapon = false;
  m_phase_two = m_phase_change = true;
  ForEachChildNamed(m_owner, kShields[1], [](GameObj* shield) { shield->SetActive(true); });
  SetFieldsActive(controller, true);
}

void Enemy::FadePhaseIn(GameController* controller) {
  if (!m_phase_change || m_phase_ready) return;
  const bool field_done =
      controller == nullptr || FadeInChildren(controller->m_owner, kField, m_dt);
  const bool shield_done = FadeInChildren(m_owner, kShields[1], m_dt);
  if (field_done && shield_done) m_phase_ready = true;
}

/// Turns the body by its angular velocity until it is within the arrival of the aim.
void Enemy::Turn(GameController* controller) {
  auto* transform = m_owner->GetComponent<Transform>();
  auto* body = m_owner->GetComponent<RigidBody>();
  // Rotations of 0 to 90 are counted from the other side, as -360 to -270: a turning body stays
  // below 0.
  if (m_aim_angle >= 0.0f && m_aim_angle <= 90.0f) m_aim_angle -= 360.0f;
  const float rotation = transform->m_local_rotate;
  if (m_aim_angle + kArrival < rotation || rotation < m_aim_angle - kArrival) {
    const float speed = m_boss ? kBossTurnSpeed : kTurnSpeed;
    body->m_rot_vel = rotation <= m_aim_angle ? speed : -speed;
    if (controller != nullptr) PlaySound(controller->m_owner, "tank_move.ogg");
    return;
  }
  m_turning = false;
  body->m_rot_vel = body->m_rot_accel = 0.0f;
  transform->m_local_rotate = m_aim_angle;
}

/// A common enemy's death puts out the level's death field as well: deliberate, though the field is
/// the boss's.
void Enemy::Die(GameController* controller) {
  SetFieldsActive(controller, false);
  FallApart();
}

void Enemy::DieAsBoss(GameController* controller) {
  if (m_death_done) EndAsBoss();
  m_dying = true;
  if (!m_death_done) {
    m_death_timer += m_dt;
    if (auto* light = FindComponent<Light>(m_owner)) light->m_diffuseStr += m_dt * kLightPerSecond;
    if (g_strobe_steps++ % kStrobePeriod == 0) {
      Flash();
    } else {
      Paint(1.0f);
    }
    RunExplosions();
  }
  if (m_death_timer >= kBossDeathTime) EndExplosions();
  StopColliding();
  SetFieldsActive(controller, false);
  for (const char* name : kShields) {
    ForEachChildWith<Render>(m_owner, name, [](Render* shield) { shield->m_visible = false; });
  }
  HideMarks();
}

/// The last step of a boss's death. The barrels keep what the strobe left on them: they are hidden.
void Enemy::EndAsBoss() {
  PaintObject(m_owner, 1.0f);
  StartDeathSheet();
  for (GameObj* child : m_owner->children) {
    if (child->HasComponent<ProjectileExplosion>()) ShrinkHits(child);
  }
  m_alive = false;
}

void Enemy::RunExplosions() {
  for (std::size_t i = 0; i < kExplosions.size(); ++i) {
    if (m_death_timer < kExplosionInterval * static_cast<float>(i)) break;
    ForEachChildNamed(m_owner, kExplosions[i], [](GameObj* explosion) {
      const auto* state = FindComponent<StateC>(explosion);
      if (state == nullptr || state->m_state == "loop") return;
      explosion->SetActive(true);
      SetState(explosion, "loop");
      auto* source = FindComponent<AudioSource>(explosion);
      if (source != nullptr && !source->IsPlaying("unit_death.ogg")) {
        source->PlaySound("unit_death.ogg");
      }
    });
  }
}

void Enemy::EndExplosions() {
  for (const char* name : kExplosions) {
    ForEachChildNamed(m_owner, name, [](GameObj* explosion) {
      if (auto* source = FindComponent<AudioSource>(explosion)) source->StopAllSounds();
      explosion->SetActive(false);
    });
  }
  m_death_done = true;
}

void Enemy::Fire() {
  if ((m_boss && m_health < 1) || m_target == nullptr) return;
  const auto* transform = m_owner->GetComponent<Transform>();
  const float angle = DegreesToRadians(transform->m_world_rotate + 90.0f);
  const Vector3D direction = DirectionAt(angle).Normalized();
  Vector3D muzzle;
  if (GameObj* barrel = FirstBarrel()) {
    const auto* size = FindComponent<Transform>(barrel);
    const float length = size != nullptr ? size->m_world_scale.y : 0.0f;
    muzzle = transform->m_world_pos + direction * (m_boss ? length : length / kScalePerMuzzle);
  }
  if (m_boss) {
    FireAsBoss(muzzle, angle);
  } else {
    FireHeldWeapon(muzzle, direction);
  }
  ShowMuzzleFire(m_boss ? kBossFlashes[m_phase_two ? 1 : 0] : HeldFlash());
  m_fired = true;
}

/// The middle shot bursts in both phases, the outer ones in the second.
void Enemy::FireAsBoss(const Vector3D& muzzle, float angle) {
  const auto& outer = m_phase_two ? kOuterShotsOfPhase2 : kOuterShotsOfPhase1;
  for (GameObj* child : m_owner->children) {
    if (child->name == kMiddleShot) FireShell(child, muzzle, DirectionAt(angle).Normalized());
    for (const auto& [name, spread] : outer) {
      if (child->name != name) continue;
      const Vector3D direction = DirectionAt(angle + spread);
      if (m_phase_two) {
        FireShell(child, muzzle, direction);
      } else if (auto* shot = FindComponent<ProjectileDefault>(child)) {
        shot->Fire(muzzle, direction);
      }
    }
  }
}

}  // namespace ZOVEngine
