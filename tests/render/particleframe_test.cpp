// How the particles of whole systems look in a frame, and how they move from step to step.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "physicssystem.h"
#include "render/components/particlefountain.h"
#include "support/reports.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;
using Kind = DrawCommand::Kind;

// The picture

TEST(ParticleFrame, AllInstancesOfTwoSystemsShowTextureAndColourOfTheFirst) {
  Fountain fountain;
  auto& red = fountain.System();
  auto& green = Of<ParticleSystemC>(fountain.Add("other"));
  red.particle_tex = "three";
  green.particle_tex = "four";
  red.m_start_color_min = red.m_start_color_max = {1.0f, 0.0f, 0.0f, 1.0f};
  green.m_start_color_min = green.m_start_color_max = {0.0f, 1.0f, 0.0f, 1.0f};
  red.m_emit_accumulator = 2.5f;
  green.m_emit_accumulator = 3.5f;
  const std::vector<DrawCommand> draws = fountain.scene.Draw();
  ASSERT_EQ(draws.size(), 6u) << "one instanced draw, and each once more as a sprite of the world";
  EXPECT_EQ(draws[0].kind, Kind::kInstances);
  EXPECT_EQ(draws[0].count, 5u);
  EXPECT_EQ(draws[0].texture, 3u);
  EXPECT_EQ(draws[0].colour[0], 1.0f);
  EXPECT_EQ(draws[0].colour[1], 0.0f);
  for (std::size_t i = 1; i < 6; ++i) {
    const bool is_red = i < 3;
    EXPECT_EQ(draws[i].kind, Kind::kQuad) << i;
    EXPECT_EQ(draws[i].program, Program::kLight) << i;
    EXPECT_EQ(draws[i].texture, is_red ? 3u : 4u) << i;
    EXPECT_EQ(draws[i].colour[0], is_red ? 1.0f : 0.0f) << i;
    EXPECT_EQ(draws[i].colour[1], is_red ? 0.0f : 1.0f) << i;
  }
}

TEST(ParticleFrame, TheSecondSystemGivesTheLookWhileTheFirstHasNoneLive) {
  Fountain fountain;
  auto& other = Of<ParticleSystemC>(fountain.Add("other"));
  other.particle_tex = "four";
  other.m_emit_accumulator = 1.5f;
  const std::vector<DrawCommand> draws = fountain.scene.Draw();
  ASSERT_EQ(draws.size(), 2u);
  EXPECT_EQ(draws[0].texture, 4u);
}

TEST(ParticleFrame, NeitherTheTemplateNorWhatIsNotBornIsSeen) {
  Fountain fountain;
  fountain.Update();
  EXPECT_TRUE(fountain.scene.Draw().empty());
  EXPECT_TRUE(fountain.scene.Frame().instances.empty());
}

TEST(ParticleFrame, AParticleIsSeenInTheStepOfItsBirthWithItsOwnSize) {
  Fountain fountain;
  fountain.Place().m_local_pos = Vector3D(50.0f, 60.0f, 9.0f);
  fountain.Place().DeriveWorld();
  auto& system = fountain.System();
  system.m_start_size = {Vector3D(8.0f, 4.0f, 1.0f), Vector3D(8.0f, 4.0f, 1.0f)};
  system.m_start_force_mag = system.m_start_torque_mag = {0.0f, 0.0f};
  system.m_emit_accumulator = 1.5f;
  fountain.scene.Draw();
  ASSERT_EQ(fountain.scene.Frame().instances.size(), 1u);
  const Matrix4x4& matrix = fountain.scene.Frame().instances[0];
  EXPECT_NEAR(matrix.m[3], 50.0f, 0.02f);
  EXPECT_NEAR(matrix.m[7], 60.0f, 0.02f);
  EXPECT_EQ(matrix.m[11], 0.0f) << "instances are flat";
  EXPECT_EQ(matrix.m[0], 8.0f);
  EXPECT_EQ(matrix.m[5], 4.0f);
}

TEST(ParticleFrame, AParticleThatIsOverIsGoneFromTheNextFrame) {
  Fountain fountain;
  fountain.System().m_lifetime_max = {1.0f, 1.0f};
  fountain.Bear(1);
  fountain.scene.Draw();
  EXPECT_EQ(fountain.scene.Frame().instances.size(), 1u);
  fountain.Update(1.0f);
  EXPECT_TRUE(fountain.scene.Draw().empty());
}

// Motion

/// Runs a step in which one particle is born, straight to the right with a force of 600 for
/// `duration` seconds.
void Shoot(Fountain& fountain, float duration) {
  auto& system = fountain.System();
  system.m_arc = 0.0f;
  system.m_lifetime_max = {100.0f, 100.0f};
  system.m_start_force_mag = {600.0f, 600.0f};
  system.m_start_force = {duration, duration};
  system.m_start_torque_mag = {360.0f, 360.0f};
  system.m_start_torque = {duration, duration};
  system.m_emit_accumulator = 1.5f;
  fountain.scene.world.Step();
  system.m_emit_accumulator = 0.0f;
}

TEST(ParticleMotion, TheForceOfBirthActsForItsDurationAndTheParticleFliesOn) {
  Fountain fountain;
  Shoot(fountain, 0.1f);
  const RigidBody& body = Of<RigidBody>(fountain.Nth(0).m_owner);
  EXPECT_NEAR(body.m_vel.x, 10.0f, 1e-3f);
  EXPECT_NEAR(body.m_rot_vel, 6.0f, 1e-3f);
  fountain.scene.world.Step(20);
  EXPECT_NEAR(body.m_vel.x, 50.0f, 1e-3f) << "0.1 s are five steps";
  EXPECT_NEAR(body.m_vel.y, 0.0f, 1e-3f);
  EXPECT_NEAR(body.m_rot_vel, 30.0f, 1e-3f);
  const float before = fountain.PlaceOf(0).m_local_pos.x;
  fountain.scene.world.Step(60);
  EXPECT_NEAR(fountain.PlaceOf(0).m_local_pos.x - before, 50.0f, 1e-2f);
}

TEST(ParticleMotion, TheDistanceIsThatOfTheFlight) {
  Fountain fountain;
  Shoot(fountain, 0.1f);
  const float start = fountain.PlaceOf(0).m_prev_pos.x;
  EXPECT_NEAR(start, 0.01f, 1e-6f);
  fountain.scene.world.Step(100);
  // The system runs before the physics, so it has seen the flight up to the step before.
  const float seen = fountain.PlaceOf(0).m_prev_pos.x - start;
  EXPECT_GT(seen, 70.0f);
  EXPECT_NEAR(fountain.Nth(0).m_distance, seen, 1e-2f);
}

TEST(ParticleMotion, InAPauseABirthKeepsItsOldPlaceAsTheStartOfItsPath) {
  // Nothing integrates a particle in a pause, so its path grows by the same length in each step.
  Fountain fountain;
  fountain.System().m_lifetime_max = {100.0f, 100.0f};
  fountain.Place().m_local_pos = Vector3D(30.0f, 40.0f, 1.0f);
  g_engine->paused = true;
  fountain.System().m_emit_accumulator = 1.5f;
  fountain.scene.world.Step();
  EXPECT_EQ(fountain.Nth(0).m_distance, 0.0f);
  fountain.scene.world.Step(2);
  EXPECT_NEAR(fountain.Nth(0).m_distance, 100.0f, 0.1f);
}

TEST(ParticleMotion, AFlightEndsWhenItsDistanceIsReached) {
  Fountain fountain;
  fountain.System().m_max_distance = {30.0f, 30.0f};
  Shoot(fountain, 0.1f);
  int steps = 0;
  for (; fountain.IsLive(0) && steps < 200; ++steps) fountain.scene.world.Step();
  EXPECT_GT(steps, 35);
  EXPECT_LT(steps, 45);
  EXPECT_GE(fountain.Nth(0).m_distance, 30.0f);
}

TEST(ParticleMotion, ARebornParticleStartsFromRestAndFromTheEmitter) {
  Fountain fountain;
  Shoot(fountain, 0.1f);
  fountain.scene.world.Step(60);
  EXPECT_GT(fountain.PlaceOf(0).m_world_pos.x, 40.0f);
  fountain.System().m_start_force_mag = fountain.System().m_start_torque_mag = {0.0f, 0.0f};
  fountain.Nth(0).m_lifetime = 0.5f;
  fountain.System().m_emit_accumulator = 1.5f;
  fountain.scene.world.Step(10);
  ASSERT_LT(fountain.Nth(0).m_age, 0.2f);
  EXPECT_NEAR(fountain.PlaceOf(0).m_world_pos.x, 0.01f, 1e-5f);
  EXPECT_EQ(fountain.PlaceOf(0).m_local_rotate, 0.0f);
  EXPECT_EQ(fountain.Nth(0).m_distance, 0.0f) << "the jump back to the emitter is no part of it";
}

TEST(ParticleMotion, AnInactiveParticleStaysWhereItEnded) {
  Fountain fountain;
  Shoot(fountain, 0.1f);
  fountain.scene.world.Step(30);
  fountain.System().Destroy();
  const Vector3D end = fountain.PlaceOf(0).m_local_pos;
  fountain.scene.world.Step(30);
  EXPECT_EQ(fountain.PlaceOf(0).m_local_pos, end);
}

/// A fountain in the middle of a level, for as long as its particles have come and gone a few
/// times.
std::uint64_t HashOfAPlayedFountain(int steps) {
  Fountain fountain;
  auto& system = fountain.System();
  system.m_emitter_num_particles = {60, 240};
  system.m_num_of_particles = 150;
  system.m_arc = 90.0f;
  system.m_start_rot = {0.0f, 360.0f};
  system.m_start_color_max = {1.0f, 1.0f, 1.0f, 1.0f};
  system.m_max_distance = {0.0f, 200.0f};
  fountain.Place().m_local_scale = Vector3D(40.0f, 40.0f, 1.0f);
  auto& burst = Of<ParticleSystemC>(fountain.Add("burst"));
  burst.m_looping = false;
  burst.m_emitter_num_particles = {300, 300};
  SeedRand(12345);
  fountain.scene.world.Step(steps);
  EXPECT_GT(fountain.Live(), 100);
  return fountain.scene.world.Hash();
}

TEST(ParticleMotion, SixHundredStepsGiveTheSameStateInEachRun) {
  const std::uint64_t first = HashOfAPlayedFountain(600);
  EXPECT_EQ(HashOfAPlayedFountain(600), first);
  EXPECT_NE(HashOfAPlayedFountain(599), first);
}

TEST(ParticleMotion, NoObjectIsMadeOrLostWhileAFountainRuns) {
  Fountain fountain;
  fountain.System().m_emitter_num_particles = {120, 120};
  fountain.System().m_lifetime_max = {0.1f, 0.5f};
  fountain.scene.world.Step();
  const std::vector<GameObj*> objects = g_game_obj_factory->m_objects;
  fountain.scene.world.Step(300);
  EXPECT_EQ(g_game_obj_factory->m_objects, objects);
  EXPECT_GT(fountain.log->forces.size(), 300u) << "more births than the pool has places";
}

TEST(ParticleMotion, TheDocumentedFountainIsReadWithoutComplaintAndRisesAsItSays) {
  std::string docs = ShippedFile("docs/formats.md");
  docs = docs.substr(docs.find("A fountain of sparks"));
  const std::size_t start = docs.find("```json") + 7;
  Scene scene;
  const std::string record = docs.substr(start, docs.find("```", start) - start);
  EXPECT_EQ(OutputOf([&] { scene.world.LoadObjects(record); }), "");
  scene.world.Step(240);
  const auto& system = Of<ParticleSystemC>(scene.world.Find("fountain"));
  EXPECT_GT(Fountain::Live(system), 80);
  for (const Particle* particle : system.m_particles) {
    if (!particle->m_owner->active) continue;
    EXPECT_GE(Of<Transform>(particle->m_owner).m_local_pos.y, -200.0f);
  }
}

}  // namespace
}  // namespace carapace_test
