#pragma once

#include <GL/glew.h>

#include <array>

#include "render/gldevice.h"

namespace ZOVEngine {

/// Texture units as the device shares them out.
inline constexpr int kSpriteUnits = 8;  ///< units 0 to 7: textures of sprites
inline constexpr int kGlyphUnit = 8;    ///< the page of glyphs
inline constexpr int kUploadUnit = 9;   ///< the texture that is being uploaded
inline constexpr int kTextureUnits = 10;

/// The bindings of the GL context, as this device made them.
///
/// All binds of the device go through here, so that the state is known without asking the driver.
/// The `Use` verbs bind only a name that is not bound yet. The `Bind` verbs always call the driver
/// and count; one that changes nothing counts as redundant. Other code that draws in the same
/// context (panels of the editor) must restore the bindings that it changed.
class GLState {
 public:
  void UseProgram(GLuint name) {
    if (m_program != name) BindProgram(name);
  }
  void UseVertexArray(GLuint name) {
    if (m_vertex_array != name) BindVertexArray(name);
  }
  /// For draws: leaves the active unit as it is when the texture is on its unit already.
  void UseTexture(int unit, GLuint name) {
    if (m_textures[static_cast<std::size_t>(unit)] != name) BindTexture(unit, name);
  }
  /// Binds a 2D texture on kUploadUnit and makes that unit the active one, so that calls that write
  /// texels or parameters change this texture and no other.
  void EditTexture(GLuint name) {
    UseTexture(kUploadUnit, name);
    ActivateUnit(kUploadUnit);
  }
  /// The buffer that attribute pointers refer to.
  void UseArrayBuffer(GLuint name) {
    if (m_array_buffer != name) BindArrayBuffer(name);
  }
  /// The buffer that uploads go to.
  void UseUploadBuffer(GLuint name) {
    if (m_upload_buffer != name) BindUploadBuffer(name);
  }

  void BindProgram(GLuint name);
  void BindVertexArray(GLuint name);
  /// Binds a 2D texture on a unit, which becomes the active one.
  void BindTexture(int unit, GLuint name);
  void BindArrayBuffer(GLuint name);
  void BindUploadBuffer(GLuint name);

  /// Counts a draw call, of glyphs or of something else.
  void CountDraw(bool is_text) {
    ++m_counters.draw_calls;
    m_counters.text_draw_calls += is_text ? 1u : 0u;
  }
  /// Starts a new count.
  void ResetCounters() { m_counters = DeviceCounters(); }

  /// Name of the program in use, 0 for none.
  GLuint CurrentProgram() const { return m_program; }
  /// The counts since the last reset.
  const DeviceCounters& Counters() const { return m_counters; }

 private:
  void ActivateUnit(int unit);
  void Count(bool redundant) { m_counters.redundant_binds += redundant ? 1u : 0u; }

  GLuint m_program = 0;
  GLuint m_vertex_array = 0;
  GLuint m_array_buffer = 0;
  GLuint m_upload_buffer = 0;
  int m_active_unit = 0;
  std::array<GLuint, kTextureUnits> m_textures{};
  DeviceCounters m_counters;
};

}  // namespace ZOVEngine
