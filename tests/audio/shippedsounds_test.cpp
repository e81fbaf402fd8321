// The sounds that the game ships: they end in silence or go round, none is cut off, and music is as
// loud as it should be. That each is there and used is checked in tests/tools/sounds_test.py.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "audio/loudness.h"
#include "audio/openal/soundfiles.h"

namespace carapace_test {
namespace {

namespace fs = std::filesystem;

constexpr double kMusicLoudness = -16.0;   ///< (unit: LUFS)
constexpr double kEndingLoudness = -18.0;  ///< (unit: LUFS)
constexpr double kTolerance = 1.0;         ///< (unit: LU)
constexpr double kHighestPeak = -1.0;      ///< (unit: dB of full scale)
constexpr double kShortestTrack = 120.0;   ///< (unit: seconds)
constexpr std::uintmax_t kMostBytes = 8'000'000;
constexpr std::size_t kFramesOfAStep = 735;

struct Sound {
  std::vector<float> samples;
  std::size_t channels = 0;
  int rate = 0;

  std::size_t Frames() const { return samples.size() / channels; }
  double Seconds() const { return static_cast<double>(Frames()) / rate; }
  double Loudness() const { return IntegratedLoudness(samples, channels, rate); }
};

Sound Read(const fs::path& path) {
  SF_INFO info{};
  SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
  if (file == nullptr) return {};
  sf_close(file);
  return {ReadSound(path), static_cast<std::size_t>(info.channels), info.samplerate};
}

fs::path Folder() {
  return fs::path(CARAPACE_SOURCE_DIR) / "Resources/Sound";
}
Sound Track(const char* name) {
  return Read(Folder() / "BGM" / name);
}

std::vector<fs::path> AllSounds() {
  std::vector<fs::path> paths;
  for (const auto& entry : fs::recursive_directory_iterator(Folder())) {
    if (entry.is_regular_file()) paths.push_back(entry.path());
  }
  return paths;
}

double Decibels(double amplitude) {
  return 20.0 * std::log10(std::max(amplitude, 1e-9));
}

double Peak(const Sound& sound) {
  float peak = 0.0f;
  for (const float sample : sound.samples) peak = std::max(peak, std::abs(sample));
  return double{peak};
}

/// The largest difference of a channel between one frame and another.
float Step(const Sound& sound, std::size_t from, std::size_t to) {
  float step = 0.0f;
  for (std::size_t channel = 0; channel < sound.channels; ++channel) {
    step = std::max(step, std::abs(sound.samples[to * sound.channels + channel] -
                                   sound.samples[from * sound.channels + channel]));
  }
  return step;
}

/// The step that 999 of 1000 frames of the sound do not exceed.
float LargeStep(const Sound& sound) {
  std::vector<float> steps;
  for (std::size_t i = 1; i < sound.Frames(); ++i) steps.push_back(Step(sound, i - 1, i));
  const auto place = steps.begin() + static_cast<std::ptrdiff_t>(steps.size() * 999 / 1000);
  std::nth_element(steps.begin(), place, steps.end());
  return *place;
}

/// Expects that the sound can follow on itself without a click.
void ExpectGoesRound(const Sound& sound) {
  EXPECT_LT(Step(sound, sound.Frames() - 1, 0), LargeStep(sound));
}

double LoudnessOfTheLast(const Sound& sound, double seconds) {
  const auto count = static_cast<std::ptrdiff_t>(seconds * sound.rate) *
                     static_cast<std::ptrdiff_t>(sound.channels);
  return IntegratedLoudness({sound.samples.end() - count, sound.samples.end()}, sound.channels,
                            sound.rate);
}

class ShippedTrack : public ::testing::TestWithParam<const char*> {};

TEST_P(ShippedTrack, IsTwoMinutesOfMusicThatGoRoundAtTheLoudnessOfAll) {
  const Sound track = Track(GetParam());
  ASSERT_EQ(track.channels, 2u);
  EXPECT_GE(track.Seconds(), kShortestTrack);
  EXPECT_NEAR(track.Loudness(), kMusicLoudness, kTolerance);
  ExpectGoesRound(track);
  EXPECT_GT(LoudnessOfTheLast(track, 1.0), kMusicLoudness - 12.0) << "it dies away at its end";
}

INSTANTIATE_TEST_SUITE_P(All, ShippedTrack,
                         ::testing::Values("maintheme01.ogg", "maintheme02.ogg",
                                           "maintheme03.ogg"));

class ShippedEnding : public ::testing::TestWithParam<const char*> {};

TEST_P(ShippedEnding, IsAsLoudAtItsVolumeAsAThemeAndDiesAway) {
  const Sound ending = Track(GetParam());
  ASSERT_EQ(ending.channels, 2u);
  EXPECT_NEAR(ending.Loudness(), kEndingLoudness, kTolerance);
  EXPECT_LT(LoudnessOfTheLast(ending, 0.5), -40.0);
}

INSTANTIATE_TEST_SUITE_P(All, ShippedEnding, ::testing::Values("victory.ogg", "defeat.ogg"));

TEST(ShippedSounds, NoneIsCutOff) {
  for (const fs::path& path : AllSounds()) {
    const Sound sound = Read(path);
    ASSERT_GT(sound.channels, 0u) << path;
    EXPECT_LT(Decibels(Peak(sound)), kHighestPeak) << path;
    EXPECT_GT(Decibels(Peak(sound)), -20.0) << path;
    EXPECT_EQ(sound.rate, kTestRate) << path;
  }
}

TEST(ShippedSounds, EffectsAreShortAndEndInSilence) {
  for (const auto& entry : fs::directory_iterator(Folder() / "SFX")) {
    const Sound sound = Read(entry.path());
    ASSERT_EQ(sound.channels, 1u) << entry.path();
    EXPECT_LT(sound.Seconds(), 1.5) << entry.path();
    EXPECT_LT(std::abs(sound.samples.back()), 0.02f) << entry.path();
  }
}

// It is asked for in every step. A whole number of steps leaves no gap before it starts again.
TEST(ShippedSounds, TheEngineGoesRoundInAWholeNumberOfSteps) {
  const Sound engine = Read(Folder() / "SFX/tank_move.ogg");
  ASSERT_EQ(engine.channels, 1u);
  EXPECT_EQ(engine.Frames() % kFramesOfAStep, 0u);
  ExpectGoesRound(engine);
}

TEST(ShippedSounds, AllTogetherAreSmall) {
  std::uintmax_t bytes = 0;
  for (const fs::path& path : AllSounds()) bytes += fs::file_size(path);
  EXPECT_LT(bytes, kMostBytes);
}

}  // namespace
}  // namespace carapace_test
