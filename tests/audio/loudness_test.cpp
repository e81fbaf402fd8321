#include "audio/loudness.h"

#include <gtest/gtest.h>

namespace carapace_test {
namespace {

constexpr int kRate = 44100;

/// A sine in stereo. (unit of the level: dB of full scale at its peak)
std::vector<float> Sine(double hertz, double level, int seconds) {
  std::vector<float> samples;
  for (int i = 0; i < seconds * kRate; ++i) {
    const double turn = 2.0 * std::numbers::pi * hertz * i / kRate;
    const auto value = static_cast<float>(std::pow(10.0, level / 20.0) * std::sin(turn));
    samples.insert(samples.end(), {value, value});
  }
  return samples;
}

// Two channels of 1 kHz: half the square of the peak each, the filters add 0.69 dB and the formula
// takes as much away.
TEST(Loudness, ASineInBothChannelsIsAsLoudAsItsPeak) {
  EXPECT_NEAR(IntegratedLoudness(Sine(997.0, -20.0, 5), 2, kRate), -20.0, 0.02);
  EXPECT_NEAR(IntegratedLoudness(Sine(997.0, -3.0, 5), 2, kRate), -3.0, 0.02);
}

TEST(Loudness, OneChannelIsHalfOfTwo) {
  std::vector<float> left = Sine(997.0, -20.0, 5);
  for (std::size_t i = 1; i < left.size(); i += 2) left[i] = 0.0f;
  EXPECT_NEAR(IntegratedLoudness(left, 2, kRate), -23.01, 0.02);
}

TEST(Loudness, TheEarHearsTrebleLouderAndTheDeepestBassHardly) {
  EXPECT_NEAR(IntegratedLoudness(Sine(8000.0, -20.0, 5), 2, kRate), -20.0 + 3.31, 0.1);
  EXPECT_LT(IntegratedLoudness(Sine(20.0, -20.0, 5), 2, kRate), -30.0);
}

TEST(Loudness, SilenceBetweenSoundsDoesNotCount) {
  std::vector<float> samples = Sine(997.0, -20.0, 10);
  samples.resize(4 * samples.size());
  EXPECT_NEAR(IntegratedLoudness(samples, 2, kRate), -20.0, 0.1);
}

TEST(Loudness, WhatIsTenUnitsBelowTheRestDoesNotCount) {
  std::vector<float> samples = Sine(997.0, -20.0, 10);
  const std::vector<float> soft = Sine(997.0, -36.0, 10);
  samples.insert(samples.end(), soft.begin(), soft.end());
  EXPECT_NEAR(IntegratedLoudness(samples, 2, kRate), -20.0, 0.1);
}

TEST(Loudness, SilenceIsTheLeastOfAll) {
  EXPECT_LT(IntegratedLoudness(std::vector<float>(std::size_t{2} * kRate), 2, kRate), -70.0);
}

}  // namespace
}  // namespace carapace_test
