#include "game/camera.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ctime>

#include "core/base/random.h"
#include "game/turns/turnworld.h"
#include "support/reports.h"

namespace ZOVEngine {
namespace {

using carapace_test::KeysOf;
using carapace_test::OutputOf;
using carapace_test::PlacedAt;
using carapace_test::ReadRecord;
using carapace_test::Record;
using carapace_test::RecordOf;
using carapace_test::TransformOf;
using carapace_test::TurnWorld;
using carapace_test::World;
using ::testing::Each;
using ::testing::ElementsAre;

TEST(Camera, ANewCameraIsInactiveAndStill) {
  const Camera camera(nullptr);
  EXPECT_FALSE(camera.m_active);
  EXPECT_FALSE(camera.m_init);
  EXPECT_EQ(camera.m_elapsed, 0.0f);
  EXPECT_EQ(camera.m_offset, Vector3D(0, 0, 0));
  EXPECT_FALSE(camera.m_shaking);
  EXPECT_EQ(camera.m_shake_duration, 0.0f);
  EXPECT_EQ(camera.m_shakemag, 1.0f);
  EXPECT_EQ(camera.m_xlimit, 1);
  EXPECT_EQ(camera.m_ylimit, 1);
  EXPECT_THAT(camera.m_at_limit, Each(false));
}

TEST(Camera, ReadsItsFourFields) {
  Camera camera(nullptr);
  ReadRecord(R"({"m_offset": [1, 2, 3], "m_shakemag": 4.5, "m_xlimit": -6, "m_ylimit": 7})",
             camera);
  EXPECT_EQ(camera.m_offset, Vector3D(1, 2, 3));
  EXPECT_EQ(camera.m_shakemag, 4.5f);
  EXPECT_EQ(camera.m_xlimit, -6);
  EXPECT_EQ(camera.m_ylimit, 7);
  EXPECT_FALSE(camera.m_active) << "a file does not switch a camera on";
  EXPECT_THAT(KeysOf(RecordOf(camera)),
              ElementsAre("m_offset", "m_shakemag", "m_xlimit", "m_ylimit"));
}

TEST(Camera, MissingLimitsPrintTheirLinesAndStay) {
  Camera camera(nullptr);
  EXPECT_EQ(OutputOf([&] { ReadRecord(R"({"m_offset": [0, 0, 0], "m_shakemag": 1})", camera); }),
            "Cant find Key: m_xlimit\nCant find Key: m_ylimit\n");
  EXPECT_EQ(camera.m_xlimit, 1);
  EXPECT_EQ(camera.m_ylimit, 1);
}

TEST(Camera, ItTellsItsBeginningAndItsEnd) {
  World world;
  world.LoadObjects(Record("view", {{"Camera", "{}"}}));
  Camera& camera = *world.Find("view")->GetComponent<Camera>();
  EXPECT_EQ(OutputOf([&] { camera.Update(kStep); }), "Camera Init\n");
  EXPECT_EQ(OutputOf([&] { camera.Update(kStep); }), "");
  EXPECT_EQ(OutputOf([&] { camera.Destroy(); }), "Camera Destroy\n");
}

TEST(Camera, RandomNumbersAreSeededFromTheTimeOfDay) {
  Camera camera(nullptr);
  SeedRand(1);
  const auto before = static_cast<std::uint32_t>(std::time(nullptr));
  OutputOf([&] { camera.Init(); });
  const auto after = static_cast<std::uint32_t>(std::time(nullptr));
  const int drawn = Rand();
  bool found = false;
  for (std::uint32_t second = before; second <= after; ++second) {
    SeedRand(second);
    found = found || Rand() == drawn;
  }
  EXPECT_TRUE(found);
}

// Limits

/// A camera in a level of 20 by 11 cells of size 100: half of it is 1000 by 500.
class CameraLimits : public ::testing::Test {
 protected:
  CameraLimits() { level.Controller().m_tile_map.m_tileSize = 100; }

  Camera& View() { return *level.Find("view")->GetComponent<Camera>(); }
  Transform& Place() { return TransformOf(level.Find("view")); }
  /// Where a camera that stands at (x, y) is after its step.
  Vector3D Limited(float x, float y) {
    Place().m_world_pos = Vector3D(x, y, 1);
    View().Update(kStep);
    return Place().m_world_pos;
  }

  TurnWorld level;
};

TEST_F(CameraLimits, WithinThemItStays) {
  EXPECT_EQ(Limited(100, 150), Vector3D(100, 150, 1));
  EXPECT_EQ(Limited(-100, -100), Vector3D(-100, -100, 1));
  EXPECT_THAT(View().m_at_limit, Each(false));
}

TEST_F(CameraLimits, TheMapsEdgeIsComparedAndTheLimitItselfIsSet) {
  EXPECT_EQ(Limited(101, 0), Vector3D(1100, 0, 1));
  EXPECT_THAT(View().m_at_limit, ElementsAre(true, false, false, false));
  EXPECT_EQ(Place().m_prev_pos.x, 1100.0f);
  EXPECT_EQ(Limited(-101, 0), Vector3D(-1100, 0, 1));
  EXPECT_THAT(View().m_at_limit, ElementsAre(false, false, true, false));
  EXPECT_EQ(Place().m_prev_pos.x, -1100.0f);
}

TEST_F(CameraLimits, AnOddHeightLeavesHalfATileMoreAbove) {
  EXPECT_EQ(Limited(0, 150), Vector3D(0, 150, 1));
  EXPECT_EQ(Limited(0, 151), Vector3D(0, 650, 1));
  EXPECT_THAT(View().m_at_limit, ElementsAre(false, true, false, false));
  EXPECT_EQ(Place().m_prev_pos.y, 650.0f);
  EXPECT_EQ(Limited(0, -100), Vector3D(0, -100, 1));
  EXPECT_EQ(Limited(0, -101), Vector3D(0, -600, 1));
  EXPECT_THAT(View().m_at_limit, ElementsAre(false, false, false, true));
  EXPECT_EQ(Place().m_prev_pos.y, -600.0f);
}

TEST_F(CameraLimits, TheyGrowWithTheFields) {
  View().m_xlimit = 3;
  View().m_ylimit = 2;
  EXPECT_EQ(Limited(300, 200), Vector3D(300, 200, 1));
  EXPECT_EQ(Limited(301, 251), Vector3D(1300, 750, 1));
  EXPECT_THAT(View().m_at_limit, ElementsAre(true, true, false, false));
}

TEST_F(CameraLimits, WhereTheyCrossLeftAndBottomComeLast) {
  View().m_xlimit = View().m_ylimit = -1;
  EXPECT_EQ(Limited(0, 0), Vector3D(-900, -400, 1));
  EXPECT_THAT(View().m_at_limit, Each(true));
}

TEST_F(CameraLimits, TheClampLastsUntilTheNextDerivation) {
  Place().SetLocalPosition(Vector3D(150, 0, 1));
  EXPECT_EQ(Limited(150, 0).x, 1100.0f);
  EXPECT_EQ(Place().m_local_pos.x, 150.0f);
  Place().DeriveWorld();
  EXPECT_EQ(Place().m_world_pos.x, 150.0f);
}

// Shaking

/// A camera without a level.
class CameraShake : public ::testing::Test {
 protected:
  CameraShake() {
    world.LoadObjects(Record("view", {{"Transform", PlacedAt(9000, 0)}, {"Camera", "{}"}}));
    OutputOf([&] { View().Update(kStep); });
  }

  Camera& View() { return *world.Find("view")->GetComponent<Camera>(); }
  void Start(float magnitude, float duration = 0.5f) {
    View().m_shaking = true;
    View().m_shake_duration = duration;
    View().m_shakemag = magnitude;
    View().m_elapsed = 0.0f;
  }

  World world;
};

TEST_F(CameraShake, WithoutALevelItShakesAndIsNotLimited) {
  Start(3);
  SeedRand(5);
  View().Update(kStep);
  EXPECT_NE(View().m_offset, Vector3D());
  EXPECT_EQ(TransformOf(world.Find("view")).m_world_pos.x, 9000.0f);
}

TEST(Camera, UnderAParentWithoutALevelItShakesAndIsNotLimited) {
  World world;
  OutputOf([&] {
    world.LoadObjects(
        Record("group", {{"Transform", PlacedAt(0, 0)}},
               {Record("view", {{"Transform", PlacedAt(9000, 0)}, {"Camera", "{}"}})}));
  });
  Camera& view = *world.Find("view")->GetComponent<Camera>();
  view.m_shaking = true;
  view.m_shake_duration = 0.5f;
  OutputOf([&] { view.Update(kStep); });
  EXPECT_EQ(view.m_elapsed, kStep);
  EXPECT_EQ(TransformOf(world.Find("view")).m_world_pos.x, 9000.0f);
  EXPECT_THAT(view.m_at_limit, Each(false));
}

TEST(Camera, WithoutAPlaceInALevelItOnlyShakes) {
  World world;
  OutputOf([&] {
    world.LoadObjects(
        Record("level", {{"GameController", "{}"}}, {Record("view", {{"Camera", "{}"}})}));
  });
  Camera& view = *world.Find("view")->GetComponent<Camera>();
  view.m_shaking = true;
  view.m_shake_duration = 0.5f;
  OutputOf([&] { view.Update(kStep); });
  EXPECT_EQ(view.m_elapsed, kStep);
}

TEST_F(CameraShake, EachAxisIsADrawOfItsOwn) {
  for (std::uint32_t seed = 0; seed < 10; ++seed) {
    Start(3);
    SeedRand(seed);
    const auto draw = [] { return static_cast<float>(Rand() % 5) * 3.0f; };
    const float x = draw();
    const float y = draw();
    const float z = draw();
    SeedRand(seed);
    View().Update(kStep);
    EXPECT_EQ(View().m_offset, Vector3D(x, y, z));
  }
}

TEST_F(CameraShake, AtItsEndEverythingIsAsInANewCamera) {
  Start(6);
  for (int i = 0; i < 29; ++i) View().Update(kStep);
  EXPECT_TRUE(View().m_shaking);
  for (int i = 0; i < 3; ++i) View().Update(kStep);
  EXPECT_FALSE(View().m_shaking);
  EXPECT_EQ(View().m_offset, Vector3D());
  EXPECT_EQ(View().m_shake_duration, 0.0f);
  EXPECT_EQ(View().m_elapsed, 0.0f);
  EXPECT_EQ(View().m_shakemag, 1.0f) << "whatever the file said";
}

TEST_F(CameraShake, ADurationThatIsJustReachedStillShakes) {
  Start(1, 0.25f);
  View().Update(0.25f);
  EXPECT_TRUE(View().m_shaking);
  View().Update(0.25f);
  EXPECT_FALSE(View().m_shaking);
}

TEST_F(CameraShake, AnotherShakeBeginsAnew) {
  Start(3);
  for (int i = 0; i < 20; ++i) View().Update(kStep);
  Start(6);
  for (int i = 0; i < 20; ++i) View().Update(kStep);
  EXPECT_TRUE(View().m_shaking);
  EXPECT_EQ(View().m_shakemag, 6.0f);
}

TEST_F(CameraShake, AStillCameraKeepsItsOffset) {
  View().m_offset = Vector3D(7, 8, 9);
  View().Update(kStep);
  EXPECT_EQ(View().m_offset, Vector3D(7, 8, 9));
}

}  // namespace
}  // namespace ZOVEngine
