#include "render/components/particle.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "support/reports.h"

namespace ZOVEngine {
namespace {

using carapace_test::KeysOf;
using carapace_test::ReadRecord;
using carapace_test::RecordOf;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsNull;

TEST(Particle, HasNoRecordAndStartsAtNothing) {
  Particle particle(nullptr);
  ReadRecord(R"({"m_age": 5})", particle);
  EXPECT_THAT(KeysOf(RecordOf(particle)), IsEmpty());
  EXPECT_EQ(particle.m_age, 0.0f);
  EXPECT_EQ(particle.m_lifetime, 0.0f);
  EXPECT_EQ(particle.m_size_step, Vector3D());
  EXPECT_THAT(particle.m_colour_step, Each(0.0f));
  EXPECT_EQ(particle.m_distance, 0.0f);
  EXPECT_EQ(particle.m_max_distance, 0.0f);
}

class ParticlePoolTest : public ::testing::Test {
 protected:
  ParticlePoolTest() {
    pool.Make(2);
    pool.Add(first.get());
    pool.Add(second.get());
  }

  std::unique_ptr<Particle> first = std::make_unique<Particle>(nullptr);
  std::unique_ptr<Particle> second = std::make_unique<Particle>(nullptr);
  ParticlePool pool;
};

TEST_F(ParticlePoolTest, ANewOneIsNotMade) {
  EXPECT_FALSE(ParticlePool().IsMade());
  EXPECT_TRUE(ParticlePool().empty());
  EXPECT_TRUE(pool.IsMade());
}

TEST_F(ParticlePoolTest, HoldsItsParticlesInTheOrderInWhichTheyCame) {
  EXPECT_THAT(std::vector<Particle*>(pool.begin(), pool.end()),
              ElementsAre(first.get(), second.get()));
}

TEST_F(ParticlePoolTest, TheRoomOfADestroyedParticleIsNull) {
  first.reset();
  EXPECT_EQ(pool.size(), 2u);
  EXPECT_THAT(pool[0], IsNull());
  EXPECT_EQ(pool[1], second.get());
}

TEST_F(ParticlePoolTest, ACopyOfAParticleStandsInNoPool) {
  { const Particle copy(*first); }
  EXPECT_EQ(pool[0], first.get()) << "the end of the copy takes nothing out";
}

TEST_F(ParticlePoolTest, ACopyOfAPoolIsEmptyAndNotMade) {
  const ParticlePool copy(pool);
  EXPECT_FALSE(copy.IsMade());
  EXPECT_TRUE(copy.empty());
}

TEST_F(ParticlePoolTest, MadeAnewItLetsGoOfItsParticles) {
  pool.Make(1);
  EXPECT_TRUE(pool.empty());
  pool.Add(second.get());
  first.reset();
  EXPECT_EQ(pool[0], second.get()) << "the particle of before has no room any more";
}

TEST_F(ParticlePoolTest, AParticleMayOutliveItsPool) {
  {
    ParticlePool short_lived;
    short_lived.Make(1);
    auto particle = std::make_unique<Particle>(nullptr);
    short_lived.Add(particle.get());
    first = std::move(particle);
  }
  first.reset();
  EXPECT_EQ(pool[1], second.get());
}

}  // namespace
}  // namespace ZOVEngine
