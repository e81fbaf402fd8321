#include "audio/openal/openaldevice.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>

namespace ZOVEngine {
namespace {

using ::testing::Each;
using ::testing::SizeIs;

/// What was wrong with the opening of a device without hardware; nothing when all is well.
std::optional<MixerFailure> OpenSilently(OpenALDevice& device, int max_sources = 16) {
  device.BeginOpen(max_sources, true);
  return device.FinishOpen();
}

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
  EXPECT_FALSE(OpenSilently(device).has_value());
  EXPECT_NE(alcGetCurrentContext(), nullptr);
}

TEST(OpenALDevice, RendersAStepAtATimeAndSilenceWhenNothingPlays) {
  OpenALDevice device;
  ASSERT_FALSE(OpenSilently(device).has_value());
  StepLog log;
  device.Step(log.Listener());
  device.Step(log.Listener());
  ASSERT_THAT(log.steps, SizeIs(2));
  EXPECT_THAT(log.steps[0], SizeIs(2 * kSilentStep));
  EXPECT_THAT(log.steps[0], Each(0.0f));
}

TEST(OpenALDevice, NeedsNoListener) {
  OpenALDevice device;
  ASSERT_FALSE(OpenSilently(device).has_value());
  device.Step(SampleListener());
}

TEST(OpenALDevice, HasAsManySourcesAsItWasAskedFor) {
  OpenALDevice device;
  ASSERT_FALSE(OpenSilently(device, 300).has_value());
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
    ASSERT_FALSE(OpenSilently(device).has_value()) << i;
    EXPECT_NE(alcGetCurrentContext(), nullptr) << i;
  }
  EXPECT_EQ(alcGetCurrentContext(), nullptr);
}

TEST(OpenALDevice, ItsEndWaitsForTheOpening) {
  for (const bool silent : {true, false}) {
    {
      OpenALDevice device;
      device.BeginOpen(16, silent);
    }
    // An opening that still went on would be over by then.
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    EXPECT_EQ(alcGetCurrentContext(), nullptr);
  }
}

TEST(OpenALDevice, WithoutABeginningThereIsNothingToWaitFor) {
  OpenALDevice device;
  EXPECT_FALSE(device.FinishOpen().has_value());
  EXPECT_EQ(alcGetCurrentContext(), nullptr);
}

TEST(OpenALDevice, TheCallerGoesOnWhileItIsBeingOpened) {
  // Once in so many tries the caller is not held up for as long as the opening takes.
  bool went_on = false;
  for (int i = 0; i < 20 && !went_on; ++i) {
    OpenALDevice device;
    device.BeginOpen(16, true);
    went_on = alcGetCurrentContext() == nullptr;
    ASSERT_FALSE(device.FinishOpen().has_value());
    EXPECT_NE(alcGetCurrentContext(), nullptr) << "and it is current here";
  }
  EXPECT_TRUE(went_on);
}

TEST(OpenALDevice, OpeningWritesNothingAndLeavesStandardErrorToOthers) {
  std::string wanted;
  ::testing::internal::CaptureStderr();
  OpenALDevice device;
  device.BeginOpen(16, false);
  for (int line = 0; line < 1000; ++line) {
    std::fputs("another thread's line\n", stderr);
    wanted += "another thread's line\n";
    std::this_thread::sleep_for(std::chrono::microseconds(20));
  }
  EXPECT_FALSE(device.FinishOpen().has_value());
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), wanted);
}

TEST(OpenALDevice, AProcessMayEndWhileItIsBeingOpened) {
  EXPECT_EXIT(
      {
        auto* device = new OpenALDevice;  // as in a program that calls exit
        device->BeginOpen(16, false);
        std::exit(3);
      },
      ::testing::ExitedWithCode(3), "");
}

}  // namespace
}  // namespace ZOVEngine
