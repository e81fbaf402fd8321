#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "core/base/vector3d.h"
#include "objects/gamecomponentbase.h"

namespace ZOVEngine {

class Particle;
class ParticlePool;

/// Where a particle stands in its pool. It leaves the pool when it dies, and a copy stands in none,
/// so neither a destroyed particle nor a cloned one is ever run by a pool that does not know it.
class PoolPlace {
 public:
  PoolPlace() = default;
  PoolPlace(const PoolPlace&) {}
  PoolPlace& operator=(const PoolPlace&) = delete;
  ~PoolPlace();

 private:
  friend class ParticlePool;

  ParticlePool* m_pool = nullptr;
  std::size_t m_index = 0;
};

/// The age and the rates of change of one particle; its emitter writes them at birth. Not
/// persisted.
class Particle final : public GameComponentBase {
  RTTR_ENABLE(GameComponentBase)

 public:
  using GameComponentBase::GameComponentBase;

  void Unserialize(const Value&) override {}
  void Serialize(Writer&) override {}

  float m_age = 0.0f;       ///< since birth (unit: seconds)
  float m_lifetime = 0.0f;  ///< drawn at birth; 0 means no limit (unit: seconds)
  Vector3D m_size_step;     ///< change of the local scale per second
  std::array<float, 4> m_colour_step = {0.0f, 0.0f, 0.0f,
                                        0.0f};  ///< change of the colour per second
  float m_distance = 0.0f;                      ///< length of path so far (unit: world units)
  float m_max_distance = 0.0f;  ///< drawn at birth; 0 means no limit (unit: world units)

  PoolPlace m_place;
};

/// The particles of one system, in the order in which they are born.
///
/// Does not own them: the factory does. The place of a particle whose object was destroyed is null.
/// A copy is empty and not made, so that a cloned system makes a pool of its own and never shares
/// one.
class ParticlePool {
 public:
  ParticlePool() = default;
  ParticlePool(const ParticlePool&) {}
  ParticlePool& operator=(const ParticlePool&) = delete;
  ~ParticlePool() { Clear(); }

  /// Lets go of all particles and makes the pool, with room for `count`.
  void Make(std::size_t count);
  /// Appends a particle that is in no pool.
  void Add(Particle* particle);

  /// Whether Make was called on this very pool.
  bool IsMade() const { return m_made; }
  std::size_t size() const { return m_particles.size(); }
  bool empty() const { return m_particles.empty(); }
  Particle* operator[](std::size_t index) const { return m_particles[index]; }
  auto begin() const { return m_particles.begin(); }
  auto end() const { return m_particles.end(); }

 private:
  friend class PoolPlace;

  void Clear();

  std::vector<Particle*> m_particles;
  bool m_made = false;
};

inline PoolPlace::~PoolPlace() {
  if (m_pool != nullptr) m_pool->m_particles[m_index] = nullptr;
}

inline void ParticlePool::Make(std::size_t count) {
  Clear();
  m_particles.reserve(count);
  m_made = true;
}

inline void ParticlePool::Add(Particle* particle) {
  particle->m_place.m_pool = this;
  particle->m_place.m_index = m_particles.size();
  m_particles.push_back(particle);
}

inline void ParticlePool::Clear() {
  for (Particle* particle : m_particles) {
    if (particle != nullptr) particle->m_place.m_pool = nullptr;
  }
  m_particles.clear();
}

}  // namespace ZOVEngine
