#pragma once

#include <GL/glew.h>

#include <array>
#include <cstdint>
#include <vector>

#include "render/gl/glstate.h"

namespace ZOVEngine {

/// A texture that has to be bound to a unit before a draw.
struct TextureBind {
  int unit = 0;
  GLuint texture = 0;
};

/// Plans which sprite texture sits on which of the units 0 to 7.
///
/// A draw can choose among the textures on all eight units, so a run of sprites goes on until a
/// ninth texture turns up. The textures of a run stay on their units for the next one. Some drivers
/// build a shader anew for every sequence of shape classes on the units. So when a unit must be
/// freed, one whose texture has the same class is preferred; failing that, textures without a side
/// that is a power of two come from the first unit on and all others from the last one back. What
/// was drawn before then leaves few sequences. The plan remembers the binds of earlier frames, so
/// no other code may bind to these units.
class TextureUnits {
 public:
  /// Starts a new frame: the list of binds is empty, the units keep their textures.
  void StartFrame() {
    m_binds.clear();
    m_at_start = m_textures;
  }
  /// Starts a new run: all units may be given to other textures.
  void StartRun() { m_used = 0; }
  /// The unit of `texture` for the current run, planning a bind where needed; -1 when the run has
  /// eight others already.
  int Take(GLuint texture);
  /// Plans `texture` for the given unit, which the current run then has in use.
  void TakeUnit(int unit, GLuint texture);
  /// Notes the sizes of a texture, which decide its shape class (unit: pixels).
  void NoteSize(GLuint texture, int width, int height);
  /// Notes whether every texel of a texture is opaque.
  void NoteOpaque(GLuint texture, bool opaque);

  /// All binds planned in this frame, in order.
  const std::vector<TextureBind>& Binds() const { return m_binds; }
  /// The textures of the units at the start of this frame.
  const std::array<GLuint, kSpriteUnits>& AtStart() const { return m_at_start; }
  /// Number of units that the current run uses.
  int UsedCount() const;
  /// The last note of NoteOpaque; false without one.
  bool IsOpaque(GLuint texture) const { return texture < m_opaque.size() && m_opaque[texture]; }

 private:
  int FindUnit(GLuint texture) const;
  int ChooseFreeUnit(GLuint texture) const;
  std::uint8_t Shape(GLuint texture) const;

  std::array<GLuint, kSpriteUnits> m_textures{};
  std::array<GLuint, kSpriteUnits> m_at_start{};
  std::array<std::uint64_t, kSpriteUnits> m_last_use{};
  std::vector<TextureBind> m_binds;
  std::vector<std::uint8_t> m_shapes;
  std::vector<bool> m_opaque;
  std::uint64_t m_clock = 0;
  unsigned m_used = 0;  // one bit a unit
};

}  // namespace ZOVEngine
