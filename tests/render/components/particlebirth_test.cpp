// What a birth draws, in which order, and what it sets.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>

#include "render/components/particlefountain.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;

constexpr float kLargest = std::numeric_limits<float>::max();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

/// All that a birth decides.
struct Birth {
  float lifetime, max_distance, radius, angle, rotate;
  float size[3], colour[4];
  float force, force_time, torque, torque_time;
};

/// Says the same as the system does, number by number, with nothing shared but the generator.
class PlainBirth {
 public:
  static Birth Of(const ParticleSystemC& system, float world_rotate, float world_scale) {
    Birth out{};
    out.lifetime = Range(system.m_lifetime_max[0], system.m_lifetime_max[1]);
    out.max_distance = Range(system.m_max_distance[0], system.m_max_distance[1]);
    const int radii = static_cast<int>(std::round(world_scale * 0.5f));
    out.radius = 0.01f;
    if (radii != 0) out.radius = static_cast<float>(Rand() % radii) + 0.01f;
    out.angle = world_rotate;
    if (static_cast<int>(system.m_arc) != 0) {
      out.angle += static_cast<float>(Rand() % static_cast<int>(std::round(system.m_arc)));
    }
    out.rotate = Range(system.m_start_rot[0], system.m_start_rot[1]);
    for (int i = 0; i < 3; ++i) {
      out.size[i] = Range(system.m_start_size[0].v[i], system.m_start_size[1].v[i]);
    }
    for (std::size_t i = 0; i < 4; ++i) {
      out.colour[i] = Range(system.m_start_color_min[i], system.m_start_color_max[i]);
    }
    out.force = Range(system.m_start_force_mag[0], system.m_start_force_mag[1]);
    out.force_time = Range(system.m_start_force[0], system.m_start_force[1]);
    out.torque = Range(system.m_start_torque_mag[0], system.m_start_torque_mag[1]);
    out.torque_time = Range(system.m_start_torque[0], system.m_start_torque[1]);
    return out;
  }

 private:
  static float Range(float min, float max) {
    const float number = static_cast<float>(Rand());
    return number / (32767.0f / (max - min)) + min;
  }
};

void Spread(ParticleSystemC& system) {
  system.m_lifetime_max = {0.5f, 4.0f};
  system.m_max_distance = {100.0f, 900.0f};
  system.m_start_rot = {-180.0f, 180.0f};
  system.m_start_size = {Vector3D(1.0f, 10.0f, 100.0f), Vector3D(2.0f, 20.0f, 200.0f)};
  system.m_start_color_min = {0.0f, 0.1f, 0.2f, 0.3f};
  system.m_start_color_max = {1.0f, 0.9f, 0.8f, 0.7f};
  system.m_start_force_mag = {10.0f, 500.0f};
  system.m_start_force = {0.05f, 0.5f};
  system.m_start_torque_mag = {-900.0f, 900.0f};
  system.m_start_torque = {0.1f, 3.0f};
  system.m_arc = 75.0f;
}

TEST(ParticleBirth, DrawsItsNumbersInTheOrderOfAPlainReading) {
  Fountain fountain;
  ParticleSystemC& system = fountain.System();
  Spread(system);
  fountain.Place().m_local_pos = Vector3D(300.0f, -200.0f, 7.0f);
  fountain.Place().m_local_rotate = 40.0f;
  fountain.Place().m_local_scale = Vector3D(60.0f, 30.0f, 2.0f);
  fountain.Place().DeriveWorld();
  fountain.Update(0.0f);
  for (std::uint32_t seed = 0; seed < 100; ++seed) {
    SeedRand(seed);
    const Birth expected = PlainBirth::Of(system, 40.0f, 60.0f);
    const int next = Rand();
    SeedRand(seed);
    fountain.log->forces.clear();
    fountain.log->torques.clear();
    system.ResetParticle(fountain.Nth(0));
    ASSERT_EQ(Rand(), next) << "as many draws as the plain reading makes";

    EXPECT_EQ(fountain.Nth(0).m_lifetime, expected.lifetime);
    EXPECT_EQ(fountain.Nth(0).m_max_distance, expected.max_distance);
    const float radians = expected.angle * 3.1415927f / 180.0f;
    const Transform& place = fountain.PlaceOf(0);
    EXPECT_EQ(place.m_local_pos.x, 300.0f + std::cos(radians) * expected.radius);
    EXPECT_EQ(place.m_local_pos.y, -200.0f + std::sin(radians) * expected.radius);
    EXPECT_EQ(place.m_local_pos.z, 1.0f);
    EXPECT_EQ(place.m_local_rotate, expected.rotate);
    for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(place.m_local_scale.v[i], expected.size[i]);
    for (std::size_t i = 0; i < 4; ++i) {
      EXPECT_EQ(fountain.LookOf(0).m_colour[i], expected.colour[i]);
    }
    ASSERT_EQ(fountain.log->forces.size(), 1u);
    EXPECT_EQ(fountain.log->forces[0].magnitude, expected.force);
    EXPECT_EQ(fountain.log->forces[0].duration, expected.force_time);
    ASSERT_EQ(fountain.log->torques.size(), 1u);
    EXPECT_EQ(fountain.log->torques[0].torque, expected.torque);
    EXPECT_EQ(fountain.log->torques[0].duration, expected.torque_time);
  }
}

TEST(ParticleBirth, TheRateIsDrawnBeforeTheBirthsOfItsStep) {
  Fountain fountain;
  ParticleSystemC& system = fountain.System();
  Spread(system);
  system.m_emitter_num_particles = {0, 5};
  system.m_emit_accumulator = 2.5f;
  fountain.Update(0.0f);
  const float first = fountain.Nth(0).m_lifetime;
  const float second = fountain.Nth(1).m_lifetime;
  SeedRand(1);
  Rand();
  EXPECT_EQ(first, PlainBirth::Of(system, 0.0f, 1.0f).lifetime);
  EXPECT_EQ(second, PlainBirth::Of(system, 0.0f, 1.0f).lifetime);
}

TEST(ParticleBirth, AnEqualMinimumAndMaximumGiveThatValueAndStillDraw) {
  Fountain fountain;
  ParticleSystemC& system = fountain.System();
  system.m_lifetime_max = {2.0f, 2.0f};
  fountain.Update(0.0f);
  for (std::uint32_t seed = 0; seed < 50; ++seed) {
    SeedRand(seed);
    system.ResetParticle(fountain.Nth(0));
    EXPECT_EQ(fountain.Nth(0).m_lifetime, 2.0f);
    EXPECT_EQ(fountain.Nth(0).m_max_distance, 0.0f);
    const int next = Rand();
    SeedRand(seed);
    // Life time, distance, radius, angle, rotation, 3 of size, 4 of colour, 2 of force, 2 of
    // torque.
    for (int i = 0; i < 16; ++i) Rand();
    EXPECT_EQ(Rand(), next);
  }
}

TEST(ParticleBirth, ADrawReachesFromTheMinimumToTheMaximum) {
  Fountain fountain;
  ParticleSystemC& system = fountain.System();
  system.m_start_rot = {-10.0f, 30.0f};
  fountain.Update(0.0f);
  float lowest = kLargest;
  float highest = -kLargest;
  for (int i = 0; i < 3000; ++i) {
    system.ResetParticle(fountain.Nth(0));
    lowest = std::min(lowest, fountain.PlaceOf(0).m_local_rotate);
    highest = std::max(highest, fountain.PlaceOf(0).m_local_rotate);
  }
  EXPECT_GE(lowest, -10.0f);
  EXPECT_LT(lowest, -9.5f);
  EXPECT_LE(highest, 30.0f);
  EXPECT_GT(highest, 29.5f);
}

TEST(ParticleBirth, SwitchesTheObjectOnAndForgetsTheLifeBefore) {
  Fountain fountain;
  fountain.Bear(1);
  Particle& particle = fountain.Nth(0);
  RigidBody& body = Of<RigidBody>(particle.m_owner);
  body.m_vel = Vector3D(5.0f, 6.0f, 7.0f);
  body.m_rot_vel = 8.0f;
  body.m_forces.emplace_back();
  body.m_torques.emplace_back();
  particle.m_age = particle.m_distance = 9.0f;
  particle.m_owner->SetActive(false);
  // Those of the birth itself are the physics' to add; without them, what is left is from before.
  const std::vector<System*> systems = std::exchange(g_engine->systems, {});
  fountain.System().ResetParticle(particle);
  g_engine->systems = systems;
  EXPECT_TRUE(particle.m_owner->active);
  EXPECT_TRUE(fountain.LookOf(0).m_visible);
  EXPECT_TRUE(body.m_active);
  EXPECT_TRUE(particle.m_active);
  EXPECT_EQ(particle.m_age, 0.0f);
  EXPECT_EQ(particle.m_distance, 0.0f);
  EXPECT_EQ(body.m_vel, Vector3D());
  EXPECT_EQ(body.m_rot_vel, 0.0f);
  EXPECT_TRUE(body.m_forces.empty());
  EXPECT_TRUE(body.m_torques.empty());
}

TEST(ParticleBirth, TheForcePointsAwayFromTheEmitterWithLengthOne) {
  Fountain fountain;
  ParticleSystemC& system = fountain.System();
  system.m_arc = 360.0f;
  fountain.Update(0.0f);
  for (int i = 0; i < 50; ++i) {
    system.ResetParticle(fountain.Nth(0));
    const AddForceToObject& force = fountain.log->forces.back();
    EXPECT_EQ(force.objectId, fountain.Nth(0).m_owner->id);
    EXPECT_EQ(fountain.log->torques.back().objectId, fountain.Nth(0).m_owner->id);
    EXPECT_NEAR(force.direction.Length(), 1.0f, 1e-6f);
    const Vector3D offset = fountain.PlaceOf(0).m_local_pos - system.m_emitter_world_pos;
    EXPECT_NEAR(force.direction.x, offset.x / 0.01f, 1e-4f);
    EXPECT_NEAR(force.direction.y, offset.y / 0.01f, 1e-4f);
    EXPECT_EQ(force.direction.z, 0.0f);
  }
}

TEST(ParticleBirth, AParticleThatCannotLeaveTheCentreHasNoDirection) {
  Fountain fountain;
  fountain.Place().m_local_pos = Vector3D(1e9f, 1e9f, 1.0f);
  fountain.Place().DeriveWorld();
  fountain.Bear(1);
  EXPECT_EQ(fountain.log->forces.at(0).direction, Vector3D());
}

// The emitter

TEST(ParticleBirth, TheEmitterIsAtItsObjectButForTheDepth) {
  Fountain fountain;
  fountain.Place().m_world_pos = Vector3D(10.0f, 20.0f, 30.0f);
  fountain.Place().m_world_scale = Vector3D(4.0f, 5.0f, 6.0f);
  fountain.Place().m_world_rotate = 30.0f;
  ParticleSystemC& system = fountain.System();
  system.m_emitter_local_pos = Vector3D(1.0f, 2.0f, 3.0f);
  system.m_emitter_local_scale = Vector3D(2.0f, 3.0f, 4.0f);
  system.m_emitter_local_rotate = 60.0f;
  fountain.Update(0.0f);
  EXPECT_EQ(system.m_emitter_world_pos, Vector3D(11.0f, 22.0f, 3.0f));
  EXPECT_EQ(system.m_emitter_world_scale, Vector3D(8.0f, 15.0f, 24.0f));
  EXPECT_NEAR(system.m_emitter_world_rotate, 90.0f, 1e-4f);
}

TEST(ParticleBirth, TheEmitterRestsWhileNothingIsEmitted) {
  Fountain fountain;
  fountain.Update(0.0f);
  fountain.Place().m_world_pos.x = 50.0f;
  fountain.System().m_emitting = false;
  fountain.Update(0.0f);
  EXPECT_EQ(fountain.System().m_emitter_world_pos.x, 0.0f);
  fountain.System().m_emitting = true;
  fountain.Update(0.0f);
  EXPECT_EQ(fountain.System().m_emitter_world_pos.x, 50.0f);
}

/// The angles and distances at which a system's particles are born, over many births.
struct Spots {
  explicit Spots(Fountain& fountain) {
    fountain.Update(0.0f);
    for (int i = 0; i < 2000; ++i) {
      fountain.System().ResetParticle(fountain.Nth(0));
      const Vector3D offset =
          fountain.PlaceOf(0).m_local_pos - fountain.System().m_emitter_world_pos;
      const float angle = std::atan2(offset.y, offset.x) * 180.0f / 3.1415927f;
      const float radius = std::sqrt(offset.x * offset.x + offset.y * offset.y);
      lowest = std::min(lowest, angle);
      highest = std::max(highest, angle);
      nearest = std::min(nearest, radius);
      farthest = std::max(farthest, radius);
    }
  }

  float lowest = 360.0f, highest = -360.0f;   // (unit: degrees)
  float nearest = kLargest, farthest = 0.0f;  // (unit: world units)
};

TEST(ParticleBirth, TheSectorRunsFromTheObjectsRotationUpward) {
  Fountain fountain;
  fountain.Place().m_world_rotate = 20.0f;
  fountain.System().m_arc = 60.0f;
  const Spots spots(fountain);
  EXPECT_NEAR(spots.lowest, 20.0f, 1e-3f);
  EXPECT_NEAR(spots.highest, 79.0f, 1e-3f);
}

TEST(ParticleBirth, AnArcOfZeroSendsAllAlongTheObjectsRotation) {
  Fountain fountain;
  fountain.Place().m_world_rotate = 35.0f;
  for (const float arc : {0.0f, 0.9f, -0.9f}) {
    fountain.System().m_arc = arc;
    const Spots spots(fountain);
    EXPECT_NEAR(spots.lowest, 35.0f, 1e-3f) << arc;
    EXPECT_NEAR(spots.highest, 35.0f, 1e-3f) << arc;
  }
}

/// The random numbers that one birth draws.
int CountDraws(Fountain& fountain) {
  fountain.Update(0.0f);
  SeedRand(5);
  fountain.System().ResetParticle(fountain.Nth(0));
  const int next = Rand();
  SeedRand(5);
  int count = 0;
  while (count < 100 && Rand() != next) ++count;
  return count;
}

TEST(ParticleBirth, AnArcBelowOneDrawsNoAngle) {
  Fountain fountain;
  fountain.System().m_arc = 0.0f;
  const int without = CountDraws(fountain);
  for (const float arc : {0.5f, 0.75f, 0.999f, -0.75f}) {
    fountain.System().m_arc = arc;
    EXPECT_EQ(CountDraws(fountain), without) << arc;
  }
  fountain.System().m_arc = 1.0f;
  EXPECT_EQ(CountDraws(fountain), without + 1) << "though it can only be 0";
}

TEST(ParticleBirth, TheArcIsRoundedAndItsSignIsLost) {
  Fountain fountain;
  fountain.System().m_arc = 2.5f;
  EXPECT_NEAR(Spots(fountain).highest, 2.0f, 1e-3f);
  fountain.System().m_arc = -30.0f;
  const Spots spots(fountain);
  EXPECT_NEAR(spots.lowest, 0.0f, 1e-3f);
  EXPECT_NEAR(spots.highest, 29.0f, 1e-3f);
}

TEST(ParticleBirth, AnEmitterSmallerThanOneBearsAllAtTheSmallestRadius) {
  Fountain fountain;
  for (const float scale : {0.0f, 0.5f, 0.99f, -0.99f}) {
    fountain.Place().m_world_scale.x = scale;
    const Spots spots(fountain);
    EXPECT_NEAR(spots.nearest, 0.01f, 1e-6f) << scale;
    EXPECT_NEAR(spots.farthest, 0.01f, 1e-6f) << scale;
  }
}

TEST(ParticleBirth, TheRadiusIsAWholeNumberBelowHalfTheWidthPlusTheSmallest) {
  Fountain fountain;
  fountain.Place().m_world_scale = Vector3D(20.0f, 500.0f, 500.0f);
  const Spots spots(fountain);
  EXPECT_NEAR(spots.nearest, 0.01f, 1e-5f);
  EXPECT_NEAR(spots.farthest, 9.01f, 1e-5f);
  fountain.Place().m_world_scale.x = -20.0f;
  EXPECT_NEAR(Spots(fountain).farthest, 9.01f, 1e-5f);
}

TEST(ParticleBirth, AnEmitterOfOneDrawsARadiusAndASmallerOneDoesNot) {
  Fountain fountain;
  fountain.System().m_arc = 0.0f;
  const auto draws = [&](float scale) {
    fountain.Place().m_world_scale.x = scale;
    return CountDraws(fountain);
  };
  EXPECT_EQ(draws(0.99f), 14);
  EXPECT_EQ(draws(1.0f), 15);
}

// Numbers that no sensible file has; the sanitizers watch these.

TEST(ParticleBirth, NoNumberIsTooLargeForTheEmitter) {
  Fountain fountain;
  fountain.Update(0.0f);
  const float nan = std::numeric_limits<float>::quiet_NaN();
  for (const float value : {kLargest, -kLargest, kInfinity, -kInfinity, nan, 4294967296.0f,
                            2147483648.0f, -2147483648.0f, 3e9f}) {
    fountain.System().m_arc = value;
    fountain.Place().m_world_scale.x = value;
    fountain.Bear(1);
    EXPECT_TRUE(fountain.IsLive(0));
    EXPECT_EQ(fountain.PlaceOf(0).m_local_pos.z, 1.0f);
    fountain.Nth(0).m_owner->SetActive(false);
  }
}

TEST(ParticleBirth, NoPairIsTooWideForADraw) {
  const ParticleSystemC::Pair pairs[] = {{-kLargest, kLargest},
                                         {kInfinity, kInfinity},
                                         {-kInfinity, kInfinity},
                                         {5.0f, -5.0f},
                                         {0.0f, 1e-45f}};
  for (const ParticleSystemC::Pair& pair : pairs) {
    Fountain fountain;
    ParticleSystemC& system = fountain.System();
    system.m_lifetime_max = system.m_max_distance = system.m_start_rot = pair;
    system.m_start_force = system.m_start_force_mag = pair;
    system.m_start_torque = system.m_start_torque_mag = pair;
    system.m_start_size = {Vector3D(pair[0], pair[0], pair[0]), Vector3D(pair[1], pair[1], 1.0f)};
    fountain.Bear(3);
    EXPECT_EQ(fountain.log->forces.size(), 3u);
    fountain.scene.world.Step(3);
  }
}

TEST(ParticleBirth, AMinimumAboveItsMaximumIsDrawnAllTheSame) {
  Fountain fountain;
  fountain.System().m_start_rot = {5.0f, -5.0f};
  fountain.Update(0.0f);
  for (int i = 0; i < 100; ++i) {
    fountain.System().ResetParticle(fountain.Nth(0));
    EXPECT_GE(fountain.PlaceOf(0).m_local_rotate, -5.0f);
    EXPECT_LE(fountain.PlaceOf(0).m_local_rotate, 5.0f);
  }
}

}  // namespace
}  // namespace carapace_test
