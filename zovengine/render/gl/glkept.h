#pragma once

namespace ZOVEngine {

/// A copy of the viewport's part of the back buffer, for windows in which the picture of the level
/// changes seldom and what lies over it often.
///
/// Needs the window's context at each call, and its memory goes with the context. Names of OpenGL
/// are unsigned numbers.
class KeptPicture {
 public:
  /// Takes the copy. The viewport should lie within the window; what is outside is undefined.
  void Keep();
  /// Clears the window to black and puts the copy into the viewport, pixel by pixel. The viewport
  /// must have the size of Keep's.
  void Show() const;

 private:
  void Resize(int width, int height);

  unsigned m_framebuffer = 0, m_pixels = 0;
  int m_width = 0, m_height = 0;
};

}  // namespace ZOVEngine
