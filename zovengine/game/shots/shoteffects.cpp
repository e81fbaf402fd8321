#include "game/shots/shoteffects.h"

#include "audio/audiosource.h"
#include "core/engine.h"
#include "game/camera.h"
#include "game/objectquery.h"
#include "game/turns/gamecontroller.h"
#include "objects/statec.h"
#include "physics/components/transform.h"
#include "render/components/animation.h"
#include "render/components/light.h"
#include "render/components/particlesystemc.h"
#include "render/components/render.h"

namespace ZOVEngine {
namespace {

constexpr float kFadeSteps = 10.0f;     ///< the light at rest fades off in so many steps
constexpr float kFlashPerLight = 4.0f;  ///< of a hit, as a multiple of the light at rest
constexpr float kShakeTime = 0.5f;      ///< (unit: seconds)
constexpr const char* kHitSound = "default_hit.ogg";

}  // namespace

float LightStrength(GameObj* shot) {
  const auto* light = FindComponent<Light>(shot);
  return light == nullptr ? 0.0f : light->m_diffuseStr;
}

void SetLight(GameObj* shot, float strength) {
  if (auto* light = FindComponent<Light>(shot)) light->m_diffuseStr = strength;
}

void FlashLight(GameObj* shot, float at_rest) {
  SetLight(shot, at_rest * kFlashPerLight);
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

void TurnTo(GameObj* object, float angle) {
  auto* transform = object->GetComponent<Transform>();
  transform->m_local_rotate = transform->m_prev_rotate = angle;
}

void TurnTrail(GameObj* shot, float angle) {
  ForEachChildWith<ParticleSystemC>(shot, kTrail, [angle](ParticleSystemC* trail) {
    TurnTo(trail->m_owner, angle - 90.0f);
    trail->m_start_rot = {angle, angle};
  });
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

void ShakeCamera(GameObj* shot, float magnitude) {
  const GameController* controller = FindController(shot);
  if (controller == nullptr || controller->m_camera == nullptr) return;
  auto* camera = controller->m_camera->GetComponent<Camera>();
  camera->m_shaking = true;
  camera->m_shake_duration = kShakeTime;
  camera->m_shakemag = magnitude;
  camera->m_elapsed = 0.0f;
}

void PlayBounceSound(GameObj* shot, const char* name) {
  if (g_engine->step_paused) return;
  auto* source = FindComponent<AudioSource>(shot);
  if (source == nullptr) return;
  if (source->IsPlaying(kHitSound) && source->sounds[kHitSound].start_play) return;
  source->PlaySound(name);
}

void PlayHitSound(GameObj* shot) {
  if (g_engine->step_paused) return;
  PlaySound(shot, kHitSound);
}

bool IsHitHeard(GameObj* shot) {
  auto* source = FindComponent<AudioSource>(shot);
  return source != nullptr && source->IsPlaying(kHitSound);
}

}  // namespace ZOVEngine
