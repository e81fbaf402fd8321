#pragma once

#include "render/gl/glbox.h"

namespace ZOVEngine {

/// The viewport that is set in the context.
PixelBox CurrentViewport();

/// A picture of a viewport that outlives the frame, for what changes seldom beneath what changes
/// often.
///
/// It is copied from the window or drawn. Drivers keep windows upside down, and round accordingly;
/// so is this picture, and what is drawn into it must be drawn upside down. Needs the window's
/// context at each call, and its memory goes with the context. Names of OpenGL are unsigned
/// numbers.
class KeptPicture {
 public:
  struct Colour {
    float red = 0.0f, green = 0.0f, blue = 0.0f;  ///< 0 to 1
  };

  /// Copies a viewport of the window. It should lie within the window; what is outside is
  /// undefined.
  void Keep(const PixelBox& viewport);

  bool HasSize(int width, int height) const { return width == m_width && height == m_height; }
  /// Makes the picture `width` by `height` pixels. A size that changes takes the pixels away. False
  /// when the driver does not draw into pictures.
  bool Fit(int width, int height);
  /// Draws go into the picture from now on, which is the viewport then.
  void BeginDrawing();
  /// Clears a part of the upright picture to the clear colour. Draws go into it alone from now on.
  void BeginPart(const PixelBox& part);
  /// Draws go to the window's viewport again.
  void EndDrawing(const PixelBox& viewport);

  /// Puts the picture into a viewport of its size, pixel by pixel.
  void Show(const PixelBox& viewport) const;
  /// As above, after it cleared the window to a colour.
  void ShowAmid(const Colour& around, const PixelBox& viewport) const;

 private:
  void Resize(int width, int height);

  unsigned m_framebuffer = 0, m_pixels = 0;
  int m_width = 0, m_height = 0;
  bool m_is_drawable = false;
};

}  // namespace ZOVEngine
