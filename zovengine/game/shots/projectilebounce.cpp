#include "game/shots/projectilebounce.h"

#include "core/engine.h"
#include "game/shots/shoteffects.h"
#include "objects/fields.h"

namespace ZOVEngine {
namespace {

constexpr float kLongRange = 3000.0f;  ///< (unit: world units)
constexpr float kLightPerDamage = 200.0f;

/// The more dangerous the shot, the lower it sounds.
const char* BounceSound(int damage) {
  if (damage < 2) return "bullet_bounce1.ogg";
  return damage == 2 ? "bullet_bounce2.ogg" : "bullet_bounce3.ogg";
}

}  // namespace

ProjectileBounce::ProjectileBounce(GameObj* owner) : Shot(owner) {
  m_max_range = kLongRange;
}

template <class Visitor>
void ProjectileBounce::Fields(Visitor& visit) {
  Shot::Fields(visit);
  visit("m_min_damage", &ProjectileBounce::m_min_damage, "Min Damage", FieldBounds{0.0, 99.0});
  visit("m_max_damage", &ProjectileBounce::m_max_damage, "Max Damage", FieldBounds{0.0, 99.0});
}
ZOV_COMPONENT_FIELDS(ProjectileBounce)

void ProjectileBounce::Fire(const Vector3D& position, const Vector3D& direction) {
  m_curr_damage = m_min_damage;
  Shot::Fire(position, direction);
}

void ProjectileBounce::Update(float dt) {
  if (!m_init) Init();
  SetLight(m_owner, static_cast<float>(m_curr_damage) * kLightPerDamage + m_base_light);
  if (!m_active) return;
  TurnTrail(m_owner, PointAhead());
  FlyOn(dt);
}

void ProjectileBounce::Hit(const ContactSides& sides, ContactInfo*) {
  EmitFeedback(m_owner);
  if (Unit* unit = HitUnit(sides)) {
    EndAtUnit(unit, m_curr_damage);
    SetLight(m_owner, m_base_light);
    return;
  }
  // In a pause the same rebound comes in each step.
  if (!g_engine->step_paused && m_curr_damage < m_max_damage) ++m_curr_damage;
  PlayBounceSound(m_owner, BounceSound(m_curr_damage));
  ShowBurst(m_owner);
}

}  // namespace ZOVEngine
