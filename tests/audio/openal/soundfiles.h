#pragma once

#include <sndfile.h>

#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

namespace carapace_test {

/// Frames a second of the test sounds, unless a test says otherwise: that of the silent device.
inline constexpr int kTestRate = 44100;

/// Writes a sound file with libsndfile; `samples` has the channels side by side, 1 at full scale.
/// Returns false when that failed.
inline bool WriteSound(const std::string& path, const std::vector<float>& samples, int channels,
                       int format = SF_FORMAT_WAV | SF_FORMAT_PCM_16, int rate = kTestRate) {
  SF_INFO info{};
  info.samplerate = rate;
  info.channels = channels;
  info.format = format;
  SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
  if (file == nullptr) return false;
  const auto count = static_cast<sf_count_t>(samples.size());
  const bool whole = sf_write_float(file, samples.data(), count) == count;
  return sf_close(file) == 0 && whole;
}

inline constexpr int kOgg = SF_FORMAT_OGG | SF_FORMAT_VORBIS;

/// A tone of `frames` frames: each channel a sine of its own pitch, at half of full scale.
inline std::vector<float> Tone(std::size_t frames, int channels, float hertz = 440.0f) {
  std::vector<float> samples;
  samples.reserve(frames * static_cast<std::size_t>(channels));
  for (std::size_t i = 0; i < frames; ++i) {
    for (int channel = 0; channel < channels; ++channel) {
      const float turns =
          static_cast<float>(i) * hertz * static_cast<float>(channel + 1) / kTestRate;
      samples.push_back(0.5f * std::sin(6.2831853f * (turns - std::floor(turns))));
    }
  }
  return samples;
}

/// The whole of a sound file as libsndfile decodes it, channels side by side; empty if it cannot.
inline std::vector<float> ReadSound(const std::string& path) {
  SF_INFO info{};
  SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
  if (file == nullptr) return {};
  std::vector<float> samples(static_cast<std::size_t>(info.frames * info.channels));
  samples.resize(static_cast<std::size_t>(
      sf_read_float(file, samples.data(), static_cast<sf_count_t>(samples.size()))));
  sf_close(file);
  return samples;
}

}  // namespace carapace_test
