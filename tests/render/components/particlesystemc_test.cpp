#include "render/components/particlesystemc.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "game/levels/levelobjects.h"
#include "jsonunserializer.h"
#include "render/components/particlefountain.h"
#include "render/passes/instancedpass.h"
#include "support/reports.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

using Pair = ParticleSystemC::Pair;
using Colour4 = ParticleSystemC::Colour4;

// The record

TEST(ParticleSystemC, ANewSystemHasItsDefaults) {
  const ParticleSystemC system(nullptr);
  EXPECT_FALSE(system.m_init);
  EXPECT_EQ(system.m_duration, 3.0f);
  EXPECT_EQ(system.m_delay, 3.0f);
  EXPECT_EQ(system.m_max_distance, (Pair{0.0f, 0.0f}));
  EXPECT_EQ(system.m_lifetime_max, (Pair{1.0f, 3.0f}));
  EXPECT_TRUE(system.m_looping);
  EXPECT_FALSE(system.m_prewarm);
  EXPECT_EQ(system.m_start_force_mag, (Pair{100.0f, 100.0f}));
  EXPECT_EQ(system.m_start_torque_mag, (Pair{10000.0f, 10000.0f}));
  EXPECT_EQ(system.m_start_size[0], Vector3D(1.0f, 1.0f, 1.0f));
  EXPECT_EQ(system.m_start_size[1], Vector3D(3.0f, 3.0f, 3.0f));
  EXPECT_EQ(system.m_start_force, (Pair{0.2f, 0.2f}));
  EXPECT_EQ(system.m_start_torque, (Pair{3.2f, 3.2f}));
  EXPECT_EQ(system.m_start_rot, (Pair{0.0f, 0.0f}));
  EXPECT_THAT(system.m_emitter_num_particles, ElementsAre(0, 5));
  EXPECT_EQ(system.m_particle_size[0], Vector3D());
  EXPECT_EQ(system.m_particle_size[1], Vector3D());
  EXPECT_EQ(system.m_particle_color_min, (Colour4{0.0f, 0.0f, 0.0f, 1.0f}));
  EXPECT_EQ(system.m_particle_color_max, (Colour4{1.0f, 0.0f, 0.0f, 1.0f}));
  EXPECT_EQ(system.m_num_of_particles, 100);
  EXPECT_TRUE(system.m_particles.empty());
  EXPECT_EQ(system.m_particle_template, nullptr);
  EXPECT_EQ(system.m_emitter_local_pos, Vector3D(0.0f, 0.0f, 1.0f));
  EXPECT_EQ(system.m_emitter_local_scale, Vector3D(1.0f, 1.0f, 1.0f));
  EXPECT_EQ(system.m_emitter_local_rotate, 0.0f);
  EXPECT_EQ(system.m_arc, 60.0f);
  EXPECT_EQ(system.m_emit_accumulator, 0.0f);
  EXPECT_TRUE(system.m_emitting);
  EXPECT_EQ(system.m_cycle_time, 0.0f);
  EXPECT_EQ(system.particle_tex, "default");
}

constexpr const char* kRecord = R"({
    "m_duration": 7.5,
    "m_delay": 0.25,
    "m_max_distance": [100.0, 200.0],
    "m_lifetime_max": [0.5, 1.5],
    "m_looping": false,
    "m_prewarm": true,
    "m_start_force_mag": [10.0, 20.0],
    "m_start_size": [[1.0, 2.0, 3.0], [4.0, 5.0, 6.0]],
    "m_start_force": [0.1, 0.3],
    "m_start_rot": [-45.0, 45.0],
    "m_arc": 90.0,
    "m_start_color_min": [0.1, 0.2, 0.3, 0.4],
    "m_start_color_max": [0.5, 0.6, 0.7, 0.8],
    "m_emitter_num_particles": [30, 60],
    "m_particle_size": [[7.0, 8.0, 9.0], [10.0, 11.0, 12.0]],
    "m_particle_color_min": [0.9, 0.8, 0.7, 0.6],
    "m_particle_color_max": [0.5, 0.4, 0.3, 0.2],
    "m_num_of_particles": 400,
    "m_start_torque": [1.0, 2.0],
    "m_start_torque_mag": [-300.0, 300.0],
    "particle_tex": "spark"
})";

TEST(ParticleSystemC, EveryKeyReachesItsField) {
  ParticleSystemC system(nullptr);
  EXPECT_EQ(OutputOf([&] { ReadRecord(kRecord, system); }), "");
  EXPECT_EQ(system.m_duration, 7.5f);
  EXPECT_EQ(system.m_delay, 0.25f);
  EXPECT_EQ(system.m_max_distance, (Pair{100.0f, 200.0f}));
  EXPECT_EQ(system.m_lifetime_max, (Pair{0.5f, 1.5f}));
  EXPECT_FALSE(system.m_looping);
  EXPECT_TRUE(system.m_prewarm);
  EXPECT_EQ(system.m_start_force_mag, (Pair{10.0f, 20.0f}));
  EXPECT_EQ(system.m_start_size[0], Vector3D(1.0f, 2.0f, 3.0f));
  EXPECT_EQ(system.m_start_size[1], Vector3D(4.0f, 5.0f, 6.0f));
  EXPECT_EQ(system.m_start_force, (Pair{0.1f, 0.3f}));
  EXPECT_EQ(system.m_start_torque, (Pair{1.0f, 2.0f}));
  EXPECT_EQ(system.m_start_torque_mag, (Pair{-300.0f, 300.0f}));
  EXPECT_EQ(system.m_start_rot, (Pair{-45.0f, 45.0f}));
  EXPECT_EQ(system.m_arc, 90.0f);
  EXPECT_EQ(system.m_start_color_min, (Colour4{0.1f, 0.2f, 0.3f, 0.4f}));
  EXPECT_EQ(system.m_start_color_max, (Colour4{0.5f, 0.6f, 0.7f, 0.8f}));
  EXPECT_EQ(system.particle_tex, "spark");
  EXPECT_THAT(system.m_emitter_num_particles, ElementsAre(30, 60));
  EXPECT_EQ(system.m_particle_size[0], Vector3D(7.0f, 8.0f, 9.0f));
  EXPECT_EQ(system.m_particle_size[1], Vector3D(10.0f, 11.0f, 12.0f));
  EXPECT_EQ(system.m_particle_color_min, (Colour4{0.9f, 0.8f, 0.7f, 0.6f}));
  EXPECT_EQ(system.m_particle_color_max, (Colour4{0.5f, 0.4f, 0.3f, 0.2f}));
  EXPECT_EQ(system.m_num_of_particles, 400);
}

TEST(ParticleSystemC, ARecordComesBackWithTheSameKeysInTheOrderOfWriting) {
  ParticleSystemC first(nullptr);
  ReadRecord(kRecord, first);
  const std::string text = RecordOf(first);
  EXPECT_EQ(KeysOf(text), KeysOf(kRecord));
  ParticleSystemC second(nullptr);
  EXPECT_EQ(OutputOf([&] { ReadRecord(text, second); }), "");
  EXPECT_EQ(RecordOf(second), text);
}

TEST(ParticleSystemC, MissingKeysAreNamedInTheOrderOfReadingAndKeepTheDefaults) {
  ParticleSystemC system(nullptr);
  EXPECT_EQ(OutputOf([&] { ReadRecord("{}", system); }),
            "Cant find Key: m_duration\n"
            "Cant find Key: m_delay\n"
            "Cant find Key: m_max_distance\n"
            "Cant find Key: m_lifetime_max\n"
            "Cant find Key: m_looping\n"
            "Cant find Key: m_prewarm\n"
            "Cant find Key: m_start_force_mag\n"
            "Cant find Key: m_start_size\n"
            "Cant find Key: m_start_force\n"
            "Cant find Key: m_start_torque\n"
            "Cant find Key: m_start_torque_mag\n"
            "Cant find Key: m_start_rot\n"
            "Cant find Key: m_arc\n"
            "Cant find Key: m_start_color_min\n"
            "Cant find Key: m_start_color_max\n"
            "Cant find Key: particle_tex\n"
            "Cant find Key: m_emitter_num_particles\n"
            "Cant find Key: m_particle_size\n"
            "Cant find Key: m_particle_color_min\n"
            "Cant find Key: m_particle_color_max\n"
            "Cant find Key: m_num_of_particles\n");
  ParticleSystemC fresh(nullptr);
  EXPECT_EQ(RecordOf(system), RecordOf(fresh));
}

TEST(ParticleSystemC, StateOfTheEmissionIsNotSaved) {
  ParticleSystemC system(nullptr);
  const std::string fresh = RecordOf(system);
  system.m_emitting = false;
  system.m_cycle_time = 1.0f;
  system.m_emit_accumulator = 9.0f;
  system.m_emitter_local_pos = Vector3D(5.0f, 5.0f, 5.0f);
  EXPECT_EQ(RecordOf(system), fresh);
}

TEST(Particle, HasNoRecordAndStartsAtNothing) {
  Particle particle(nullptr);
  ReadRecord(R"({"m_age": 5})", particle);
  EXPECT_TRUE(KeysOf(RecordOf(particle)).empty());
  EXPECT_EQ(particle.m_age, 0.0f);
  EXPECT_EQ(particle.m_lifetime, 0.0f);
  EXPECT_EQ(particle.m_size_step, Vector3D());
  EXPECT_EQ(particle.m_colour_step, (Colour4{0.0f, 0.0f, 0.0f, 0.0f}));
  EXPECT_EQ(particle.m_distance, 0.0f);
  EXPECT_EQ(particle.m_max_distance, 0.0f);
}

// Bad records

/// The report of reading a level object with this record of a system.
std::string ReportOfLevel(World& world, const std::string& fields) {
  std::string report;
  OutputOf([&] {
    report = ReportOf([&] { world.LoadObjects(Record("spring", {{"ParticleSystemC", fields}})); });
  });
  return report;
}

TEST(ParticleSystemC, APoolSizeOutOfBoundsIsReportedWithItsPlace) {
  World world;
  for (const char* size : {"-1", "-2147483648", "150001", "2147483647", "4294967295"}) {
    EXPECT_THAT(ReportOfLevel(world, std::string(R"({"m_num_of_particles": )") + size + "}"),
                AllOf(HasSubstr("objects-of-the-test.json: object \"spring\": component "
                                "\"ParticleSystemC\": key \"m_num_of_particles\""),
                      HasSubstr("expected a number from 0 to 150000")))
        << size;
  }
}

TEST(ParticleSystemC, APoolOfZeroAndOneAsLargeAsThePictureHoldsAreRead) {
  EXPECT_EQ(kMaxParticles, static_cast<std::int32_t>(kMaxInstances));
  World world;
  for (const char* size : {"0", "1", "150000"}) {
    EXPECT_EQ(ReportOfLevel(world, std::string(R"({"m_num_of_particles": )") + size + "}"), "");
  }
}

TEST(ParticleSystemC, ARateWithItsMinimumAboveItsMaximumIsReportedWithItsPlace) {
  World world;
  for (const char* rate : {"[6, 5]", "[5, 0]", "[2147483647, -2147483648]"}) {
    EXPECT_THAT(ReportOfLevel(world, std::string(R"({"m_emitter_num_particles": )") + rate + "}"),
                AllOf(HasSubstr("object \"spring\""), HasSubstr("key \"m_emitter_num_particles\""),
                      HasSubstr("the minimum is above the maximum")))
        << rate;
  }
}

TEST(ParticleSystemC, ARateThatIsNoPairOfNumbersIsReported) {
  World world;
  for (const char* rate : {"[5]", "[1, 2, 3]", "5", "{}", R"(["1", "2"])", "null"}) {
    EXPECT_THAT(ReportOfLevel(world, std::string(R"({"m_emitter_num_particles": )") + rate + "}"),
                HasSubstr("key \"m_emitter_num_particles\""))
        << rate;
  }
}

TEST(ParticleSystemC, NumbersSetByCodeAreCheckedBeforeTheyAreUsed) {
  Fountain fountain;
  fountain.System().m_num_of_particles = -1;
  EXPECT_THAT(ReportOf([&] { fountain.Update(); }),
              AllOf(HasSubstr("\"fountain\""), HasSubstr("-1 particles")));
  fountain.System().m_num_of_particles = 150001;
  EXPECT_THAT(ReportOf([&] { fountain.Update(); }), HasSubstr("150001 particles"));
  fountain.System().m_num_of_particles = 1;
  fountain.System().m_emitter_num_particles = {3, 2};
  EXPECT_THAT(ReportOf([&] { fountain.Update(); }),
              AllOf(HasSubstr("\"fountain\""), HasSubstr("m_emitter_num_particles")));
}

// The pool

TEST(ParticleSystemC, TheFirstUpdateMakesThePoolAndATemplateOutsideIt) {
  Fountain fountain;
  fountain.System().m_num_of_particles = 3;
  const std::size_t before = g_game_obj_factory->m_objects.size();
  fountain.Update();
  EXPECT_TRUE(fountain.System().m_init);
  ASSERT_EQ(fountain.System().m_particles.size(), 3u);
  ASSERT_EQ(g_game_obj_factory->m_objects.size(), before + 4);
  EXPECT_EQ(fountain.System().m_particle_template, g_game_obj_factory->m_objects[before]);
  for (std::size_t i = 0; i < 3; ++i) {
    GameObj* object = g_game_obj_factory->m_objects[before + 1 + i];
    EXPECT_EQ(fountain.Nth(i).m_owner, object);
    EXPECT_EQ(object->name, "particle_test");
    EXPECT_EQ(object->parent, nullptr);
    EXPECT_FALSE(object->active);
    EXPECT_FALSE(Of<Render>(object).m_visible);
    EXPECT_FALSE(Of<RigidBody>(object).m_active);
  }
  EXPECT_FALSE(fountain.System().m_particle_template->active);
}

TEST(ParticleSystemC, ThePoolIsMadeOnce) {
  Fountain fountain;
  fountain.Update();
  const std::size_t objects = g_game_obj_factory->m_objects.size();
  for (int i = 0; i < 200; ++i) {
    fountain.System().m_emit_accumulator += 3.0f;
    fountain.Update();
  }
  EXPECT_EQ(g_game_obj_factory->m_objects.size(), objects);
  EXPECT_EQ(fountain.System().m_particles.size(), 100u);
}

TEST(ParticleSystemC, AnEmptyPoolBearsNothingAndIsNotMadeAgain) {
  Fountain fountain;
  fountain.System().m_num_of_particles = 0;
  fountain.Bear(5);
  const std::size_t objects = g_game_obj_factory->m_objects.size();
  fountain.Bear(5);
  EXPECT_EQ(g_game_obj_factory->m_objects.size(), objects);
  EXPECT_TRUE(fountain.log->forces.empty());
}

TEST(ParticleSystemC, EachComponentThatTheArchetypeLacksIsNamed) {
  const std::vector<std::string> needed = {"Transform", "RigidBody", "Render", "iModel",
                                           "Particle"};
  for (const std::string& lacking : needed) {
    std::string list;
    std::string fields;
    for (const std::string& name : needed) {
      if (name == lacking) continue;
      list += (list.empty() ? "\"" : ", \"") + name + "\"";
      fields += ", \"" + name + "\": {}";
    }
    Scene scene(Files{{"Resources/Archetypes/GameObjects/particle_test.json",
                       R"({"name": "particle_test", "components": [)" + list + "]" + fields +
                           R"(, "Childs": []})"}});
    GameObj* object = scene.AddObject("fountain");
    object->AddComponent<ParticleSystemC>();
    EXPECT_THAT(ReportOf([&] { Of<ParticleSystemC>(object).Update(kStep); }),
                AllOf(HasSubstr("Archetype \"particle_test\" has no " + lacking),
                      HasSubstr("\"fountain\"")));
  }
}

TEST(ParticleSystemC, AnAbsentArchetypeIsNamed) {
  Scene scene(Files{{"Resources/Archetypes/GameObjects/particle_test.json", ""}});
  GameObj* object = scene.AddObject("fountain");
  object->AddComponent<ParticleSystemC>();
  EXPECT_THAT(ReportOf([&] { Of<ParticleSystemC>(object).Update(kStep); }),
              HasSubstr("particle_test"));
}

TEST(ParticleSystemC, TheShippedArchetypeHasAllThatAParticleNeeds) {
  Fountain fountain;
  fountain.Update();
  const GameObj& particle = *fountain.System().m_particle_template;
  EXPECT_TRUE(particle.HasComponent<Transform>());
  EXPECT_TRUE(particle.HasComponent<RigidBody>());
  EXPECT_TRUE(particle.HasComponent<iModel>());
  EXPECT_TRUE(particle.HasComponent<Particle>());
  EXPECT_EQ(fountain.LookOf(0).m_shader, "instanced");
  EXPECT_FALSE(fountain.LookOf(0).m_tile);
}

TEST(ParticleSystemC, ParticlesAreNotSavedWithALevel) {
  Fountain fountain;
  fountain.Bear(2);
  JsonWriter writer;
  WriteLevelObjects(writer.Out());
  EXPECT_THAT(writer.Text(), HasSubstr("\"fountain\""));
  EXPECT_EQ(writer.Text().find("particle_test"), std::string::npos);
}

TEST(ParticleSystemC, DestroySwitchesAllParticlesOff) {
  Fountain fountain;
  fountain.Bear(5);
  ASSERT_EQ(fountain.Live(), 5);
  fountain.System().Destroy();
  EXPECT_EQ(fountain.Live(), 0);
  EXPECT_EQ(fountain.System().m_particles.size(), 100u);
}

TEST(ParticleSystemC, ADestroyedParticleLeavesThePoolAndTheOthersRunOn) {
  Fountain fountain;
  fountain.System().m_num_of_particles = 4;
  fountain.Bear(4);
  const std::uint32_t moved = fountain.Nth(3).m_owner->id;
  const std::uint32_t freed = fountain.Nth(1).m_owner->id;
  g_game_obj_factory->Destroy(freed);
  EXPECT_EQ(fountain.System().m_particles[1], nullptr);
  ASSERT_NE(moved, freed);
  EXPECT_EQ(fountain.Nth(3).m_owner->id, freed) << "the last object took the freed id";

  fountain.Update(0.5f);
  EXPECT_EQ(fountain.Live(), 3);
  EXPECT_EQ(fountain.Nth(3).m_age, 0.5f);
  fountain.log->forces.clear();
  fountain.System().ResetParticle(fountain.Nth(3));
  EXPECT_EQ(fountain.log->forces.at(0).objectId, freed);
  fountain.System().Destroy();
  EXPECT_EQ(fountain.Live(), 0);
}

TEST(ParticleSystemC, DestroyingTheEmitterLeavesItsParticlesInTheLevel) {
  Fountain fountain;
  fountain.System().m_num_of_particles = 2;
  fountain.Bear(2);
  GameObj* live = fountain.Nth(0).m_owner;
  g_game_obj_factory->Destroy(fountain.object->id);
  EXPECT_TRUE(live->active);
  fountain.scene.world.Step(3);
  g_game_obj_factory->Destroy(live->id);
  fountain.scene.world.Step(3);
}

TEST(ParticleSystemC, ClearingTheLevelTakesSystemAndParticlesTogether) {
  Fountain fountain;
  fountain.Bear(5);
  g_game_obj_factory->ClearObjects();
  fountain.scene.world.Step(3);
  EXPECT_TRUE(ComponentTable<Particle>().Components().empty());
}

TEST(ParticleSystemC, ACloneOfARunningSystemMakesAPoolOfItsOwn) {
  Fountain fountain;
  fountain.System().m_num_of_particles = 3;
  fountain.Bear(3);
  GameObj* clone = g_game_obj_factory->Clone(fountain.object, true);
  auto& copy = Of<ParticleSystemC>(clone);
  EXPECT_TRUE(copy.m_particles.empty());
  copy.Update(1.0f);
  ASSERT_EQ(copy.m_particles.size(), 3u);
  EXPECT_NE(copy.m_particles[0], &fountain.Nth(0));
  EXPECT_EQ(fountain.Nth(0).m_age, 0.0f);
}

TEST(ParticleSystemC, ACloneOfAParticleIsInNoPool) {
  Fountain fountain;
  fountain.System().m_num_of_particles = 1;
  fountain.Bear(1);
  GameObj* clone = g_game_obj_factory->Clone(fountain.Nth(0).m_owner, true);
  fountain.Update(1.0f);
  EXPECT_EQ(Of<Particle>(clone).m_age, 0.0f);
  g_game_obj_factory->Destroy(clone->id);
  EXPECT_EQ(fountain.Nth(0).m_age, 1.0f);
}

// The cycle

TEST(ParticleSystemC, ACycleEndsWhenItsDurationIsReachedAndALoopingSystemStartsAnother) {
  Fountain fountain;
  fountain.System().m_duration = 1.0f;
  fountain.Update(0.75f);
  EXPECT_EQ(fountain.System().m_cycle_time, 0.75f);
  fountain.Update(0.25f);
  EXPECT_EQ(fountain.System().m_cycle_time, 0.0f);
  EXPECT_TRUE(fountain.System().m_emitting);
  fountain.Update(0.25f);
  EXPECT_EQ(fountain.System().m_cycle_time, 0.25f);
}

TEST(ParticleSystemC, TheTimeBeyondTheEndOfACycleIsDropped) {
  for (const bool looping : {true, false}) {
    Fountain fountain;
    fountain.System().m_duration = 1.0f;
    fountain.System().m_looping = looping;
    fountain.Update(1.75f);
    EXPECT_EQ(fountain.System().m_cycle_time, 0.0f) << looping;
    EXPECT_EQ(fountain.System().m_emitting, looping);
  }
}

TEST(ParticleSystemC, ANonLoopingSystemStopsBirthsForGoodButItsParticlesRunOn) {
  Fountain fountain;
  ParticleSystemC& system = fountain.System();
  system.m_looping = false;
  system.m_duration = 1.0f;
  system.m_lifetime_max = {5.0f, 5.0f};
  fountain.Bear(2);
  fountain.Update(0.5f);
  EXPECT_TRUE(system.m_emitting);
  system.m_emit_accumulator = 50.0f;
  fountain.Update(0.5f);
  EXPECT_FALSE(system.m_emitting);
  EXPECT_EQ(system.m_cycle_time, 0.0f);
  EXPECT_EQ(system.m_emit_accumulator, 0.0f) << "the step that ends the cycle bears none";
  EXPECT_EQ(fountain.Live(), 2);
  system.m_emitter_num_particles = {1000, 1000};
  for (int i = 0; i < 3; ++i) fountain.Update(1.0f);
  EXPECT_EQ(fountain.Live(), 2);
  EXPECT_EQ(fountain.Nth(0).m_age, 4.0f);
  EXPECT_EQ(system.m_cycle_time, 0.0f);
  fountain.Update(1.0f);
  EXPECT_EQ(fountain.Live(), 0);
}

TEST(ParticleSystemC, AnInactiveComponentOwesNothingWhileItsParticlesAgeAndItsCycleRuns) {
  Fountain fountain;
  ParticleSystemC& system = fountain.System();
  fountain.Bear(2);
  system.m_active = false;
  system.m_emit_accumulator = 9.0f;
  fountain.Update(0.25f);
  EXPECT_EQ(system.m_emit_accumulator, 0.0f);
  EXPECT_EQ(fountain.Live(), 2);
  EXPECT_EQ(fountain.Nth(0).m_age, 0.25f);
  EXPECT_EQ(system.m_cycle_time, 0.25f);
}

TEST(ParticleSystemC, OnlyARunningSystemDrawsANumberEachStep) {
  Fountain fountain;
  const auto draws_one = [&] {
    SeedRand(7);
    fountain.Update();
    const int next = Rand();
    SeedRand(7);
    const bool none = Rand() == next;
    return !none && Rand() == next;
  };
  fountain.Update();
  EXPECT_TRUE(draws_one());
  fountain.System().m_active = false;
  EXPECT_FALSE(draws_one());
  fountain.System().m_active = true;
  fountain.System().m_emitting = false;
  EXPECT_FALSE(draws_one());
}

// The rate

TEST(ParticleSystemC, TheRateIsDrawnAnewEachStepFromMinimumToMaximum) {
  Fountain fountain;
  ParticleSystemC& system = fountain.System();
  system.m_num_of_particles = 0;
  system.m_emitter_num_particles = {0, 5};
  fountain.Update(0.0f);
  SeedRand(99);
  std::vector<int> expected;
  for (int i = 0; i < 200; ++i) expected.push_back(Rand() % 6);
  EXPECT_THAT(expected, AllOf(testing::Contains(0), testing::Contains(5)));
  SeedRand(99);
  float owed = 0.0f;
  for (const int rate : expected) {
    fountain.Update(kStep);
    owed += static_cast<float>(rate) * kStep;
    ASSERT_EQ(system.m_emit_accumulator, owed);
  }
}

TEST(ParticleSystemC, ARateThatIsNotSpreadIsThatRate) {
  Fountain fountain;
  fountain.System().m_num_of_particles = 0;
  fountain.System().m_emitter_num_particles = {8, 8};
  fountain.Update(0.5f);
  EXPECT_EQ(fountain.System().m_emit_accumulator, 4.0f);
}

TEST(ParticleSystemC, TheWidestRateIsDrawnWithoutOverflow) {
  Fountain fountain;
  fountain.System().m_num_of_particles = 0;
  fountain.System().m_emitter_num_particles = {std::numeric_limits<std::int32_t>::min(),
                                               std::numeric_limits<std::int32_t>::max()};
  fountain.Update(1.0f);
  EXPECT_LT(fountain.System().m_emit_accumulator, -2147400000.0f);
}

TEST(ParticleSystemC, ABirthNeedsMoreThanOneParticleOwed) {
  Fountain fountain;
  fountain.System().m_emit_accumulator = 1.0f;
  fountain.Update();
  EXPECT_EQ(fountain.Live(), 0);
  EXPECT_EQ(fountain.System().m_emit_accumulator, 1.0f);
  fountain.System().m_emit_accumulator = std::nextafter(1.0f, 2.0f);
  fountain.Update();
  EXPECT_EQ(fountain.Live(), 1);
  EXPECT_LT(fountain.System().m_emit_accumulator, 1e-6f);
}

TEST(ParticleSystemC, ThePoolIsFilledFromItsStart) {
  Fountain fountain;
  fountain.System().m_emit_accumulator = 3.5f;
  fountain.Update();
  EXPECT_TRUE(fountain.IsLive(0));
  EXPECT_TRUE(fountain.IsLive(1));
  EXPECT_TRUE(fountain.IsLive(2));
  EXPECT_EQ(fountain.Live(), 3);
  EXPECT_EQ(fountain.System().m_emit_accumulator, 0.5f);
}

TEST(ParticleSystemC, WhatIsOwedGrowsWhileThePoolIsUsedUp) {
  Fountain fountain;
  fountain.System().m_num_of_particles = 2;
  fountain.System().m_emitter_num_particles = {60, 60};
  fountain.System().m_lifetime_max = {100.0f, 100.0f};
  fountain.System().m_emit_accumulator = 5.0f;
  fountain.Update(1.0f);
  EXPECT_EQ(fountain.System().m_emit_accumulator, 63.0f);
  fountain.Update(1.0f);
  EXPECT_EQ(fountain.System().m_emit_accumulator, 123.0f);
  EXPECT_EQ(fountain.log->forces.size(), 2u);
}

// A particle's life

TEST(ParticleSystemC, AParticleIsAsOldAsTheStepsSinceItsBirth) {
  Fountain fountain;
  fountain.Bear(1);
  EXPECT_EQ(fountain.Nth(0).m_age, 0.0f);
  fountain.Update(0.25f);
  fountain.Update(0.5f);
  EXPECT_EQ(fountain.Nth(0).m_age, 0.75f);
}

TEST(ParticleSystemC, SizeAndColourReachThoseOfTheEndAtTheEndOfLife) {
  Fountain fountain;
  ParticleSystemC& system = fountain.System();
  system.m_lifetime_max = {2.0f, 2.0f};
  system.m_start_size = {Vector3D(4.0f, 6.0f, 1.0f), Vector3D(4.0f, 6.0f, 1.0f)};
  system.m_particle_size = {Vector3D(99.0f, 99.0f, 99.0f), Vector3D(8.0f, 2.0f, 3.0f)};
  system.m_start_color_min = system.m_start_color_max = {1.0f, 0.0f, 0.5f, 1.0f};
  system.m_particle_color_min = {9.0f, 9.0f, 9.0f, 9.0f};
  system.m_particle_color_max = {0.0f, 1.0f, 0.5f, 0.0f};
  fountain.Bear(1);
  EXPECT_EQ(fountain.Nth(0).m_size_step, Vector3D(2.0f, -2.0f, 1.0f));
  EXPECT_EQ(fountain.Nth(0).m_colour_step, (Colour4{-0.5f, 0.5f, 0.0f, -0.5f}));
  fountain.Update(1.0f);
  EXPECT_EQ(fountain.PlaceOf(0).m_local_scale, Vector3D(6.0f, 4.0f, 2.0f));
  EXPECT_EQ(fountain.LookOf(0).m_colour, (Colour4{0.5f, 0.5f, 0.5f, 0.5f}));
  fountain.Update(1.0f);
  EXPECT_EQ(fountain.PlaceOf(0).m_local_scale, Vector3D(8.0f, 2.0f, 3.0f));
  EXPECT_EQ(fountain.LookOf(0).m_colour, (Colour4{0.0f, 1.0f, 0.5f, 0.0f}));
  EXPECT_FALSE(fountain.IsLive(0)) << "over in the step that reaches the life time";
}

TEST(ParticleSystemC, TheTextureIsThatOfTheSystemFromStepToStep) {
  Fountain fountain;
  fountain.System().particle_tex = "one";
  fountain.Bear(1);
  EXPECT_EQ(fountain.LookOf(0).m_tex, "one");
  fountain.System().particle_tex = "two";
  fountain.Update();
  EXPECT_EQ(fountain.LookOf(0).m_tex, "two");
  EXPECT_EQ(fountain.LookOf(1).m_tex, "default") << "an inactive one is not touched";
}

TEST(ParticleSystemC, TheDistanceIsTheLengthOfThePathAndEndsALife) {
  Fountain fountain;
  ParticleSystemC& system = fountain.System();
  system.m_max_distance = {10.0f, 10.0f};
  system.m_lifetime_max = {0.0f, 0.0f};
  fountain.Bear(1);
  const auto move = [&](const Vector3D& from, const Vector3D& to) {
    fountain.PlaceOf(0).m_prev_pos = from;
    fountain.PlaceOf(0).m_world_pos = to;
    fountain.Update();
  };
  move(Vector3D(0.0f, 0.0f, 1.0f), Vector3D(3.0f, 4.0f, 1.0f));
  EXPECT_EQ(fountain.Nth(0).m_distance, 5.0f);
  move(Vector3D(3.0f, 4.0f, 1.0f), Vector3D(0.0f, 4.0f, 5.0f));
  EXPECT_EQ(fountain.Nth(0).m_distance, 10.0f);
  EXPECT_FALSE(fountain.IsLive(0)) << "over in the step that reaches the distance";
}

TEST(ParticleSystemC, ZeroMeansNoLimitOfLifeTimeAndOfDistance) {
  Fountain fountain;
  fountain.System().m_lifetime_max = {0.0f, 0.0f};
  fountain.Bear(1);
  for (int i = 0; i < 10; ++i) {
    fountain.PlaceOf(0).m_prev_pos = Vector3D();
    fountain.PlaceOf(0).m_world_pos = Vector3D(1e6f, 0.0f, 0.0f);
    fountain.Update(1000.0f);
  }
  EXPECT_TRUE(fountain.IsLive(0));
  EXPECT_EQ(fountain.Nth(0).m_age, 10000.0f);
}

TEST(ParticleSystemC, ALifeTimeOfZeroMakesTheStepsInfiniteAndNothingElse) {
  Fountain fountain;
  ParticleSystemC& system = fountain.System();
  system.m_lifetime_max = {0.0f, 0.0f};
  system.m_start_color_min = system.m_start_color_max = {1.0f, 0.5f, 0.0f, 1.0f};
  system.m_particle_color_max = {0.0f, 1.0f, 0.0f, 1.0f};
  fountain.Bear(1);
  EXPECT_EQ(fountain.Nth(0).m_colour_step[0], -std::numeric_limits<float>::infinity());
  EXPECT_EQ(fountain.Nth(0).m_colour_step[1], std::numeric_limits<float>::infinity());
  EXPECT_TRUE(std::isnan(fountain.Nth(0).m_colour_step[2]));
  EXPECT_EQ(fountain.Nth(0).m_size_step.x, -std::numeric_limits<float>::infinity());
  fountain.Update();
  EXPECT_EQ(fountain.LookOf(0).m_colour[0], -std::numeric_limits<float>::infinity());
  EXPECT_EQ(fountain.LookOf(0).m_colour[1], std::numeric_limits<float>::infinity());
  fountain.scene.world.Step(2);
  EXPECT_TRUE(fountain.IsLive(0));
}

TEST(ParticleSystemC, AParticleThatIsOverIsBornAgainAtOnceWhenOneIsOwed) {
  Fountain fountain;
  ParticleSystemC& system = fountain.System();
  system.m_num_of_particles = 2;
  system.m_lifetime_max = {1.0f, 1.0f};
  fountain.Bear(2);
  system.m_emit_accumulator = 1.5f;
  fountain.Update(1.0f);
  EXPECT_TRUE(fountain.IsLive(0));
  EXPECT_EQ(fountain.Nth(0).m_age, 0.0f);
  EXPECT_FALSE(fountain.IsLive(1)) << "nothing more was owed";
  EXPECT_FALSE(fountain.LookOf(1).m_visible);
  EXPECT_EQ(system.m_emit_accumulator, 0.5f);
}

TEST(ParticleSystemC, AnInactiveParticleNeitherAgesNorMoves) {
  Fountain fountain;
  fountain.Bear(1);
  fountain.Nth(0).m_owner->SetActive(false);
  const Vector3D scale = fountain.PlaceOf(0).m_local_scale;
  fountain.Update(1.0f);
  EXPECT_EQ(fountain.Nth(0).m_age, 0.0f);
  EXPECT_EQ(fountain.PlaceOf(0).m_local_scale, scale);
}

TEST(ParticleSystemC, RunsOnInAPause) {
  Fountain fountain;
  fountain.System().m_emitter_num_particles = {120, 120};
  g_engine->paused = true;
  fountain.scene.world.Step(30);
  EXPECT_GT(fountain.Live(), 50);
  EXPECT_GT(fountain.Nth(0).m_age, 0.4f);
}

TEST(ParticleSystemC, TakesNoNoticeOfMessagesAndContacts) {
  Fountain fountain;
  fountain.Bear(3);
  const std::uint64_t before = fountain.scene.world.Hash();
  KeyUp key(65);
  fountain.System().OnMessage(&key);
  fountain.System().OnCollisionEnter(nullptr);
  fountain.System().OnCollisionStay(nullptr);
  fountain.System().OnCollisionExit(nullptr);
  EXPECT_EQ(fountain.scene.world.Hash(), before);
}

}  // namespace
}  // namespace carapace_test
