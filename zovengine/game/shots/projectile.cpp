#include "game/shots/projectile.h"

#include <cmath>
#include <limits>

#include "audio/audiosource.h"
#include "core/engine.h"
#include "core/messages.h"
#include "game/camera.h"
#include "game/hazards/deathfield.h"
#include "game/hazards/environmentdamage.h"
#include "game/hazards/environmentrough.h"
#include "game/turns/gamecontroller.h"
#include "game/units/enemy.h"
#include "objects/statec.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"
#include "render/components/animation.h"
#include "render/components/light.h"
#include "render/components/particlesystemc.h"
#include "render/components/render.h"

namespace ZOVEngine {
namespace {

constexpr float kForcePerSpeed = 10.0f;
constexpr float kForceTime = 0.1f;  ///< of a launch, a blast or a pull (unit: seconds)
constexpr float kForcePerBlast = 100.0f;
constexpr float kFadeSteps = 10.0f;    ///< the light at rest fades off in so many steps
constexpr float kFlashOfLight = 4.0f;  ///< of a hit, as a multiple of the light at rest
constexpr float kSpinPerStep = 10.0f;  ///< (unit: degrees)
constexpr float kShakeTime = 0.5f;     ///< (unit: seconds)
constexpr const char* kHitSound = "default_hit.ogg";

}  // namespace

void WakeShot(GameObj* shot, const Vector3D& position) {
  shot->SetActive(true);
  auto* transform = shot->GetComponent<Transform>();
  if (auto* body = FindComponent<RigidBody>(shot)) {
    body->m_prev_vel = body->m_vel = body->m_accel = Vector3D();
    body->m_rot_vel = 0.0f;
    body->m_forces.clear();
    body->m_torques.clear();
    transform->m_local_rotate = transform->m_prev_rotate = 0.0f;
  }
  transform->SetWorldPosition(position);
}

void LaunchShot(GameObj* shot, const Vector3D& direction, float speed) {
  AddForceToObject launch(shot->id, direction, speed * kForcePerSpeed, kForceTime);
  if (shot->HasComponent<RigidBody>()) g_engine->Broadcast(&launch);
}

void RecallShot(GameObj* shot) {
  shot->SetActive(false);
  shot->GetComponent<Transform>()->SetLocalPosition(Vector3D());
}

float SpeedOf(GameObj* shot) {
  return shot->GetComponent<RigidBody>()->m_vel.Length();
}

bool IsLevelOver(GameObj* shot) {
  const GameController* controller = FindController(shot);
  return controller != nullptr && controller->m_state == TURN_LEVEL_END;
}

float LightAtRest(GameObj* shot) {
  const auto* light = FindComponent<Light>(shot);
  return light == nullptr ? 0.0f : light->m_diffuseStr;
}

void FadeLight(GameObj* shot, float at_rest) {
  auto* light = FindComponent<Light>(shot);
  if (light == nullptr) return;
  if (light->m_diffuseStr > at_rest) {
    light->m_diffuseStr -= at_rest / kFadeSteps;
  } else {
    light->m_diffuseStr = at_rest;
  }
}

void FlashLight(GameObj* shot, float at_rest) {
  SetLight(shot, at_rest * kFlashOfLight);
}

void SetLight(GameObj* shot, float strength) {
  if (auto* light = FindComponent<Light>(shot)) light->m_diffuseStr = strength;
}

float FlightAngle(GameObj* shot) {
  return Heading(shot->GetComponent<RigidBody>()->m_vel);
}

void TurnTo(GameObj* object, float angle) {
  auto* transform = object->GetComponent<Transform>();
  transform->m_local_rotate = transform->m_prev_rotate = angle;
}

void Spin(GameObj* shot) {
  shot->GetComponent<Transform>()->m_local_rotate += kSpinPerStep;
}

void TurnTrail(GameObj* shot, float angle) {
  ForEachChildWith<ParticleSystemC>(shot, kTrail, [angle](ParticleSystemC* trail) {
    TurnTo(trail->m_owner, angle - 90.0f);
    trail->m_start_rot = {angle, angle};
  });
}

bool IgnoreIfPassable(const ContactSides& sides, ContactInfo* contact) {
  if (sides.BothActive() && !sides.EitherHas<EnvironmentRough>() &&
      !sides.EitherHas<EnvironmentDamage>() && !sides.EitherHas<DeathField>()) {
    return false;
  }
  contact->ignored = true;
  return true;
}

void Wound(GameObj* unit, int damage) {
  FindUnit(unit)->TakeHit(damage);
}

void WoundAndShake(GameObj* shot, GameObj* unit, int damage) {
  Wound(unit, damage);
  ShakeCamera(shot, kSmallShake);
}

void HitAndEnd(GameObj* shot, GameObj* unit, int damage) {
  WoundAndShake(shot, unit, damage);
  PlayHitSound(shot);
  shot->SetActive(false);
  // Once more: the sparks went out with the shot.
  EmitFeedback(shot);
}

void EndWithBang(GameObj* shot) {
  PlaySound(shot, "push_hit.ogg");
  shot->SetActive(false);
  EmitFeedback(shot);
  ShowBurst(shot);
}

bool IsBossAtOwnMuzzle(GameObj* shot, const ContactSides& sides) {
  GameObj* shooter = shot->parent;
  if (shooter == nullptr || (sides.a != shooter && sides.b != shooter)) return false;
  const auto* enemy = FindComponent<Enemy>(shooter);
  return enemy != nullptr && enemy->m_boss;
}

void ShakeCamera(GameObj* shot, float magnitude) {
  const GameController* controller = FindController(shot);
  if (controller == nullptr || controller->m_camera == nullptr) return;
  auto* camera = controller->m_camera->GetComponent<Camera>();
  camera->m_shaking = true;
  camera->m_shake_duration = kShakeTime;
  camera->m_shakemag = magnitude;
  camera->m_elapsed = 0.0f;
}

void EmitFeedback(GameObj* shot) {
  ForEachChildWith<ParticleSystemC>(shot, "bullet_feedback", [](ParticleSystemC* sparks) {
    sparks->m_active = true;
    sparks->m_emitting = true;
  });
}

void ShowBurst(GameObj* shot) {
  for (GameObj* child : shot->children) {
    if (!child->HasComponent<Animation>()) continue;
    SetState(child, "once");
    auto* render = FindComponent<Render>(child);
    if (render == nullptr) continue;
    render->m_visible = true;
    render->m_colour = {1.0f, 1.0f, 1.0f, 1.0f};
  }
}

void PlayBounceSound(GameObj* shot, const char* name) {
  auto* source = FindComponent<AudioSource>(shot);
  if (source == nullptr) return;
  if (source->IsPlaying(kHitSound) && source->sounds[kHitSound].start_play) return;
  source->PlaySound(name);
}

void PlayHitSound(GameObj* shot) {
  PlaySound(shot, kHitSound);
}

bool IsHitHeard(GameObj* shot) {
  auto* source = FindComponent<AudioSource>(shot);
  return source != nullptr && source->IsPlaying(kHitSound);
}

float DistanceBetween(GameObj* one, GameObj* other) {
  const auto* here = FindComponent<Transform>(one);
  const auto* there = FindComponent<Transform>(other);
  if (here == nullptr || there == nullptr) return std::numeric_limits<float>::infinity();
  return (here->m_world_pos - there->m_world_pos).Length();
}

void ApplyRadialForce(GameObj* centre, const RigidBody* body, float strength) {
  // What is switched off does not age its forces: they would only pile up.
  if (!body->m_active) return;
  GameObj* object = body->m_owner;
  const Vector3D away = object->GetComponent<Transform>()->m_world_pos -
                        centre->GetComponent<Transform>()->m_world_pos;
  const float distance = away.Length();
  // On the very centre there is no direction: the force would not be a number.
  if (distance == 0.0f) return;
  AddForceToObject blast(object->id, away, 1.0f / distance * strength * kForcePerBlast, kForceTime);
  g_engine->Broadcast(&blast);
}

}  // namespace ZOVEngine
