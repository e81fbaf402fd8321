#include "physics/candidatefinder.h"

#include <algorithm>

namespace ZOVEngine {
namespace {

/// Ranks put deeper nodes first and, in a node, shapes in the order in which they were added.
constexpr unsigned kRankShift = 29;

}  // namespace

void CandidateFinder::Clear() {
  m_bounds.clear();
  m_filters.clear();
  m_outlines.clear();
}

std::span<const Candidate> CandidateFinder::Find() {
  Collect();
  SortByA();
  return m_sorted;
}

Candidate CandidateFinder::Make(std::uint32_t a, std::uint32_t b, std::uint32_t pair) const {
  const auto above_deepest =
      static_cast<std::uint32_t>(QuadTree::kMaxLevels - QuadTree::Level(m_tree.Node(b)));
  return {a, b, pair, (above_deepest << kRankShift) | b};
}

bool CandidateFinder::MayTouch(std::uint32_t a, std::uint32_t b) const {
  const Filter& one = m_filters[a];
  const Filter& other = m_filters[b];
  if ((one.mask & other.mask) == 0 || !(one.has_body || other.has_body)) return false;
  return !(one.is_box && other.is_box && AreApart(m_outlines[a], m_outlines[b]));
}

void CandidateFinder::Collect() {
  const std::span<const OverlapPair> pairs = m_overlaps.Find(m_bounds);
  m_pair_count = pairs.size();
  if (m_unsorted.size() < 2 * pairs.size()) m_unsorted.resize(2 * pairs.size());
  m_count = 0;
  for (std::uint32_t pair = 0; pair < pairs.size(); ++pair) {
    const auto [a, b] = pairs[pair];
    if (!MayTouch(a, b)) continue;
    const std::uint16_t node_a = m_tree.Node(a);
    const std::uint16_t node_b = m_tree.Node(b);
    // Every test is stored and only a due one counted: no branch to mispredict.
    m_unsorted[m_count] = Make(a, b, pair);
    m_count += QuadTree::IsOnPath(node_b, node_a) ? 1 : 0;
    m_unsorted[m_count] = Make(b, a, pair);
    m_count += QuadTree::IsOnPath(node_a, node_b) ? 1 : 0;
  }
}

/// Sorts by A, then by rank: a counting sort, then a sort of the few candidates of each A.
void CandidateFinder::SortByA() {
  const std::span<const Candidate> unsorted(m_unsorted.data(), m_count);
  m_starts.assign(m_bounds.size() + 1, 0);
  for (const Candidate& candidate : unsorted) ++m_starts[candidate.a];
  for (std::size_t a = 1; a < m_starts.size(); ++a) m_starts[a] += m_starts[a - 1];
  m_sorted.resize(m_count);
  for (const Candidate& candidate : unsorted) m_sorted[--m_starts[candidate.a]] = candidate;
  for (std::size_t a = 0; a + 1 < m_starts.size(); ++a) {
    if (m_starts[a + 1] - m_starts[a] < 2) continue;
    std::sort(m_sorted.begin() + m_starts[a], m_sorted.begin() + m_starts[a + 1],
              [](const Candidate& x, const Candidate& y) { return x.rank < y.rank; });
  }
}

bool CandidateFinder::EverMeet(std::size_t a, std::size_t b) const {
  const std::uint16_t node_a = m_tree.Node(a);
  const std::uint16_t node_b = m_tree.Node(b);
  return (m_filters[a].has_body || m_filters[b].has_body) &&
         (QuadTree::IsOnPath(node_a, node_b) || QuadTree::IsOnPath(node_b, node_a));
}

}  // namespace ZOVEngine
