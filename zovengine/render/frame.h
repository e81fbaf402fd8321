#pragma once

#include <cstdint>
#include <vector>

#include "core/base/matrix4x4.h"
#include "core/base/vector3d.h"

namespace ZOVEngine {

/// The four shader programs of the renderer.
enum class Program : std::uint8_t { kDefault, kFont, kInstance, kLight };

inline constexpr int kProgramCount = 4;

/// The part of a texture that a quad shows: u runs from `u_left` at x = -0.5 to `u_right` at x =
/// +0.5, v from `v_top` at y = +0.5 to `v_bottom` at y = -0.5. v = 0 is the top row of the image.
/// Values outside 0 to 1 repeat the texture.
struct TextureWindow {
  float u_left = 0.0f;
  float u_right = 1.0f;
  float v_top = 0.0f;
  float v_bottom = 1.0f;

  bool operator==(const TextureWindow&) const = default;
};

/// Where a quad or mesh stands: its points are scaled, then turned about z, then moved.
struct Placement {
  Vector3D translate;           ///< (unit: world units)
  float rotate_radians = 0.0f;  ///< counter-clockwise
  Vector3D scale{1.0f, 1.0f, 1.0f};

  bool operator==(const Placement&) const = default;
};

/// A vertex of a mesh in the object's own space.
struct MeshVertex {
  Vector3D position;
  float u = 0.0f;
  float v = 0.0f;
};

/// One character of a text, already laid out: an upright rectangle at depth `z` from its lower left
/// corner (x, y), with the whole glyph texture on it, v = 0 at the upper edge (unit: world units).
struct GlyphQuad {
  std::uint32_t texture = 0;  ///< name that GLDevice::UploadGlyph returned; 0 draws nothing
  float x = 0.0f;
  float y = 0.0f;
  float z = 0.0f;
  float width = 0.0f;
  float height = 0.0f;
};

/// A point light as the lit and the instanced program get it, with its position in the world.
struct LightRecord {
  Vector3D position, ambient, diffuse, specular;
  float ambientStr = 0.0f, diffuseStr = 0.0f, specularStr = 0.0f;

  bool operator==(const LightRecord&) const = default;
};

/// One draw of the frame, in plain values.
///
/// The device executes commands as if one after another, each covering the draws before it with
/// source-alpha blending and no depth test. `colour` is the value of `ourColour` (or `textColour`)
/// and may be far above 1. `texture` is a texture number, the position in the list of textures.
struct DrawCommand {
  enum class Kind : std::uint8_t {
    kQuad,       ///< the unit quad with `window`
    kMesh,       ///< triangles: Frame::indices[first, first + count), relative to `base_vertex`
    kOutline,    ///< line segments, two indices each, from the same arrays
    kText,       ///< Frame::glyphs[first, first + count), program kFont
    kInstances,  ///< the unit quad with `window` at each of Frame::instances[first, first + count)
  };

  Kind kind = Kind::kQuad;
  Program program = Program::kDefault;
  std::uint32_t texture = 0;
  Placement placement;  ///< not used by kText and kInstances
  float colour[4] = {1.0f, 1.0f, 1.0f, 1.0f};
  TextureWindow window;
  std::uint32_t first = 0;
  std::uint32_t count = 0;
  std::uint32_t base_vertex = 0;  ///< of kMesh and kOutline, into Frame::vertices

  bool operator==(const DrawCommand&) const = default;
};

/// One frame as data: the passes write it and the device executes it.
///
/// Stacking order is the order of `commands`. Indices are always within `vertices`; the passes
/// leave out triangles that are not. A frame is kept between steps so that its arrays keep their
/// memory.
struct Frame {
  Matrix4x4 view;     ///< row-major, as every matrix of the engine
  Vector3D view_pos;  ///< the view's translation, the same for all commands
  std::vector<LightRecord>
      lights;  ///< their number is the uniform `size`, even above a shader's limit
  std::vector<DrawCommand> commands;
  std::uint32_t ground = 0;  ///< the first so many commands change seldom: background and tiles
  std::vector<MeshVertex> vertices;
  std::vector<std::uint32_t> indices;
  std::vector<GlyphQuad> glyphs;
  std::vector<Matrix4x4> instances;  ///< model matrices, row-major

  /// Empties all lists and keeps their memory.
  void Clear() {
    lights.clear();
    commands.clear();
    ground = 0;
    vertices.clear();
    indices.clear();
    glyphs.clear();
    instances.clear();
  }
};

}  // namespace ZOVEngine
