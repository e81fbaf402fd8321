#pragma once

#include <GL/glew.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "render/frame.h"
#include "render/gl/glbox.h"
#include "render/gl/glprogram.h"

namespace ZOVEngine {

/// A vertex as the streamed programs take it. Plain programs use position and texture coordinates
/// only.
struct StreamVertex {
  float position[3];  ///< in the world; of a plain run, in the object's own space
  float uv[2];
  float tint[4];
  float unit;             ///< texture unit that the sprite samples
  std::uint32_t near[2];  ///< see NearLights
};

/// A corner of a particle as the streamed form of the instanced program takes it. Tint and texture
/// unit are the same for all particles of a run.
struct CornerVertex {
  float position[3];  ///< in the world
  float uv[2];
  std::uint32_t near[2];  ///< see NearLights
};

/// A particle as the plain form of the instanced program takes it.
struct InstanceRecord {
  float columns[16];  ///< of the model matrix
};

/// A draw call: a stretch of the frame's index buffer and the state that it needs.
struct DrawRun {
  GLProgram* program = nullptr;
  const DrawCommand* command = nullptr;  ///< its values become uniforms; null when streamed
  bool plain = false;                    ///< `program` is in its plain form
  GLenum mode = GL_TRIANGLES;
  std::uint32_t first_index = 0;
  std::uint32_t index_count = 0;
  bool corners = false;        ///< the indices count CornerVertex records
  std::size_t first_bind = 0;  ///< in the binds of TextureUnits
  std::size_t bind_count = 0;
  std::uint32_t first_instance = 0;
  std::uint32_t instance_count = 0;  ///< 0: not instanced
  int unit = 0;                      ///< texture unit that a program of one texture samples
  GLuint glyph_page = 0;             ///< 0: no text
  std::optional<WorldBox> bounds;    ///< of runs of the ground alone, and not of plain ones
};

/// A growing array that keeps its memory, for records that are written field by field in place.
template <typename T>
class Stream {
 public:
  void Clear() { m_size = 0; }
  /// Adds `count` records with unspecified values and returns the first. Earlier pointers die.
  T* Grab(std::size_t count) {
    if (m_size + count > m_store.size()) m_store.resize(2 * (m_size + count));
    m_size += count;
    return m_store.data() + (m_size - count);
  }
  /// Takes the last `count` records off again.
  void Drop(std::size_t count) { m_size -= count; }

  const T* Data() const { return m_store.data(); }
  std::size_t Size() const { return m_size; }
  std::size_t Bytes() const { return m_size * sizeof(T); }

 private:
  std::vector<T> m_store;
  std::size_t m_size = 0;
};

}  // namespace ZOVEngine
