#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

#include "audio/openal/openalmixer.h"
#include "audio/openal/soundfiles.h"

namespace carapace_test {

/// The settings of the game.
inline constexpr ZOVEngine::MixerSettings kGame = {
    .max_streams = 512, .doppler = 1.0f, .units_per_metre = 200.0f, .rolloff = 0.1f};

/// A mixer without a device, and all that was heard of it: left and right in turn.
class Ears {
 public:
  explicit Ears(const ZOVEngine::MixerSettings& settings = kGame) : Ears(NotStarted()) {
    mixer.Start(settings);
    EXPECT_FALSE(mixer.FinishStart().has_value());
    mixer.SetListener(ZOVEngine::Vector3D());
  }
  /// For an AudioSystem, which starts its mixer.
  struct NotStarted {};
  explicit Ears(NotStarted)
      : mixer(true, [this](std::span<const float> samples) {
          heard.insert(heard.end(), samples.begin(), samples.end());
        }) {}

  /// Lets steps pass and returns what was heard in them.
  std::vector<float> Listen(int steps) {
    heard.clear();
    for (int i = 0; i < steps; ++i) mixer.Update();
    return heard;
  }

  /// The steps until the stream is over, at most `most`.
  int StepsUntilTheEnd(ZOVEngine::StreamHandle stream, int most) {
    int steps = 0;
    while (mixer.IsPlaying(stream) && steps < most) {
      mixer.Update();
      ++steps;
    }
    return steps;
  }

  std::vector<float> heard;
  ZOVEngine::OpenALMixer mixer;
};

/// The mean square of the left (0) or the right (1) side, as an amplitude: 0.35 for the test tone.
inline float Loudness(const std::vector<float>& samples, std::size_t side) {
  double sum = 0.0;
  for (std::size_t i = side; i < samples.size(); i += 2) sum += double{samples[i]} * samples[i];
  return static_cast<float>(std::sqrt(sum / (static_cast<double>(samples.size()) / 2.0)));
}
inline float Loudness(const std::vector<float>& samples) {
  return std::max(Loudness(samples, 0), Loudness(samples, 1));
}

/// Expects that `heard` is `sound`, of `channels` channels, from frame `from` on, times `gain`;
/// after its end, the sound comes again.
inline void ExpectHeard(const std::vector<float>& heard, const std::vector<float>& sound,
                        std::size_t channels, std::size_t from, float gain, float tolerance) {
  float worst = 0.0f;
  for (std::size_t i = 0; i < heard.size(); ++i) {
    const std::size_t frame = (from + i / 2) % (sound.size() / channels);
    const float wanted = sound[frame * channels + (channels == 2 ? i % 2 : 0)] * gain;
    worst = std::max(worst, std::abs(heard[i] - wanted));
  }
  EXPECT_LE(worst, tolerance);
}

/// Half a unit of 16 bits, and room for the arithmetic of floats.
inline constexpr float kRounding = 0.6f / 32768.0f;

}  // namespace carapace_test
