#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "core/base/random.h"
#include "core/engine.h"
#include "physics/components/rigidbody.h"
#include "render/components/particlesystemc.h"
#include "support/scene.h"

namespace carapace_test {

/// The births that a system announces to the physics: a force and a torque each, in order.
class PushLog final : public ZOVEngine::System {
  RTTR_ENABLE(ZOVEngine::System)

 public:
  void Update(float) override {}
  void Init() override {}
  void SendMessage(ZOVEngine::Message* message) override {
    if (auto* force = dynamic_cast<ZOVEngine::AddForceToObject*>(message)) {
      forces.push_back(*force);
    } else if (auto* torque = dynamic_cast<ZOVEngine::AddTorqueToObject*>(message)) {
      torques.push_back(*torque);
    }
  }

  std::vector<ZOVEngine::AddForceToObject> forces;
  std::vector<ZOVEngine::AddTorqueToObject> torques;
};

/// A scene with one particle system at (0, 0, 1) of world scale 1, which gives birth when a test
/// says so: its rate is 0.
class Fountain {
 public:
  Fountain() : object(Add("fountain")), log(new PushLog) {
    ZOVEngine::g_engine->systems.push_back(log);
    ZOVEngine::SeedRand(1);
  }

  /// Another object with a system, placed in the world.
  ZOVEngine::GameObj* Add(const std::string& name) {
    ZOVEngine::GameObj* out = scene.AddObject(name);
    out->AddComponent<ZOVEngine::ParticleSystemC>();
    Of<ZOVEngine::ParticleSystemC>(out).m_emitter_num_particles = {0, 0};
    Of<ZOVEngine::Transform>(out).DeriveWorld();
    return out;
  }

  ZOVEngine::ParticleSystemC& System() { return Of<ZOVEngine::ParticleSystemC>(object); }
  ZOVEngine::Transform& Place() { return Of<ZOVEngine::Transform>(object); }
  ZOVEngine::Particle& Nth(std::size_t index) { return *System().m_particles[index]; }
  ZOVEngine::Transform& PlaceOf(std::size_t index) {
    return Of<ZOVEngine::Transform>(Nth(index).m_owner);
  }
  ZOVEngine::Render& LookOf(std::size_t index) { return Of<ZOVEngine::Render>(Nth(index).m_owner); }
  bool IsLive(std::size_t index) { return Nth(index).m_owner->active; }

  void Update(float dt = ZOVEngine::kStep) { System().Update(dt); }
  /// Makes the pool and bears the first `count` particles, in an update of no length.
  void Bear(int count) {
    System().m_emit_accumulator = static_cast<float>(count) + 0.5f;
    Update(0.0f);
    System().m_emit_accumulator = 0.0f;
  }

  static long Live(const ZOVEngine::ParticleSystemC& system) {
    return std::count_if(system.m_particles.begin(), system.m_particles.end(),
                         [](const ZOVEngine::Particle* p) { return p && p->m_owner->active; });
  }
  long Live() { return Live(System()); }

  Scene scene;
  ZOVEngine::GameObj* object;
  PushLog* log;  ///< the engine owns it
};

}  // namespace carapace_test
