#include "render/gl/gltextures.h"

#include <bit>

namespace ZOVEngine {

namespace {

constexpr GLuint kMostNoted = 1u << 16;
/// The shape class of a texture of which no side is a power of two.
constexpr std::uint8_t kOddSides = 0;

bool IsPowerOfTwo(int side) {
  return std::has_single_bit(static_cast<unsigned>(side));
}

std::size_t At(int unit) {
  return static_cast<std::size_t>(unit);
}

}  // namespace

int TextureUnits::Take(GLuint texture) {
  int unit = FindUnit(texture);
  if (unit < 0) {
    unit = ChooseFreeUnit(texture);
    if (unit < 0) return -1;
  }
  TakeUnit(unit, texture);
  return unit;
}

void TextureUnits::TakeUnit(int unit, GLuint texture) {
  if (m_textures[At(unit)] != texture) {
    m_textures[At(unit)] = texture;
    m_binds.push_back({unit, texture});
  }
  m_used |= 1u << unit;
  m_last_use[At(unit)] = ++m_clock;
}

void TextureUnits::NoteSize(GLuint texture, int width, int height) {
  if (texture >= kMostNoted) return;
  if (m_shapes.size() <= texture) m_shapes.resize(texture + 1);
  const int shape = (IsPowerOfTwo(width) ? 1 : 0) + (IsPowerOfTwo(height) ? 2 : 0);
  m_shapes[texture] = static_cast<std::uint8_t>(shape);
}

void TextureUnits::NoteOpaque(GLuint texture, bool opaque) {
  if (texture >= kMostNoted) return;
  if (m_opaque.size() <= texture) m_opaque.resize(texture + 1);
  m_opaque[texture] = opaque;
}

int TextureUnits::UsedCount() const {
  return std::popcount(m_used);
}

int TextureUnits::FindUnit(GLuint texture) const {
  for (int unit = 0; unit < kSpriteUnits; ++unit) {
    if (m_textures[At(unit)] == texture) return unit;
  }
  return -1;
}

int TextureUnits::ChooseFreeUnit(GLuint texture) const {
  const std::uint8_t shape = Shape(texture);
  int best = -1;
  bool best_fits = false;
  for (int i = 0; i < kSpriteUnits; ++i) {
    const int unit = shape == kOddSides ? i : kSpriteUnits - 1 - i;
    if (m_used >> unit & 1u) continue;
    const bool fits = Shape(m_textures[At(unit)]) == shape;
    const bool older = best >= 0 && m_last_use[At(unit)] < m_last_use[At(best)];
    if (best < 0 || fits > best_fits || (fits && older)) {
      best = unit;
      best_fits = fits;
    }
  }
  return best;
}

std::uint8_t TextureUnits::Shape(GLuint texture) const {
  return texture < m_shapes.size() ? m_shapes[texture] : std::uint8_t{0};
}

}  // namespace ZOVEngine
