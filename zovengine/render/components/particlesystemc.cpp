#include "render/components/particlesystemc.h"

#include <cmath>
#include <limits>
#include <typeinfo>

#include "core/base/prefetch.h"
#include "core/base/random.h"
#include "core/engine.h"
#include "objects/fields.h"
#include "objects/gameobjfactory.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"
#include "render/components/imodel.h"
#include "render/components/render.h"

namespace ZOVEngine {
namespace {

constexpr const char* kArchetype = "particle_test";

/// Keeps a particle off the emitter's centre, so that it has a direction to leave in (unit: world
/// units).
constexpr float kSmallestRadius = 0.01f;

void CheckRate(const ParticleSystemC::IntPair& rate) {
  if (rate[0] > rate[1]) FailReading("the minimum is above the maximum");
}

void CheckPoolSize(std::int32_t size) {
  if (size < 0 || size > kMaxParticles) {
    FailReading("expected a number from 0 to " + std::to_string(kMaxParticles));
  }
}

/// A value between the two, evenly spread. Equal ones divide by an infinity, which gives `min`.
float Draw(float min, float max) {
  return static_cast<float>(Rand()) / (static_cast<float>(kRandMax) / (max - min)) + min;
}

float Draw(const ParticleSystemC::Pair& pair) {
  return Draw(pair[0], pair[1]);
}

/// `value` without its fraction. What no int can hold becomes the nearest one, and a NaN 0.
int ToWhole(float value) {
  constexpr float kBeyond = 2147483648.0f;
  if (std::isnan(value)) return 0;
  if (value >= kBeyond) return std::numeric_limits<int>::max();
  if (value < -kBeyond) return std::numeric_limits<int>::min();
  return static_cast<int>(value);
}

int Round(float value) {
  return ToWhole(std::round(value));
}

void Stop(RigidBody& body) {
  body.m_vel = Vector3D();
  body.m_rot_vel = 0.0f;
  body.m_forces.clear();
  body.m_torques.clear();
}

template <class T>
void RequireComponent(const GameObj& particle, const char* name, const GameObj& emitter) {
  ZOV_ASSERT(particle.HasComponent<T>(), std::string("Archetype \"") + kArchetype + "\" has no " +
                                             name + ", which the particles of object \"" +
                                             emitter.name + "\" need");
}

/// Has the processor begin to load the particles behind `index`: far ahead the particle, then its
/// object, then the components that an update reads. The place of a destroyed particle is null.
void PrefetchAhead(const ParticlePool& pool, std::size_t index) {
  constexpr std::size_t kAhead = 4;
  if (index + 3 * kAhead >= pool.size()) return;
  Prefetch(pool[index + 3 * kAhead]);
  if (const Particle* particle = pool[index + 2 * kAhead]) {
    Prefetch(&particle->m_owner->id);
    Prefetch(&particle->m_owner->active);
  }
  if (const Particle* particle = pool[index + kAhead]) {
    const std::uint32_t id = particle->m_owner->id;
    if (const Render* render = ComponentTable<Render>().Find(id)) {
      Prefetch(&render->m_tex);
      Prefetch(&render->m_colour);
    }
    if (const Transform* transform = ComponentTable<Transform>().Find(id)) {
      Prefetch(&transform->m_local_pos);
      Prefetch(&transform->m_world_pos);
    }
  }
}

template <class Visitor>
void VisitCycle(Visitor& visit) {
  visit("m_duration", &ParticleSystemC::m_duration);
  visit("m_delay", &ParticleSystemC::m_delay);
  visit("m_max_distance", &ParticleSystemC::m_max_distance);
  visit("m_lifetime_max", &ParticleSystemC::m_lifetime_max);
  visit("m_looping", &ParticleSystemC::m_looping);
  visit("m_prewarm", &ParticleSystemC::m_prewarm);
  visit("m_start_force_mag", &ParticleSystemC::m_start_force_mag);
  visit("m_start_size", &ParticleSystemC::m_start_size);
  visit("m_start_force", &ParticleSystemC::m_start_force);
}

template <class Visitor>
void VisitTorque(Visitor& visit) {
  visit("m_start_torque", &ParticleSystemC::m_start_torque);
  visit("m_start_torque_mag", &ParticleSystemC::m_start_torque_mag);
}

template <class Visitor>
void VisitBirth(Visitor& visit) {
  visit("m_start_rot", &ParticleSystemC::m_start_rot);
  visit("m_arc", &ParticleSystemC::m_arc);
  visit("m_start_color_min", &ParticleSystemC::m_start_color_min);
  visit("m_start_color_max", &ParticleSystemC::m_start_color_max);
}

template <class Visitor>
void VisitTexture(Visitor& visit) {
  visit("particle_tex", &ParticleSystemC::particle_tex);
}

template <class Visitor>
void VisitPool(Visitor& visit) {
  visit.Checked("m_emitter_num_particles", &ParticleSystemC::m_emitter_num_particles, CheckRate);
  visit("m_particle_size", &ParticleSystemC::m_particle_size);
  visit("m_particle_color_min", &ParticleSystemC::m_particle_color_min);
  visit("m_particle_color_max", &ParticleSystemC::m_particle_color_max);
  visit.Checked("m_num_of_particles", &ParticleSystemC::m_num_of_particles, CheckPoolSize);
}

}  // namespace

template <class Visitor>
void ParticleSystemC::Fields(Visitor& visit) {
  VisitCycle(visit);
  VisitTorque(visit);
  VisitBirth(visit);
  VisitTexture(visit);
  VisitPool(visit);
}

template <class Visitor>
void ParticleSystemC::Written(Visitor& visit) {
  VisitCycle(visit);
  VisitBirth(visit);
  VisitPool(visit);
  VisitTorque(visit);
  VisitTexture(visit);
}
ZOV_COMPONENT_FILE(ParticleSystemC)

void ParticleSystemC::Init() {
  m_init = true;
  ZOV_ASSERT(m_num_of_particles >= 0 && m_num_of_particles <= kMaxParticles,
             "Object \"" + m_owner->name + "\": the pool cannot hold " +
                 std::to_string(m_num_of_particles) + " particles");
  m_particle_template = g_game_obj_factory->Instantiate(kArchetype, false);
  RequireComponent<Transform>(*m_particle_template, "Transform", *m_owner);
  RequireComponent<RigidBody>(*m_particle_template, "RigidBody", *m_owner);
  RequireComponent<Render>(*m_particle_template, "Render", *m_owner);
  RequireComponent<iModel>(*m_particle_template, "iModel", *m_owner);
  RequireComponent<Particle>(*m_particle_template, "Particle", *m_owner);
  m_particles.Make(static_cast<std::size_t>(m_num_of_particles));
  for (std::int32_t i = 0; i < m_num_of_particles; ++i) {
    GameObj* object = g_game_obj_factory->Clone(m_particle_template, false);
    m_particles.Add(object->GetComponent<Particle>());
    // Room for the name now, so that no birth allocates it.
    object->GetComponent<Render>()->m_tex.reserve(particle_tex.size());
  }
}

void ParticleSystemC::Update(float dt) {
  if (!m_particles.IsMade()) Init();
  if (m_emitting) AdvanceCycle(dt);
  if (m_active && m_emitting) {
    Accumulate(dt);
    PlaceEmitter();
  } else {
    m_emit_accumulator = 0.0f;
  }
  for (std::size_t i = 0; i < m_particles.size(); ++i) {
    PrefetchAhead(m_particles, i);
    Particle* particle = m_particles[i];
    if (particle == nullptr) continue;
    if (particle->m_owner->active) {
      RunParticle(*particle, dt);
    } else if (TakeOwed()) {
      ResetParticle(*particle);
    }
  }
}

void ParticleSystemC::Destroy() {
  for (Particle* particle : m_particles) {
    if (particle != nullptr) particle->m_owner->SetActive(false);
  }
}

void ParticleSystemC::AdvanceCycle(float dt) {
  m_cycle_time += dt;
  if (m_duration > m_cycle_time) return;
  if (!m_looping) m_emitting = false;
  m_cycle_time = 0.0f;
}

void ParticleSystemC::Accumulate(float dt) {
  const std::int64_t min = m_emitter_num_particles[0];
  const std::int64_t range = m_emitter_num_particles[1] - min + 1;
  ZOV_ASSERT(range > 0, "Object \"" + m_owner->name +
                            "\": the minimum of m_emitter_num_particles is above the maximum");
  m_emit_accumulator += static_cast<float>(Rand() % range + min) * dt;
}

void ParticleSystemC::PlaceEmitter() {
  const Transform& own = *m_owner->GetComponent<Transform>();
  // The object's own depth plays no part, deliberately.
  m_emitter_world_pos = Vector3D(m_emitter_local_pos.x + own.m_world_pos.x,
                                 m_emitter_local_pos.y + own.m_world_pos.y, m_emitter_local_pos.z);
  m_emitter_world_scale = Vector3D(m_emitter_local_scale.x * own.m_world_scale.x,
                                   m_emitter_local_scale.y * own.m_world_scale.y,
                                   m_emitter_local_scale.z * own.m_world_scale.z);
  const Matrix4x4 turn =
      Matrix4x4::Rotation(m_emitter_local_rotate) * Matrix4x4::Rotation(own.m_world_rotate);
  m_emitter_world_rotate = std::atan2(turn.at[1][0], turn.at[0][0]) * 180.0f / kPi;
}

/// Takes one from the particles owed. A whole one is not enough: it must be more than one,
/// deliberately, since the pace of all emitters rests on it.
bool ParticleSystemC::TakeOwed() {
  if (!(m_emit_accumulator > 1.0f)) return false;
  m_emit_accumulator -= 1.0f;
  return true;
}

void ParticleSystemC::RunParticle(Particle& particle, float dt) {
  GameObj* object = particle.m_owner;
  Render& render = *object->GetComponent<Render>();
  Transform& transform = *object->GetComponent<Transform>();
  particle.m_age += dt;
  transform.m_local_scale += particle.m_size_step * dt;
  if (render.m_tex != particle_tex) render.m_tex = particle_tex;
  particle.m_distance += (transform.m_prev_pos - transform.m_world_pos).Length();
  for (std::size_t i = 0; i < 4; ++i) render.m_colour[i] += particle.m_colour_step[i] * dt;
  const bool too_old = particle.m_lifetime != 0.0f && particle.m_lifetime <= particle.m_age;
  const bool too_far =
      particle.m_max_distance != 0.0f && particle.m_max_distance <= particle.m_distance;
  if (!too_old && !too_far) return;
  if (TakeOwed()) {
    ResetParticle(particle);
  } else {
    object->SetActive(false);
  }
}

// The order in which a birth draws its random numbers, here and in the helpers below, decides every
// later draw of the game.
void ParticleSystemC::ResetParticle(Particle& particle) {
  particle.m_owner->SetActive(true);
  particle.m_distance = 0.0f;
  particle.m_age = 0.0f;
  particle.m_lifetime = Draw(m_lifetime_max);
  particle.m_max_distance = Draw(m_max_distance);
  Stop(*particle.m_owner->GetComponent<RigidBody>());
  PlaceParticle(particle);
  ColourParticle(particle);
  PushParticle(particle);
}

void ParticleSystemC::PlaceParticle(Particle& particle) {
  const int radii = Round(m_emitter_world_scale.x * 0.5f);
  float radius = kSmallestRadius;
  if (radii != 0) radius = static_cast<float>(Rand() % radii) + kSmallestRadius;
  // The sector runs from the object's rotation upward and is not centred on it, deliberately.
  float angle = m_owner->GetComponent<Transform>()->m_world_rotate;
  if (ToWhole(m_arc) != 0) angle += static_cast<float>(Rand() % Round(m_arc));
  const float radians = DegreesToRadians(angle);
  Transform& transform = *particle.m_owner->GetComponent<Transform>();
  transform.m_local_pos =
      m_emitter_world_pos + Vector3D(std::cos(radians) * radius, std::sin(radians) * radius, 0.0f);
  transform.m_local_rotate = Draw(m_start_rot);
  for (std::size_t i = 0; i < 3; ++i) {
    transform.m_local_scale.v[i] = Draw(m_start_size[0].v[i], m_start_size[1].v[i]);
  }
}

void ParticleSystemC::ColourParticle(Particle& particle) {
  Render& render = *particle.m_owner->GetComponent<Render>();
  for (std::size_t i = 0; i < 4; ++i) {
    render.m_colour[i] = Draw(m_start_color_min[i], m_start_color_max[i]);
  }
  // A life of 0 makes the steps infinite; a life without limit is none that sizes can be spread
  // over.
  for (std::size_t i = 0; i < 4; ++i) {
    particle.m_colour_step[i] =
        (m_particle_color_max[i] - render.m_colour[i]) / particle.m_lifetime;
  }
  const Transform& transform = *particle.m_owner->GetComponent<Transform>();
  particle.m_size_step = (m_particle_size[1] - transform.m_local_scale) / particle.m_lifetime;
  render.m_tex = particle_tex;
}

void ParticleSystemC::PushParticle(Particle& particle) {
  const Vector3D offset =
      particle.m_owner->GetComponent<Transform>()->m_local_pos - m_emitter_world_pos;
  const std::uint32_t id = particle.m_owner->id;
  const float magnitude = Draw(m_start_force_mag);
  AddForceToObject force(id, offset.Normalized(), magnitude, Draw(m_start_force));
  g_engine->Broadcast(&force);
  const float torque = Draw(m_start_torque_mag);
  AddTorqueToObject turn(id, torque, Draw(m_start_torque));
  g_engine->Broadcast(&turn);
}

}  // namespace ZOVEngine
