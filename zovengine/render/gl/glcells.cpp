#include "render/gl/glcells.h"

#include <algorithm>
#include <cmath>

namespace ZOVEngine {

namespace {

constexpr float kCellSide = 80.0f;  // (unit: world units)
constexpr int kMostCells = 48;      // along an edge

struct Span {
  float lo;
  float hi;
};

struct Edge {
  float x, y;
  float Length() const { return std::sqrt(x * x + y * y); }
  bool AlongAxis() const { return (x == 0.0f) != (y == 0.0f); }
};

Edge EdgeTo(const StreamVertex corners[4], int corner) {
  return {corners[corner].position[0] - corners[0].position[0],
          corners[corner].position[1] - corners[0].position[1]};
}

/// The stretch of an edge along an axis that lies within the lit box, as a share of the edge.
Span LitSpan(const StreamVertex& origin, const Edge& edge, const WorldBox& lit) {
  const bool level = edge.y == 0.0f;
  const float start = level ? origin.position[0] : origin.position[1];
  const float length = level ? edge.x : edge.y;
  const float a = ((level ? lit.left : lit.bottom) - start) / length;
  const float b = ((level ? lit.right : lit.top) - start) / length;
  return {std::clamp(std::min(a, b), 0.0f, 1.0f), std::clamp(std::max(a, b), 0.0f, 1.0f)};
}

/// Grid lines over an edge: both ends, and evenly over the lit span.
void SetLines(Span lit, float length, std::vector<float>* lines) {
  const float lit_length = (lit.hi - lit.lo) * length;
  const float wanted = std::ceil(lit_length / kCellSide);
  // A sprite can be of any size, infinite and NaN included.
  const int cells =
      wanted > 1.0f ? static_cast<int>(std::min(wanted, static_cast<float>(kMostCells))) : 1;
  lines->clear();
  if (lit.lo > 0.0f) lines->push_back(0.0f);
  for (int i = 0; i < cells; ++i) {
    lines->push_back(lit.lo +
                     (lit.hi - lit.lo) * static_cast<float>(i) / static_cast<float>(cells));
  }
  lines->push_back(lit.hi);
  if (lit.hi < 1.0f) lines->push_back(1.0f);
}

float Between(const float* a, const float* b, const float* d, float s, float t) {
  return *a + s * (*b - *a) + t * (*d - *a);
}

void PlaceCorner(const StreamVertex corners[4], float s, float t, StreamVertex* out) {
  *out = corners[0];
  for (int i = 0; i < 3; ++i) {
    out->position[i] =
        Between(&corners[0].position[i], &corners[1].position[i], &corners[3].position[i], s, t);
  }
  for (int i = 0; i < 2; ++i) {
    out->uv[i] = Between(&corners[0].uv[i], &corners[1].uv[i], &corners[3].uv[i], s, t);
  }
}

bool ClosesEvenly(const float* a, const float* b, const float* c, const float* d) {
  const float gap = (*a + *c) - (*b + *d);
  return std::abs(gap) <= 1e-5f * (std::abs(*a) + std::abs(*b) + std::abs(*c) + std::abs(*d));
}

}  // namespace

WorldBox Bounds(const StreamVertex* vertices, std::size_t count) {
  WorldBox box{vertices->position[0], vertices->position[0], vertices->position[1],
               vertices->position[1]};
  for (std::size_t i = 1; i < count; ++i) {
    box.left = std::min(box.left, vertices[i].position[0]);
    box.right = std::max(box.right, vertices[i].position[0]);
    box.bottom = std::min(box.bottom, vertices[i].position[1]);
    box.top = std::max(box.top, vertices[i].position[1]);
  }
  return box;
}

bool CellCutter::CanCut(const StreamVertex corners[4]) {
  const Edge first = EdgeTo(corners, 1);
  const Edge last = EdgeTo(corners, 3);
  if (!first.AlongAxis() || !last.AlongAxis()) return false;
  if (std::max(first.Length(), last.Length()) <= 2.0f * kCellSide) return false;
  const auto even = [](const float* part) {
    const std::ptrdiff_t step = sizeof(StreamVertex) / sizeof(float);
    return ClosesEvenly(part, part + step, part + 2 * step, part + 3 * step);
  };
  const StreamVertex& origin = corners[0];
  return even(&origin.position[0]) && even(&origin.position[1]) && even(&origin.position[2]) &&
         even(&origin.uv[0]) && even(&origin.uv[1]);
}

const std::vector<LitCell>& CellCutter::Cut(const StreamVertex corners[4], LightField* lights) {
  const WorldBox box = Bounds(corners, 4);
  const Edge first = EdgeTo(corners, 1);
  const Edge last = EdgeTo(corners, 3);
  const WorldBox lit = lights->LitPart(box);
  SetLines(LitSpan(corners[0], first, lit), first.Length(), &m_across);
  SetLines(LitSpan(corners[0], last, lit), last.Length(), &m_along);
  lights->Narrow(box);
  m_cells.clear();
  for (std::size_t i = 1; i < m_along.size(); ++i) {
    AddRow(corners, *lights, m_along[i - 1], m_along[i]);
  }
  return m_cells;
}

void CellCutter::AddRow(const StreamVertex corners[4], const LightField& lights, float t0,
                        float t1) {
  const std::size_t row = m_cells.size();
  for (std::size_t i = 1; i < m_across.size(); ++i) {
    LitCell cell{m_across[i - 1], m_across[i], t0, t1, {}};
    StreamVertex ends[4];
    PlaceCell(corners, cell, ends);
    cell.near = lights.NearAmong(Bounds(ends, 4));
    if (m_cells.size() > row && m_cells.back().near == cell.near) {
      m_cells.back().s1 = cell.s1;
    } else {
      m_cells.push_back(cell);
    }
  }
}

void PlaceCell(const StreamVertex corners[4], const LitCell& cell, StreamVertex* out) {
  PlaceCorner(corners, cell.s0, cell.t0, out);
  PlaceCorner(corners, cell.s1, cell.t0, out + 1);
  PlaceCorner(corners, cell.s1, cell.t1, out + 2);
  PlaceCorner(corners, cell.s0, cell.t1, out + 3);
  for (int i = 0; i < 4; ++i) {
    out[i].near[0] = cell.near.packed[0];
    out[i].near[1] = cell.near.packed[1];
  }
}

}  // namespace ZOVEngine
