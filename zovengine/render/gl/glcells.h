#pragma once

#include <vector>

#include "render/gl/gllights.h"
#include "render/gl/glplan.h"

namespace ZOVEngine {

/// A piece of a quad, from `s0` to `s1` along its first edge (corner 0 to 1) and from `t0` to `t1`
/// along its last one (corner 0 to 3), with the lights that reach it.
struct LitCell {
  float s0, s1, t0, t1;
  NearLights near;
};

/// The bounding box of the vertices in the plane.
WorldBox Bounds(const StreamVertex* vertices, std::size_t count);

/// Cuts large lit quads along a grid, so that each fragment evaluates only the lights near it.
///
/// The grid is fine where light falls and coarse elsewhere, and neighbours in a row with the same
/// lights are joined. Only quads along the axes are cut: there, all corners on a grid line have
/// exactly the same coordinate, so that neither gaps nor other edges than the quad's own can show.
class CellCutter {
 public:
  /// True when the four corners in their order make a rectangle along the axes, bear an even
  /// texture, and are far enough apart to be worth cutting.
  static bool CanCut(const StreamVertex corners[4]);

  /// Cuts the quad. The cells stay valid until the next call.
  const std::vector<LitCell>& Cut(const StreamVertex corners[4], LightField* lights);

 private:
  void AddRow(const StreamVertex corners[4], const LightField& lights, float t0, float t1);

  std::vector<float> m_across;
  std::vector<float> m_along;
  std::vector<LitCell> m_cells;
};

/// Writes the four vertices of `cell` in the order of the quad's corners.
void PlaceCell(const StreamVertex corners[4], const LitCell& cell, StreamVertex* out);

}  // namespace ZOVEngine
