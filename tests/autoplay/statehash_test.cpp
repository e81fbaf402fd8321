#include "autoplay/statehash.h"

#include <gtest/gtest.h>

#include "audio/audiosource.h"
#include "physics/components/transform.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::Record;
using carapace_test::TransformAt;
using carapace_test::World;

/// A body and a plain object with a sound.
class StateHash : public ::testing::Test {
 protected:
  StateHash() {
    m_world.LoadObjects(Record("body", {{"Transform", TransformAt(1, 2)}, {"RigidBody", "{}"}}) +
                        ", " +
                        Record("thing", {{"Transform", TransformAt(3, 4)},
                                         {"AudioSource", R"({"sounds": [], "loop": [], "is_3D": [],
                                             "start_play": [], "volume": [], "sound_type": []})"}}));
    m_state = HashState();
    m_places = HashPlaces();
  }

  Transform& Of(const char* name) { return *m_world.Find(name)->GetComponent<Transform>(); }

  World m_world;
  std::uint64_t m_state = 0;
  std::uint64_t m_places = 0;
};

TEST_F(StateHash, WithoutAChangeBothAreTheSame) {
  EXPECT_EQ(HashState(), m_state);
  EXPECT_EQ(HashPlaces(), m_places);
}

TEST_F(StateHash, APlaceOrAnAngleOfABodyChangesBoth) {
  for (float* value :
       {&Of("body").m_world_pos.x, &Of("body").m_world_pos.y, &Of("body").m_world_rotate}) {
    const float before = *value;
    *value += 0.001f;
    EXPECT_NE(HashState(), m_state);
    EXPECT_NE(HashPlaces(), m_places);
    *value = before;
  }
}

TEST_F(StateHash, APlaceOfAnotherObjectChangesTheStateAlone) {
  Of("thing").m_world_pos.x += 0.001f;
  EXPECT_NE(HashState(), m_state);
  EXPECT_EQ(HashPlaces(), m_places);
}

TEST_F(StateHash, ASoundThatIsRequestedChangesTheStateAlone) {
  m_world.Find("thing")->GetComponent<AudioSource>()->PlaySound("hit.ogg");
  EXPECT_NE(HashState(), m_state);
  EXPECT_EQ(HashPlaces(), m_places);
}

}  // namespace
}  // namespace ZOVEngine
