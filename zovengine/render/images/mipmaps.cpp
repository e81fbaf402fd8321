#include "render/images/mipmaps.h"

#include <algorithm>
#include <cstddef>

namespace ZOVEngine {
namespace {

constexpr std::size_t kChannels = 4;
constexpr std::uint32_t kWhole = 256;  ///< the sum of a pair of weights

std::size_t CountBytes(int width, int height) {
  return kChannels * static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
}

int Half(int side) {
  return std::max(side / 2, 1);
}

/// Two neighbours, and the share of the second one.
struct Pair {
  std::size_t first = 0;
  std::size_t second = 0;
  std::uint32_t weight = 0;  ///< of kWhole
};

/// Where the middle of the pixel at `position` of `half` lies among the pixels of `whole`.
Pair FindPair(int position, int half, int whole) {
  if (whole == 1) return {};
  // (position + 1/2) whole / half - 1/2, in parts of 2 half
  const int place = (2 * position + 1) * whole - half;
  const int first = place / (2 * half);
  const int rest = place % (2 * half);
  const auto at = static_cast<std::size_t>(first);
  return {at, at + 1,
          (static_cast<std::uint32_t>(rest) * kWhole) / (2u * static_cast<std::uint32_t>(half))};
}

std::vector<Pair> FindPairs(int half, int whole) {
  std::vector<Pair> pairs;
  pairs.reserve(static_cast<std::size_t>(half));
  for (int position = 0; position < half; ++position) {
    pairs.push_back(FindPair(position, half, whole));
  }
  return pairs;
}

/// Halves one level after another; keeps its memory.
class Halver {
 public:
  void Halve(const MipmapLevel& from, int width, int height, std::uint8_t* to) {
    const std::vector<Pair> columns = FindPairs(width, from.width);
    const std::size_t stride = CountBytes(from.width, 1);
    m_row.resize(stride);
    for (const Pair& rows : FindPairs(height, from.height)) {
      BlendRows(from.pixels + rows.first * stride, from.pixels + rows.second * stride, rows.weight);
      BlendColumns(columns, to);
      to += CountBytes(width, 1);
    }
  }

 private:
  void BlendRows(const std::uint8_t* first, const std::uint8_t* second, std::uint32_t weight) {
    const auto share = static_cast<std::uint16_t>(weight);
    const auto rest = static_cast<std::uint16_t>(kWhole - weight);
    for (std::size_t i = 0; i < m_row.size(); ++i) {
      m_row[i] = static_cast<std::uint16_t>(first[i] * rest + second[i] * share);
    }
  }

  void BlendColumns(const std::vector<Pair>& columns, std::uint8_t* to) const {
    constexpr std::uint32_t kRounding = kWhole * kWhole / 2;
    for (const Pair& pair : columns) {
      const std::uint16_t* first = m_row.data() + kChannels * pair.first;
      const std::uint16_t* second = m_row.data() + kChannels * pair.second;
      for (std::size_t channel = 0; channel < kChannels; ++channel) {
        const std::uint32_t sum =
            first[channel] * (kWhole - pair.weight) + second[channel] * pair.weight;
        *to++ = static_cast<std::uint8_t>((sum + kRounding) / (kWhole * kWhole));
      }
    }
  }

  std::vector<std::uint16_t> m_row;  ///< a row between two of the level, times kWhole
};

}  // namespace

void MakeMipmaps(Image* image) {
  image->mipmaps.clear();
  if (image->width < 1 || image->height < 1) return;
  std::size_t bytes = 0;
  for (int width = image->width, height = image->height; width > 1 || height > 1;) {
    width = Half(width);
    height = Half(height);
    bytes += CountBytes(width, height);
  }
  image->mipmaps.resize(bytes);
  Halver halver;
  MipmapLevel from{image->width, image->height, image->pixels.data()};
  std::uint8_t* to = image->mipmaps.data();
  while (from.width > 1 || from.height > 1) {
    const MipmapLevel half{Half(from.width), Half(from.height), to};
    halver.Halve(from, half.width, half.height, to);
    to += CountBytes(half.width, half.height);
    from = half;
  }
}

std::vector<MipmapLevel> ListMipmaps(const Image& image) {
  std::vector<MipmapLevel> levels;
  int width = image.width;
  int height = image.height;
  for (std::size_t at = 0; at < image.mipmaps.size(); at += CountBytes(width, height)) {
    width = Half(width);
    height = Half(height);
    levels.push_back({width, height, image.mipmaps.data() + at});
  }
  return levels;
}

}  // namespace ZOVEngine
