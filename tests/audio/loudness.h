#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <numeric>
#include <vector>

namespace carapace_test {

/// A digital filter of second order, by the coefficients of its input and of its own output.
///
/// Takes one sample after another and returns what comes out. It begins at rest, and keeps two
/// numbers of what it has heard. Coefficients of a filter that is not stable are not checked.
class Biquad {
 public:
  Biquad(std::array<double, 3> forward, std::array<double, 2> back)
      : m_forward(forward), m_back(back) {}

  double operator()(double sample) {
    // Numbers that die away in silence become too small to be computed fast.
    const double input = sample + 1e-25;
    const double output = m_forward[0] * input + m_first;
    m_first = m_forward[1] * input - m_back[0] * output + m_second;
    m_second = m_forward[2] * input - m_back[1] * output;
    return output;
  }

 private:
  std::array<double, 3> m_forward;
  std::array<double, 2> m_back;
  double m_first = 0.0;
  double m_second = 0.0;
};

/// The shelf of 4 dB above 1.7 kHz by which ITU-R BS.1770 stands for a head. (unit of the rate:
/// frames a second)
inline Biquad HeadFilter(double rate) {
  const double k = std::tan(std::numbers::pi * 1681.974450955533 / rate);
  const double part = k / 0.7071752369554196;
  const double high = std::pow(10.0, 3.999843853973347 / 20.0);
  const double band = std::pow(high, 0.4996667741545416);
  const double norm = 1.0 + part + k * k;
  return Biquad({(high + band * part + k * k) / norm, 2.0 * (k * k - high) / norm,
                 (high - band * part + k * k) / norm},
                {2.0 * (k * k - 1.0) / norm, (1.0 - part + k * k) / norm});
}

/// The cut below 38 Hz of the same recommendation.
inline Biquad LowCut(double rate) {
  const double k = std::tan(std::numbers::pi * 38.13547087602444 / rate);
  const double part = k / 0.5003270373238773;
  const double norm = 1.0 + part + k * k;
  return Biquad({1.0, -2.0, 1.0}, {2.0 * (k * k - 1.0) / norm, (1.0 - part + k * k) / norm});
}

/// The power of each tenth of a second as the ear weighs it, all channels together. A rest at the
/// end counts as a tenth.
inline std::vector<double> WeightedPowers(const std::vector<float>& samples, std::size_t channels,
                                          int rate) {
  const std::size_t hop = static_cast<std::size_t>(rate) / 10 * channels;
  std::vector<double> powers((samples.size() + hop - 1) / hop);
  for (std::size_t channel = 0; channel < channels; ++channel) {
    Biquad head = HeadFilter(rate);
    Biquad cut = LowCut(rate);
    for (std::size_t i = channel; i < samples.size(); i += channels) {
      const double value = cut(head(double{samples[i]}));
      powers[i / hop] += value * value * static_cast<double>(channels) / static_cast<double>(hop);
    }
  }
  return powers;
}

inline double ToLufs(double power) {
  return -0.691 + 10.0 * std::log10(std::max(power, 1e-12));
}

/// The mean of the powers that are louder than a gate (unit: LUFS), 0 if none is.
inline double GatedMean(const std::vector<double>& powers, double gate) {
  double sum = 0.0;
  double count = 0.0;
  for (const double power : powers) {
    if (ToLufs(power) <= gate) continue;
    sum += power;
    count += 1.0;
  }
  return count == 0.0 ? 0.0 : sum / count;
}

/// The integrated loudness of ITU-R BS.1770-4 (unit: LUFS): the mean of all blocks of 0.4 s, a new
/// one every 0.1 s, without silences and without what is 10 LU below the rest. Samples have their
/// channels side by side, 1 at full scale. What is shorter than a block counts as one.
inline double IntegratedLoudness(const std::vector<float>& samples, std::size_t channels,
                                 int rate) {
  const std::vector<double> tenths = WeightedPowers(samples, channels, rate);
  std::vector<double> blocks;
  for (std::size_t i = 0; i == 0 || i + 4 <= tenths.size(); ++i) {
    const auto first = tenths.begin() + static_cast<std::ptrdiff_t>(i);
    const auto last = first + static_cast<std::ptrdiff_t>(std::min<std::size_t>(4, tenths.size()));
    blocks.push_back(std::accumulate(first, last, 0.0) / 4.0);
  }
  const double ungated = GatedMean(blocks, -70.0);
  return ToLufs(GatedMean(blocks, std::max(-70.0, ToLufs(ungated) - 10.0)));
}

}  // namespace carapace_test
