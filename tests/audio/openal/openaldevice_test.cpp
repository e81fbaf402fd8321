#include "audio/openal/openaldevice.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ZOVEngine {
namespace {

using ::testing::Each;
using ::testing::SizeIs;

/// The steps that a device renders.
class StepLog {
 public:
  SampleListener Listener() {
    return [this](std::span<const float> samples) {
      steps.emplace_back(samples.begin(), samples.end());
    };
  }

  std::vector<std::vector<float>> steps;
};

TEST(OpenALDevice, ASilentOneOpensWithoutHardware) {
  OpenALDevice device;
  EXPECT_FALSE(device.Open(16, true).has_value());
  EXPECT_NE(alcGetCurrentContext(), nullptr);
}

TEST(OpenALDevice, RendersAStepAtATimeAndSilenceWhenNothingPlays) {
  OpenALDevice device;
  ASSERT_FALSE(device.Open(16, true).has_value());
  StepLog log;
  device.Step(log.Listener());
  device.Step(log.Listener());
  ASSERT_THAT(log.steps, SizeIs(2));
  EXPECT_THAT(log.steps[0], SizeIs(2 * kSilentStep));
  EXPECT_THAT(log.steps[0], Each(0.0f));
}

TEST(OpenALDevice, NeedsNoListener) {
  OpenALDevice device;
  ASSERT_FALSE(device.Open(16, true).has_value());
  device.Step(SampleListener());
}

TEST(OpenALDevice, HasAsManySourcesAsItWasAskedFor) {
  OpenALDevice device;
  ASSERT_FALSE(device.Open(300, true).has_value());
  std::vector<ALuint> sources(300);
  alGetError();
  alGenSources(300, sources.data());
  EXPECT_EQ(alGetError(), AL_NO_ERROR);
  alDeleteSources(300, sources.data());
}

TEST(OpenALDevice, AnUnopenedOneRendersNothing) {
  OpenALDevice device;
  StepLog log;
  device.Step(log.Listener());
  EXPECT_THAT(log.steps, SizeIs(0));
}

TEST(OpenALDevice, ItsEndLeavesNoContextAndAnotherMayBeOpened) {
  for (int i = 0; i < 2; ++i) {
    OpenALDevice device;
    ASSERT_FALSE(device.Open(16, true).has_value()) << i;
    EXPECT_NE(alcGetCurrentContext(), nullptr) << i;
  }
  EXPECT_EQ(alcGetCurrentContext(), nullptr);
}

}  // namespace
}  // namespace ZOVEngine
