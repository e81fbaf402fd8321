#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/base/vector3d.h"
#include "objects/logiccomponent.h"
#include "render/components/particle.h"

namespace ZOVEngine {

/// The largest pool of one system: as many particles as one frame can show.
inline constexpr std::int32_t kMaxParticles = 150000;

/// Emits particles from a circle around its object.
///
/// Each particle is an object of its own, cloned from the archetype "particle_test" at the first
/// Update and recycled from then on, so that emission allocates nothing; the pool lives as long as
/// the level. A birth places a particle, draws its values from pairs (minimum, maximum), and sends
/// it off by a force and a torque. From then on the system changes its size and colour towards
/// those of the end of life, until its time or its path is over. A stopped or inactive system gives
/// birth to none, but its live particles run on. Works in a pause too.
class ParticleSystemC final : public QuietComponent {
  RTTR_ENABLE(QuietComponent)

 public:
  using Pair = std::array<float, 2>;
  using IntPair = std::array<std::int32_t, 2>;
  using VectorPair = std::array<Vector3D, 2>;
  using Colour4 = std::array<float, 4>;

  using QuietComponent::QuietComponent;

  /// Reading ends the program with a report that names file, object and key when the rate's minimum
  /// is above its maximum, or the pool's size is negative or above kMaxParticles.
  ZOV_DECLARE_FIELDS()
  /// The same keys, in an order of its own.
  template <class Visitor>
  static void Written(Visitor& visit);
  /// Makes the pool, all inactive. An archetype that is absent or lacks a component that a particle
  /// needs ends the program with a report that names it.
  void Init() override;
  void Update(float dt) override;
  /// Switches all particles off.
  void Destroy() override;

  /// Gives birth to `particle`, in whatever state it is, at the emitter as the last Update left it.
  void ResetParticle(Particle& particle);

  float m_duration = 3.0f;             ///< of a cycle of emission (unit: seconds)
  float m_delay = 3.0f;                ///< passes through files only
  Pair m_max_distance = {0.0f, 0.0f};  ///< 0 means no limit (unit: world units)
  Pair m_lifetime_max = {1.0f, 3.0f};  ///< 0 means no limit (unit: seconds)
  bool m_looping = true;               ///< a new cycle follows each; else emission stops for good
  bool m_prewarm = false;              ///< passes through files only
  Pair m_start_force_mag = {100.0f, 100.0f};
  Pair m_start_torque_mag = {10000.0f, 10000.0f};
  VectorPair m_start_size = {Vector3D(1.0f, 1.0f, 1.0f), Vector3D(3.0f, 3.0f, 3.0f)};
  Pair m_start_force = {0.2f, 0.2f};         ///< duration of the birth force (unit: seconds)
  Pair m_start_torque = {3.2f, 3.2f};        ///< duration of the birth torque (unit: seconds)
  Pair m_start_rot = {0.0f, 0.0f};           ///< (unit: degrees)
  IntPair m_emitter_num_particles = {0, 5};  ///< a second, drawn each frame
  VectorPair m_particle_size;  ///< the second is the scale at the end of life; the first is unused
  Colour4 m_particle_color_min = {0.0f, 0.0f, 0.0f, 1.0f};  ///< passes through files only
  Colour4 m_particle_color_max = {1.0f, 0.0f, 0.0f, 1.0f};  ///< at the end of life
  Colour4 m_start_color_min = {0.0f, 0.0f, 0.0f, 0.0f};     ///< every file is expected to give it
  Colour4 m_start_color_max = {0.0f, 0.0f, 0.0f, 0.0f};     ///< every file is expected to give it
  std::int32_t m_num_of_particles = 100;                    ///< size of the pool; counts at Init
  ParticlePool m_particles;
  GameObj* m_particle_template = nullptr;  ///< an object that the pool was cloned from; not in it
  Vector3D m_emitter_local_pos{0.0f, 0.0f, 1.0f};
  Vector3D m_emitter_local_scale{1.0f, 1.0f, 1.0f};
  float m_emitter_local_rotate = 0.0f;
  Vector3D m_emitter_world_pos;
  Vector3D m_emitter_world_scale;
  float m_emitter_world_rotate = 0.0f;   ///< (unit: degrees)
  float m_arc = 60.0f;                   ///< of the sector of births (unit: degrees)
  float m_emit_accumulator = 0.0f;       ///< particles owed
  bool m_emitting = true;                ///< a cycle is running
  float m_cycle_time = 0.0f;             ///< in the current cycle (unit: seconds)
  std::string particle_tex = "default";  ///< texture of all particles of the system

 private:
  void AdvanceCycle(float dt);
  void Accumulate(float dt);
  void PlaceEmitter();
  void RunParticle(Particle& particle, float dt);
  bool TakeOwed();
  void PlaceParticle(Particle& particle);
  void ColourParticle(Particle& particle);
  void PushParticle(Particle& particle);
};

}  // namespace ZOVEngine
