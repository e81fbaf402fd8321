#include "game/shots/projectileswap.h"

#include "game/shots/projectile.h"
#include "game/turns/gamecontroller.h"
#include "objects/reflection.h"
#include "physics/components/colliderholder.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"

RTTR_REGISTRATION {
  using ZOVEngine::ProjectileSwap;
  ZOVEngine::ComponentRegistration<ProjectileSwap>("ProjectileSwap")
      .Field("m_max_range", &ProjectileSwap::m_max_range, "float", "Max Range")
      .Field("m_speed", &ProjectileSwap::m_speed, "float", "Speed");
}

namespace ZOVEngine {
namespace {

void Respawn(GameObj* object) {
  SetState(object, "spawn");
  PlaySound(object, "unit_spawn.ogg");
}

/// Local positions are traded, whatever the parents are: deliberate, units are children of the
/// level's root, which sits at the origin.
void TradePlaces(GameObj* target, GameObj* selected) {
  Respawn(target);
  Respawn(selected);
  auto* theirs = target->GetComponent<Transform>();
  auto* ours = selected->GetComponent<Transform>();
  const Vector3D former = ours->m_local_pos;
  ours->SetLocalPosition(theirs->m_local_pos);
  theirs->SetLocalPosition(former);
}

}  // namespace

void ProjectileSwap::Unserialize(const Value& value) {
  ReadFlight(value, this);
}

void ProjectileSwap::Serialize(Writer& writer) {
  WriteFlight(writer, *this);
}

void ProjectileSwap::Init() {
  BindLitShot(this);
}

void ProjectileSwap::Fire(const Vector3D& position, const Vector3D& direction) {
  FireShot(this, position, direction);
}

void ProjectileSwap::Update(float dt) {
  if (!m_init) Init();
  FadeLight(m_owner, m_base_light);
  if (!m_active) return;
  Spin(m_owner);
  TurnTrail(m_owner, FlightAngle(m_owner));
  FlyOn(this, dt);
}

void ProjectileSwap::OnCollisionEnter(ContactInfo* contact) {
  const ContactSides sides(*contact);
  if (IgnoreIfPassable(sides, contact)) return;
  FlashLight(m_owner, m_base_light);
  PlaySound(m_owner, "bullet_bounce.ogg");
  EmitFeedback(m_owner);
  ShowBurst(m_owner);
  GameObj* target = sides.PartnerOf<ProjectileSwap>(
      [this](const GameObj* object) { return object != m_owner && IsCarriable(*object); });
  if (target == nullptr) return;
  contact->ignored = true;
  const GameController* controller = FindController(m_owner);
  if (controller != nullptr && controller->m_selected != nullptr) {
    TradePlaces(target, controller->m_selected);
  }
  m_owner->SetActive(false);
}

}  // namespace ZOVEngine
