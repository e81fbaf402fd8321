#include "audio/mixer.h"

#include <gtest/gtest.h>

#include "support/fakemixer.h"

namespace ZOVEngine {
namespace {

TEST(Mixer, AProgramBeginsWithoutOne) {
  EXPECT_EQ(g_mixer, nullptr);
  {
    const carapace_test::FakeMixer mixer;
    EXPECT_EQ(g_mixer, &mixer);
  }
  EXPECT_EQ(g_mixer, nullptr);
}

TEST(Mixer, APlainRequestIsAnEffectThatEndsAndHasNoPlace) {
  const StreamRequest request{.path = "hit.ogg"};
  EXPECT_EQ(request.group, SoundGroup::kEffects);
  EXPECT_FALSE(request.loop);
  EXPECT_FALSE(request.positioned);
}

TEST(Mixer, TheRealOneIsMadeBeforeAnyDeviceIsOpened) {
  const std::unique_ptr<Mixer> mixer = MakeOpenALMixer();
  ASSERT_NE(mixer, nullptr);
  EXPECT_FALSE(mixer->IsPlaying(kNoStream));
  EXPECT_EQ(g_mixer, nullptr) << "the program sets it";
}

}  // namespace
}  // namespace ZOVEngine
