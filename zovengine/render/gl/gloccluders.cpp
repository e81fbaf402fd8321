#include "render/gl/gloccluders.h"

#include <algorithm>
#include <cmath>

namespace ZOVEngine {

namespace {

/// Screen edge in clip space, inset by less than half a pixel for screens up to 20,000 pixels wide.
constexpr float kScreenEdge = 1.0f - 5e-5f;
/// Widens the box that is asked about: a fortieth of a pixel on a screen 1,280 pixels wide.
constexpr float kMargin = 4e-5f;
constexpr std::size_t kMostEdges = 160;  // in each direction

std::ptrdiff_t FirstAbove(const std::vector<float>& edges, float value) {
  return std::upper_bound(edges.begin(), edges.end(), value) - edges.begin();
}

std::ptrdiff_t FirstFrom(const std::vector<float>& edges, float value) {
  return std::lower_bound(edges.begin(), edges.end(), value) - edges.begin();
}

void SortEdges(std::vector<float>* edges) {
  std::sort(edges->begin(), edges->end());
  edges->erase(std::unique(edges->begin(), edges->end()), edges->end());
}

bool IsRectangle(const ScreenBox& box) {
  return std::isfinite(box.left) && std::isfinite(box.right) && box.left < box.right &&
         std::isfinite(box.bottom) && std::isfinite(box.top) && box.bottom < box.top;
}

ScreenBox Widened(const ScreenBox& box) {
  return {std::max(box.left - kMargin, -kScreenEdge), std::min(box.right + kMargin, kScreenEdge),
          std::max(box.bottom - kMargin, -kScreenEdge), std::min(box.top + kMargin, kScreenEdge)};
}

}  // namespace

ScreenMap::ScreenMap(const Matrix4x4& projection, const Matrix4x4& view)
    : m_to_clip(projection * view) {}

bool ScreenMap::Find(const WorldBox& box, float z, ScreenBox* out) const {
  const auto& at = m_to_clip.at;
  if (at[0][1] != 0.0f || at[1][0] != 0.0f || at[3][0] != 0.0f || at[3][1] != 0.0f) return false;
  if (at[2][0] != 0.0f || at[2][1] != 0.0f || at[0][0] <= 0.0f || at[1][1] <= 0.0f) return false;
  const float w = at[3][2] * z + at[3][3];
  const float depth = at[2][2] * z + at[2][3];
  // Behind the eye w is negative, so this refuses depths there too.
  if (!(std::abs(depth) < w)) return false;
  const float x = at[0][2] * z + at[0][3];
  const float y = at[1][2] * z + at[1][3];
  *out = {(at[0][0] * box.left + x) / w, (at[0][0] * box.right + x) / w,
          (at[1][1] * box.bottom + y) / w, (at[1][1] * box.top + y) / w};
  return true;
}

void Occluders::Clear() {
  m_boxes.clear();
  m_xs.clear();
  m_ys.clear();
  m_sums.clear();
}

void Occluders::Build() {
  std::erase_if(m_boxes, [](const ScreenBox& box) { return !IsRectangle(box); });
  for (const ScreenBox& box : m_boxes) {
    m_xs.insert(m_xs.end(), {box.left, box.right});
    m_ys.insert(m_ys.end(), {box.bottom, box.top});
  }
  SortEdges(&m_xs);
  SortEdges(&m_ys);
  if (m_xs.size() > kMostEdges || m_ys.size() > kMostEdges) return Clear();
  m_sums.assign(m_xs.size() * m_ys.size(), 0);
  for (const ScreenBox& box : m_boxes) Mark(box);
  for (std::size_t y = 1; y < m_ys.size(); ++y) {
    for (std::size_t x = 1; x < m_xs.size(); ++x) {
      SumAt(x, y) += SumAt(x - 1, y) + SumAt(x, y - 1) - SumAt(x - 1, y - 1);
    }
  }
}

/// Counts the cells of the grid in `box`, each at its upper right crossing.
void Occluders::Mark(const ScreenBox& box) {
  const auto right = static_cast<std::size_t>(FirstFrom(m_xs, box.right));
  const auto top = static_cast<std::size_t>(FirstFrom(m_ys, box.top));
  for (auto y = static_cast<std::size_t>(FirstAbove(m_ys, box.bottom)); y <= top; ++y) {
    for (auto x = static_cast<std::size_t>(FirstAbove(m_xs, box.left)); x <= right; ++x) {
      SumAt(x, y) = 1;
    }
  }
}

bool Occluders::Hides(const ScreenBox& box) const {
  if (!IsRectangle(box)) return false;
  const ScreenBox wide = Widened(box);
  if (wide.left >= wide.right || wide.bottom >= wide.top) return true;
  const std::ptrdiff_t left = FirstAbove(m_xs, wide.left) - 1;
  const std::ptrdiff_t bottom = FirstAbove(m_ys, wide.bottom) - 1;
  const std::ptrdiff_t right = FirstFrom(m_xs, wide.right);
  const std::ptrdiff_t top = FirstFrom(m_ys, wide.top);
  if (left < 0 || bottom < 0) return false;
  if (right >= std::ssize(m_xs) || top >= std::ssize(m_ys)) return false;
  const auto l = static_cast<std::size_t>(left);
  const auto r = static_cast<std::size_t>(right);
  const auto b = static_cast<std::size_t>(bottom);
  const auto t = static_cast<std::size_t>(top);
  const int covered = SumAt(r, t) - SumAt(l, t) - SumAt(r, b) + SumAt(l, b);
  return covered == static_cast<int>((r - l) * (t - b));
}

}  // namespace ZOVEngine
