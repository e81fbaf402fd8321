#include "audio/silentmixer.h"

#include <gtest/gtest.h>

namespace ZOVEngine {
namespace {

TEST(SilentMixer, AStreamPlaysUntilItIsStoppedWhateverItsFile) {
  SilentMixer mixer;
  mixer.Start({});
  EXPECT_FALSE(mixer.FinishStart().has_value());
  const StreamHandle first = mixer.Play({.path = "missing.ogg"});
  const StreamHandle second = mixer.Play({.path = "missing.ogg"});
  EXPECT_NE(first, kNoStream);
  EXPECT_NE(first, second);
  for (int step = 0; step < 100; ++step) mixer.Update();
  mixer.Stop(first);
  EXPECT_FALSE(mixer.IsPlaying(first));
  EXPECT_TRUE(mixer.IsPlaying(second));
}

TEST(SilentMixer, NoStreamNeverPlays) {
  SilentMixer mixer;
  mixer.Stop(kNoStream);
  EXPECT_FALSE(mixer.IsPlaying(kNoStream));
}

}  // namespace
}  // namespace ZOVEngine
