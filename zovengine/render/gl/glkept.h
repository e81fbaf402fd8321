#pragma once

namespace ZOVEngine {

/// A copy of the viewport's part of the back buffer, for windows in which the picture of the level
/// changes seldom and what lies over it often.
///
/// Needs the window's context at each call, and its memory goes with the context. Names of OpenGL
/// are unsigned numbers.
class KeptPicture {
 public:
  struct Colour {
    float red = 0.0f, green = 0.0f, blue = 0.0f;  ///< 0 to 1
  };

  /// Takes the copy. The viewport should lie within the window; what is outside is undefined.
  void Keep();
  /// Clears the window to a colour and puts the copy into the viewport, pixel by pixel. The
  /// viewport must have the size of Keep's.
  void Show(const Colour& around) const;

 private:
  void Resize(int width, int height);

  unsigned m_framebuffer = 0, m_pixels = 0;
  int m_width = 0, m_height = 0;
};

}  // namespace ZOVEngine
