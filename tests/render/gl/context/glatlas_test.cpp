#include "render/gl/glatlas.h"

#include <gtest/gtest.h>

#include "render/gl/context/glscene.h"

namespace carapace_test {

namespace {

using ZOVEngine::GlyphAtlas;
using ZOVEngine::GlyphRectangle;

/// The texel of a glyph's page, counted from the glyph's own corner; may lie on its border.
int TexelAt(const GlyphRectangle& rectangle, int x, int y) {
  glBindTexture(GL_TEXTURE_2D, rectangle.page);
  GLint side = 0;
  glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &side);
  std::vector<std::uint8_t> page(static_cast<std::size_t>(side * side));
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glGetTexImage(GL_TEXTURE_2D, 0, GL_RED, GL_UNSIGNED_BYTE, page.data());
  const int left = static_cast<int>(rectangle.u_left * static_cast<float>(side) + 0.5f);
  const int top = static_cast<int>(rectangle.v_top * static_cast<float>(side) + 0.5f);
  return page[static_cast<std::size_t>((top + y) * side + left + x)];
}

class GlyphAtlasTest : public testing::Test {
 protected:
  GlyphAtlasTest() : m_context(64, 64) {
    glewExperimental = GL_TRUE;
    glewInit();
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
  }

  GLContext m_context;
  ZOVEngine::GLState m_state;
  GlyphAtlas m_atlas;
};

}  // namespace

TEST_F(GlyphAtlasTest, EdgesAreRepeatedAroundAGlyph) {
  const auto coverage = SceneGlyph(11, 9);
  const GlyphRectangle rectangle = m_atlas.Find(m_atlas.Add(m_state, 11, 9, coverage.data()));
  EXPECT_EQ(TexelAt(rectangle, 4, 4), coverage[4 * 11 + 4]);
  EXPECT_EQ(TexelAt(rectangle, -1, 4), coverage[4 * 11]);
  EXPECT_EQ(TexelAt(rectangle, 11, 4), coverage[4 * 11 + 10]);
  EXPECT_EQ(TexelAt(rectangle, 3, -1), coverage[3]);
  EXPECT_EQ(TexelAt(rectangle, 3, 9), coverage[8 * 11 + 3]);
  EXPECT_EQ(TexelAt(rectangle, -1, -1), coverage[0]);
}

TEST_F(GlyphAtlasTest, GlyphsWithoutTexelsHaveANameAndNoPage) {
  const std::uint32_t name = m_atlas.Add(m_state, 0, 12, nullptr);
  EXPECT_NE(name, 0u);
  EXPECT_EQ(m_atlas.Find(name).page, 0u);
  EXPECT_EQ(m_atlas.Find(0).page, 0u);
  EXPECT_EQ(m_atlas.Find(99).page, 0u);
}

TEST_F(GlyphAtlasTest, AFullPageIsFollowedByAnother) {
  const auto coverage = SceneGlyph(100, 100);
  std::vector<std::uint32_t> names;
  for (int i = 0; i < 40; ++i) {
    names.push_back(m_atlas.Add(m_state, 100, 100, coverage.data()));
  }
  EXPECT_NE(m_atlas.Find(names.front()).page, m_atlas.Find(names.back()).page);
  for (const std::uint32_t name : names) {
    EXPECT_EQ(TexelAt(m_atlas.Find(name), 99, 99), coverage.back());
    EXPECT_EQ(TexelAt(m_atlas.Find(name), 50, 1), coverage[150]);
  }
}

TEST_F(GlyphAtlasTest, AGlyphLargerThanAPageGetsALargerOne) {
  const auto coverage = SceneGlyph(700, 20);
  const GlyphRectangle rectangle = m_atlas.Find(m_atlas.Add(m_state, 700, 20, coverage.data()));
  EXPECT_EQ(TexelAt(rectangle, 699, 19), coverage.back());
  EXPECT_EQ(TexelAt(rectangle, 300, 1), coverage[1000]);
}

}  // namespace carapace_test
