#include "support/glcontext.h"

#include <GL/glew.h>
#include <SDL2/SDL.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "platform/gldriver.h"
#include "support/tempdirectory.h"

namespace carapace_test {

namespace {

[[noreturn]] void Die(const char* what) {
  std::fprintf(stderr, "GL tests cannot run: %s: %s\n", what, SDL_GetError());
  std::abort();
}

}  // namespace

GLContext::GLContext(int width, int height) : m_width(width), m_height(height) {
  ZOVEngine::PrepareGLDriver();
  if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) Die("no video");
  m_window =
      SDL_CreateWindow("gl test", 0, 0, width, height, SDL_WINDOW_OPENGL | SDL_WINDOW_HIDDEN);
  if (!m_window) Die("no window");
  m_context = SDL_GL_CreateContext(m_window);
  if (!m_context) Die("no context");
}

GLContext::~GLContext() {
  SDL_GL_DeleteContext(m_context);
  SDL_DestroyWindow(m_window);
  SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

void GLContext::MakeCurrent() const {
  SDL_GL_MakeCurrent(m_window, m_context);
}

Picture GLContext::ReadBack() const {
  Picture picture(m_width, m_height);
  glReadBuffer(GL_BACK);
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(0, 0, m_width, m_height, GL_RGB, GL_UNSIGNED_BYTE, picture.bytes.data());
  const std::ptrdiff_t row = 3 * m_width;
  for (int y = 0; y < m_height / 2; ++y) {
    std::uint8_t* upper = picture.bytes.data() + y * row;
    std::swap_ranges(upper, upper + row, picture.bytes.data() + (m_height - 1 - y) * row);
  }
  return picture;
}

void KeepBackBuffer() {}

void KeepInterval(int) {}

std::string ShaderSource(const std::string& name) {
  return ShippedFile("Resources/Shaders/" + name);
}

}  // namespace carapace_test
