#include "game/shots/shot.h"

#include "core/engine.h"
#include "core/messages.h"
#include "game/componentkinds.h"
#include "game/contactsides.h"
#include "game/hazards/passablehazard.h"
#include "game/objectquery.h"
#include "game/shots/shoteffects.h"
#include "game/turns/gamecontroller.h"
#include "game/units/enemy.h"
#include "objects/fields.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"

namespace ZOVEngine {
namespace {

constexpr float kLaunchForcePerSpeed = 10.0f;
constexpr float kLaunchTime = 0.1f;    ///< of a launch (unit: seconds)
constexpr float kSpinPerStep = 10.0f;  ///< (unit: degrees)

/// Of a shot that has a body; without one it keeps its turn as well.
void ResetMotion(GameObj* shot) {
  auto* body = FindComponent<RigidBody>(shot);
  if (body == nullptr) return;
  body->m_prev_vel = body->m_vel = body->m_accel = Vector3D();
  body->m_rot_vel = 0.0f;
  body->m_forces.clear();
  body->m_torques.clear();
  TurnTo(shot, 0.0f);
}

}  // namespace

ZOV_COMPONENT_FILE(Shot)

void Shot::Init() {
  m_init = true;
  m_base_light = LightStrength(m_owner);
  m_owner->SetActive(false);
  m_active = false;
}

void Shot::Fire(const Vector3D& position, const Vector3D& direction) {
  m_owner->SetActive(true);
  ResetMotion(m_owner);
  m_curr_range = 0.0f;
  m_owner->GetComponent<Transform>()->SetWorldPosition(position);
  AddForceToObject launch(m_owner->id, direction, m_speed * kLaunchForcePerSpeed, kLaunchTime);
  if (m_owner->HasComponent<RigidBody>()) g_engine->Broadcast(&launch);
}

void Shot::OnCollisionEnter(ContactInfo* contact) {
  const ContactSides sides(*contact);
  if (!IgnoreIfPassable(sides, contact)) Hit(sides, contact);
}

bool Shot::IgnoreIfPassable(const ContactSides& sides, ContactInfo* contact) const {
  if (!PassesThrough(sides)) return false;
  contact->ignored = true;
  return true;
}

bool Shot::PassesThrough(const ContactSides& sides) const {
  return !sides.BothActive() || HasKind<PassableHazard>(*sides.a) ||
         HasKind<PassableHazard>(*sides.b);
}

float Shot::Speed() const {
  return m_owner->GetComponent<RigidBody>()->m_vel.Length();
}

bool Shot::FlyOn(float dt) {
  if (m_curr_range < m_max_range) {
    m_curr_range += Speed() * dt;
    return true;
  }
  EndShot();
  return false;
}

bool Shot::IsLevelOver() const {
  const GameController* controller = FindController(m_owner);
  return controller != nullptr && controller->m_state == TURN_LEVEL_END;
}

void Shot::FlyUntilLevelEnd(float dt) {
  if (FlyOn(dt) && IsLevelOver()) EndShot();
}

void Shot::EndShot() {
  m_owner->SetActive(false);
  m_owner->GetComponent<Transform>()->SetLocalPosition(Vector3D());
  m_curr_range = 0.0f;
}

void Shot::EndAtUnit(Unit* unit, int damage) {
  unit->TakeHit(damage);
  ShakeCamera(m_owner, kSmallShake);
  PlayHitSound(m_owner);
  m_owner->SetActive(false);
  // Once more: the sparks went out with the shot.
  EmitFeedback(m_owner);
}

void Shot::EndWithBang() {
  PlaySound(m_owner, "push_hit.ogg");
  m_owner->SetActive(false);
  EmitFeedback(m_owner);
  ShowBurst(m_owner);
}

float Shot::FlightAngle() const {
  return Heading(m_owner->GetComponent<RigidBody>()->m_vel);
}

float Shot::PointAhead() {
  const float angle = FlightAngle();
  TurnTo(m_owner, angle);
  return angle;
}

void Shot::Spin() {
  m_owner->GetComponent<Transform>()->m_local_rotate += kSpinPerStep;
}

Unit* Shot::HitUnit(const ContactSides& sides) const {
  GameObj* unit = sides.PartnerOf(&typeid(*this), IsUnit);
  return unit != nullptr ? FindUnit(unit) : nullptr;
}

bool Shot::TouchesOwnBoss(const ContactSides& sides) const {
  GameObj* shooter = m_owner->parent;
  if (shooter == nullptr || !sides.Include(shooter)) return false;
  const auto* enemy = FindComponent<Enemy>(shooter);
  return enemy != nullptr && enemy->m_boss;
}

}  // namespace ZOVEngine
