#include "audio/audiosystem.h"

#include <gtest/gtest.h>

#include "core/engine.h"
#include "core/messages.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::World;

class AudioSystemMessages : public ::testing::Test {
 protected:
  AudioSystemMessages() : audio(dynamic_cast<AudioSystem&>(*g_engine->systems.back())) {}

  World world;
  AudioSystem& audio;
};

TEST_F(AudioSystemMessages, ANewGroupIsHeardAtFullVolume) {
  for (const ChannelGroup& group : audio.m_groups) {
    EXPECT_FALSE(group.mute);
    EXPECT_EQ(group.volume, 1.0f);
  }
}

TEST_F(AudioSystemMessages, MuteSetsItsChannelOnly) {
  world.Send(Mute(true, 2));
  EXPECT_FALSE(audio.m_groups[0].mute);
  EXPECT_FALSE(audio.m_groups[1].mute);
  EXPECT_TRUE(audio.m_groups[2].mute);
  world.Send(Mute(false, 2));
  EXPECT_FALSE(audio.m_groups[2].mute);
}

TEST_F(AudioSystemMessages, VolumeSetsItsChannelOnly) {
  world.Send(Volume(0.25f, 1));
  EXPECT_EQ(audio.m_groups[0].volume, 1.0f);
  EXPECT_EQ(audio.m_groups[1].volume, 0.25f);
  EXPECT_EQ(audio.m_groups[2].volume, 1.0f);
}

TEST_F(AudioSystemMessages, AChannelThatIsNoneIsIgnored) {
  world.Send(Mute(true, 3));
  world.Send(Volume(0.0f, 4'000'000'000u));
  for (const ChannelGroup& group : audio.m_groups) {
    EXPECT_FALSE(group.mute);
    EXPECT_EQ(group.volume, 1.0f);
  }
}

}  // namespace
}  // namespace ZOVEngine
