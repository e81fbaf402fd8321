#include "render/gl/glkept.h"

#include <GL/glew.h>

namespace ZOVEngine {

PixelBox CurrentViewport() {
  GLint at[4] = {};
  glGetIntegerv(GL_VIEWPORT, at);
  return {at[0], at[1], at[2], at[3]};
}

void KeptPicture::Keep(const PixelBox& viewport) {
  const auto& [left, bottom, width, height] = viewport;
  Fit(width, height);
  glBindFramebuffer(GL_DRAW_FRAMEBUFFER, m_framebuffer);
  glBlitFramebuffer(left, bottom, left + width, bottom + height, 0, m_height, m_width, 0,
                    GL_COLOR_BUFFER_BIT, GL_NEAREST);
  glBindFramebuffer(GL_DRAW_FRAMEBUFFER, 0);
}

bool KeptPicture::Fit(int width, int height) {
  if (!HasSize(width, height)) Resize(width, height);
  return m_is_drawable;
}

void KeptPicture::BeginDrawing() {
  glBindFramebuffer(GL_FRAMEBUFFER, m_framebuffer);
  glViewport(0, 0, m_width, m_height);
}

void KeptPicture::BeginPart(const PixelBox& part) {
  glEnable(GL_SCISSOR_TEST);
  glScissor(part.left, m_height - part.bottom - part.height, part.width, part.height);
  glClear(GL_COLOR_BUFFER_BIT);
}

void KeptPicture::EndDrawing(const PixelBox& viewport) {
  glDisable(GL_SCISSOR_TEST);
  glBindFramebuffer(GL_FRAMEBUFFER, 0);
  glViewport(viewport.left, viewport.bottom, viewport.width, viewport.height);
}

void KeptPicture::Show(const PixelBox& viewport) const {
  glBindFramebuffer(GL_READ_FRAMEBUFFER, m_framebuffer);
  glBlitFramebuffer(0, m_height, m_width, 0, viewport.left, viewport.bottom,
                    viewport.left + viewport.width, viewport.bottom + viewport.height,
                    GL_COLOR_BUFFER_BIT, GL_NEAREST);
  glBindFramebuffer(GL_READ_FRAMEBUFFER, 0);
}

void KeptPicture::ShowAmid(const Colour& around, const PixelBox& viewport) const {
  glClearColor(around.red, around.green, around.blue, 1.0f);
  glClear(GL_COLOR_BUFFER_BIT);
  glClearColor(0.0f, 0.0f, 0.0f, 1.0f);  // as the renderer leaves it
  Show(viewport);
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
  m_is_drawable = glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
  glBindFramebuffer(GL_FRAMEBUFFER, 0);
}

}  // namespace ZOVEngine
