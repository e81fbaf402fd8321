#include "render/gl/glkept.h"

#include <GL/glew.h>

namespace ZOVEngine {
namespace {

struct Viewport {
  Viewport() { glGetIntegerv(GL_VIEWPORT, &left); }
  GLint left = 0, bottom = 0, width = 0, height = 0;
};

}  // namespace

void KeptPicture::Keep() {
  const Viewport from;
  if (from.width != m_width || from.height != m_height) Resize(from.width, from.height);
  glBindFramebuffer(GL_DRAW_FRAMEBUFFER, m_framebuffer);
  glBlitFramebuffer(from.left, from.bottom, from.left + from.width, from.bottom + from.height, 0, 0,
                    m_width, m_height, GL_COLOR_BUFFER_BIT, GL_NEAREST);
  glBindFramebuffer(GL_DRAW_FRAMEBUFFER, 0);
}

void KeptPicture::Show(const Colour& around) const {
  const Viewport to;
  glClearColor(around.red, around.green, around.blue, 1.0f);
  glClear(GL_COLOR_BUFFER_BIT);
  glClearColor(0.0f, 0.0f, 0.0f, 1.0f);  // as the renderer leaves it
  glBindFramebuffer(GL_READ_FRAMEBUFFER, m_framebuffer);
  glBlitFramebuffer(0, 0, m_width, m_height, to.left, to.bottom, to.left + to.width,
                    to.bottom + to.height, GL_COLOR_BUFFER_BIT, GL_NEAREST);
  glBindFramebuffer(GL_READ_FRAMEBUFFER, 0);
}

void KeptPicture::Resize(int width, int height) {
  m_width = width;
  m_height = height;
  if (m_framebuffer == 0) {
    glGenFramebuffers(1, &m_framebuffer);
    glGenRenderbuffers(1, &m_pixels);
  }
  glBindRenderbuffer(GL_RENDERBUFFER, m_pixels);
  glRenderbufferStorage(GL_RENDERBUFFER, GL_RGB8, width, height);
  glBindRenderbuffer(GL_RENDERBUFFER, 0);
  glBindFramebuffer(GL_FRAMEBUFFER, m_framebuffer);
  glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, m_pixels);
  glBindFramebuffer(GL_FRAMEBUFFER, 0);
}

}  // namespace ZOVEngine
