#include "render/gl/glkept.h"

#include <GL/glew.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "support/glcontext.h"

namespace carapace_test {
namespace {

using ZOVEngine::CurrentViewport;
using ZOVEngine::KeptPicture;
using Colour = std::array<std::uint8_t, 3>;

constexpr Colour kRed{255, 0, 0}, kGreen{0, 255, 0}, kBlue{0, 0, 255}, kAround{51, 102, 153};

/// A window of 60 by 40 pixels.
class KeptPictureTest : public testing::Test {
 protected:
  KeptPictureTest() : m_context(60, 40) {
    glewExperimental = GL_TRUE;
    glewInit();
    glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
  }

  /// Fills a rectangle; `bottom` counts from the window's lower edge.
  void Fill(int left, int bottom, int width, int height, const Colour& colour) {
    glEnable(GL_SCISSOR_TEST);
    glScissor(left, bottom, width, height);
    glClearColor(colour[0] / 255.0f, colour[1] / 255.0f, colour[2] / 255.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    glDisable(GL_SCISSOR_TEST);
  }
  /// The viewport (10, 5, 20, 16): red below, green above, with a blue corner at the lower left.
  void DrawImage() {
    glViewport(10, 5, 20, 16);
    Fill(10, 5, 20, 8, kRed);
    Fill(10, 13, 20, 8, kGreen);
    Fill(10, 5, 3, 2, kBlue);
  }
  /// `bottom` counts from the window's lower edge.
  Colour PixelAt(int x, int bottom) const {
    const Picture picture = m_context.ReadBack();
    const std::uint8_t* pixel = picture.At(x, picture.height - 1 - bottom);
    return {pixel[0], pixel[1], pixel[2]};
  }
  void Show() { m_kept.ShowAmid({0.2f, 0.4f, 0.6f}, CurrentViewport()); }

  GLContext m_context;
  KeptPicture m_kept;
};

TEST_F(KeptPictureTest, IsShownPixelByPixelAmidTheColour) {
  DrawImage();
  m_kept.Keep(CurrentViewport());
  Fill(0, 0, 60, 40, kBlue);
  Show();
  EXPECT_EQ(PixelAt(10, 5), kBlue);
  EXPECT_EQ(PixelAt(12, 6), kBlue);
  EXPECT_EQ(PixelAt(13, 6), kRed);
  EXPECT_EQ(PixelAt(12, 7), kRed);
  EXPECT_EQ(PixelAt(29, 12), kRed);
  EXPECT_EQ(PixelAt(29, 13), kGreen);
  EXPECT_EQ(PixelAt(29, 20), kGreen);
  EXPECT_EQ(PixelAt(9, 5), kAround);
  EXPECT_EQ(PixelAt(30, 13), kAround);
  EXPECT_EQ(PixelAt(20, 4), kAround);
  EXPECT_EQ(PixelAt(20, 21), kAround);
}

TEST_F(KeptPictureTest, IsShownWhereTheViewportIsNow) {
  DrawImage();
  m_kept.Keep(CurrentViewport());
  glViewport(31, 20, 20, 16);
  Show();
  EXPECT_EQ(PixelAt(31, 20), kBlue);
  EXPECT_EQ(PixelAt(50, 35), kGreen);
  EXPECT_EQ(PixelAt(20, 10), kAround) << "where it was kept";
}

TEST_F(KeptPictureTest, IsKeptAgainInAnotherSize) {
  DrawImage();
  m_kept.Keep(CurrentViewport());
  glViewport(0, 0, 60, 40);
  Fill(0, 0, 60, 40, kGreen);
  m_kept.Keep(CurrentViewport());
  Fill(0, 0, 60, 40, kRed);
  Show();
  EXPECT_EQ(PixelAt(0, 0), kGreen);
  EXPECT_EQ(PixelAt(59, 39), kGreen);
}

TEST_F(KeptPictureTest, LeavesTheWindowAsTheTargetAndBlackAsTheColourOfClearing) {
  DrawImage();
  m_kept.Keep(CurrentViewport());
  Show();
  GLint draw = -1, read = -1;
  glGetIntegerv(GL_DRAW_FRAMEBUFFER_BINDING, &draw);
  glGetIntegerv(GL_READ_FRAMEBUFFER_BINDING, &read);
  EXPECT_EQ(draw, 0);
  EXPECT_EQ(read, 0);
  glClear(GL_COLOR_BUFFER_BIT);
  EXPECT_EQ(PixelAt(20, 10), (Colour{0, 0, 0}));
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

}  // namespace
}  // namespace carapace_test
