#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "render/frame.h"

namespace ZOVEngine {

class iModel;

/// Texture numbers by key. Looking a key up inserts it when it is absent, with number 0.
using TextureMap = std::map<std::string, std::uint32_t>;

/// Red, green, blue, alpha.
using Colour = std::array<float, 4>;

inline constexpr Colour kWhite = {1.0f, 1.0f, 1.0f, 1.0f};

/// Indices of the shared quad: two triangles.
inline constexpr std::uint32_t kQuadIndexCount = 6;

/// True for a model of exactly one vertex, which stands for the shared quad.
bool IsSharedQuad(const iModel& model);

/// Writes a frame, one draw after another, and holds the state that lasts from draw to draw.
///
/// Three values last, deliberately, since the frames of the game depend on them: the texture bound
/// last, the shared quad's u values (animations rewrite them; they are kept between sprites and
/// frames, and tiles, instances and lines show them), and the quad uploaded last, which a draw
/// shows. A draw without a bind or an upload before it repeats the state of the draw before it. The
/// frame's arrays keep their memory, so a steady frame allocates nothing.
class Painter {
 public:
  /// Empties the frame. Keys are looked up in `textures` until the next call; only the painter may
  /// insert into it meanwhile.
  void Begin(TextureMap* textures);

  /// Binds the texture of `key`; an unknown key becomes known with number 0.
  void BindTexture(const std::string& key);

  /// Writes the u values of the shared quad; nothing shows them before UploadQuad.
  void SetQuad(float u_left, float u_right);
  /// Lets the next draws show the shared quad.
  void UploadQuad() { m_uploaded = m_quad; }
  /// Lets the next draws show `window`; the shared quad stays as it is.
  void Upload(const TextureWindow& window) { m_uploaded = window; }

  /// Draws the uploaded quad with the bound texture.
  void DrawQuad(Program program, const Placement& placement, const Colour& colour);
  /// Draws the whole triangles among the first `index_count` indices of the uploaded quad, which
  /// has six: fewer than three draw nothing, more than six draw the quad.
  void DrawQuadIndices(Program program, const Placement& placement, const Colour& colour,
                       std::size_t index_count);
  /// Draws the triangles of `model`, without those that have an index beyond its vertices.
  void DrawModel(Program program, const Placement& placement, const Colour& colour,
                 const iModel& model);
  /// Draws the outline of the uploaded quad as lines, with the default program.
  void DrawQuadOutline(const Placement& placement, const Colour& colour);
  /// Draws lines round the first four vertices of `model`, without those that have an index beyond
  /// its vertices, with the default program.
  void DrawModelOutline(const Placement& placement, const Colour& colour, const iModel& model);
  /// Draws the uploaded quad at each of the frame's instances, with the instanced program.
  void DrawInstances(const Colour& colour);
  /// Draws the frame's glyphs from `first` on; none at all make no draw.
  void DrawText(std::uint32_t first, const Colour& colour);

  Frame& GetFrame() { return m_frame; }
  const Frame& GetFrame() const { return m_frame; }
  /// The u values of the shared quad.
  const TextureWindow& Quad() const { return m_quad; }

 private:
  DrawCommand& Append(DrawCommand::Kind kind, Program program, const Placement& placement,
                      const Colour& colour);
  void AppendQuadVertices();
  void AppendModelVertices(const iModel& model);
  void AppendOutline(DrawCommand* command, std::size_t vertex_count);

  Frame m_frame;
  TextureMap* m_textures = nullptr;
  TextureMap::iterator m_last_lookup;  ///< the same key often comes again
  bool m_has_last_lookup = false;
  std::uint32_t m_bound = 0;
  TextureWindow m_quad;
  TextureWindow m_uploaded;
};

}  // namespace ZOVEngine
