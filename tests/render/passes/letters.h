#pragma once

#include "render/images/glyphs.h"

namespace carapace_test {

/// Two letters and a space.
inline ZOVEngine::GlyphMap Letters() {
  ZOVEngine::GlyphMap glyphs;
  glyphs['a'] = {71, 10, 20, 2, 15, 12 * 64};
  glyphs['b'] = {72, 8, 8, 0, 8, 9 * 64 + 63};
  glyphs[' '] = {73, 0, 0, 0, 0, 5 * 64};
  return glyphs;
}

}  // namespace carapace_test
