#include "game/environmentblackhole.h"

#include "core/engine.h"
#include "core/messages.h"
#include "game/camera.h"
#include "game/contactsides.h"
#include "objects/reflection.h"
#include "physics/colliderholder.h"
#include "physics/transform.h"
#include "render/animation.h"
#include "render/particle.h"
#include "render/particlesystemc.h"
#include "render/render.h"

RTTR_REGISTRATION {
  using ZOVEngine::EnvironmentBlackhole;
  ZOVEngine::ComponentRegistration<EnvironmentBlackhole>("EnvironmentBlackhole")
      .Field("m_suction_force", &EnvironmentBlackhole::m_suction_force, "float", "Suction Force")
      .Field("m_suction_range", &EnvironmentBlackhole::m_suction_range, "float", "Suction Range");
}

namespace ZOVEngine {
namespace {

constexpr float kTurnPerStep = 0.5f;  ///< (unit: degrees)
constexpr float kForcePerSuction = 100.0f;
constexpr float kPullTime = 0.1f;  ///< of one step's force (unit: seconds)

/// What is not drawn: pictures, units, and barriers, which only players move.
bool IsLeftAlone(GameObj* object) {
  if (object->HasComponent<Particle>() || object->HasComponent<Camera>() || IsUnit(*object)) {
    return true;
  }
  const auto* render = FindComponent<Render>(object);
  return render != nullptr && render->m_tex == "Env_MovableBarrier";
}

}  // namespace

void EnvironmentBlackhole::Unserialize(const Value& value) {
  ReadValue(value, "m_suction_force", &m_suction_force);
  ReadValue(value, "m_suction_range", &m_suction_range);
}

void EnvironmentBlackhole::Serialize(Writer& writer) {
  WriteValue(writer, "m_suction_force", m_suction_force);
  WriteValue(writer, "m_suction_range", m_suction_range);
}

void EnvironmentBlackhole::Init() {
  m_init = true;
  m_bodies = FetchTable<RigidBody>();
  m_owner->SetActive(true);
  m_active = true;
  if (m_owner->HasComponent<Animation>()) SetStateOf(m_owner, "loop");
  if (auto* dust = FindComponent<ParticleSystemC>(m_owner)) {
    dust->m_emitting = true;
    dust->m_active = true;
  }
}

void EnvironmentBlackhole::Update(float) {
  if (!m_init) Init();
  if (!m_active) return;
  m_owner->GetComponent<Transform>()->m_local_rotate += kTurnPerStep;
  for (const RigidBody* body : m_bodies->Components()) {
    // What is switched off does not age its forces: they would only pile up.
    if (body->m_active) Pull(body->m_owner);
  }
}

/// The direction has the length of the distance, which the magnitude divides by: the force is the
/// same at all distances.
void EnvironmentBlackhole::Pull(GameObj* object) const {
  if (IsLeftAlone(object)) return;
  const Vector3D away = object->GetComponent<Transform>()->m_world_pos -
                        m_owner->GetComponent<Transform>()->m_world_pos;
  const float distance = away.Length();
  // A body on the very centre is drawn nowhere: its force would not be a number.
  if (m_suction_range < distance || distance == 0.0f) return;
  AddForceToObject pull(object->id, away, -1.0f / distance * m_suction_force * kForcePerSuction,
                        kPullTime);
  g_engine->Broadcast(&pull);
}

void EnvironmentBlackhole::OnCollisionEnter(ContactInfo* contact) {
  const ContactSides sides(*contact);
  if (!sides.BothActive()) return;
  GameObj* caught = sides.Facing<EnvironmentBlackhole>([](const GameObj* object) {
    return IsUnit(*object) ||
           (object->HasComponent<RigidBody>() && object->HasComponent<ColliderHolder>());
  });
  if (caught == nullptr) return;
  if (int* health = HealthOf(caught)) {
    *health = 0;
  } else {
    caught->SetActive(false);
  }
}

}  // namespace ZOVEngine
