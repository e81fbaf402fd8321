#pragma once

#include <cstdint>
#include <string>

#include "support/picture.h"

struct SDL_Window;

namespace carapace_test {

/// A hidden window with an OpenGL context of its own, which is current from the start.
///
/// Two of them share nothing, so one can hold the device and another a reference to compare it
/// with. Ends the test program with a message when no context can be made: a GL test without GL
/// proves nothing.
class GLContext {
 public:
  /// Sizes in pixels.
  GLContext(int width, int height);
  ~GLContext();
  GLContext(const GLContext&) = delete;
  GLContext& operator=(const GLContext&) = delete;

  /// Makes it the current one.
  void MakeCurrent() const;
  /// The back buffer, rows from the top.
  Picture ReadBack() const;

  int Width() const { return m_width; }
  int Height() const { return m_height; }

 private:
  int m_width;
  int m_height;
  SDL_Window* m_window;
  void* m_context;
};

/// Presents nothing: a test reads the back buffer.
void KeepBackBuffer();
/// Sets no interval.
void KeepInterval(int interval);

/// The source text of one of the shipped shaders, by file name.
std::string ShaderSource(const std::string& name);

}  // namespace carapace_test
