#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "physics/contacttests.h"
#include "physics/overlapfinder.h"
#include "physics/quadtree.h"

namespace ZOVEngine {

/// A test that is due: shape A against shape B, both by the order in which they were added.
struct Candidate {
  std::uint32_t a, b;
  std::uint32_t pair;  ///< number of the two, below PairCount; the same from both sides
  std::uint32_t rank;  ///< among the candidates of one A; see CandidateFinder
};

/// Finds the pairs of shapes that are to be tested, in the order in which walking the quad tree for
/// each shape would meet them.
///
/// Each shape is tested as A against the shapes in its own node of the tree, then against those in
/// the nodes above, deepest node first, in the order in which they were added. So a pair in one
/// node is due from both sides, and a pair in nodes above each other from the deeper side alone.
/// Pairs that cannot touch are left out: bounds that are apart, masks without a common bit, no body
/// on either side, boxes that a line separates. Overlapping bounds are found by a uniform grid,
/// which is faster than walking the tree and does not change the result. Memory is kept between
/// steps.
class CandidateFinder {
 public:
  /// Forgets all shapes.
  void Clear();
  /// Adds a shape other than a box. Two shapes may touch if their masks share a bit and the object
  /// of at least one has a body.
  void Add(const Bounds& bounds, std::int32_t mask, bool has_body) {
    m_bounds.push_back(bounds);
    m_filters.push_back({mask, has_body, false});
    m_outlines.emplace_back();
  }
  /// Adds a box, as Add.
  void AddBox(const Bounds& bounds, std::int32_t mask, bool has_body, const BoxOutline& outline) {
    m_bounds.push_back(bounds);
    m_filters.push_back({mask, has_body, true});
    m_outlines.push_back(outline);
  }
  /// Builds the tree over all shapes; call it before Find and EverMeet.
  void BuildTree() { m_tree.Build(m_bounds); }
  /// All candidates in the order of their tests; valid until the next call.
  std::span<const Candidate> Find();

  /// The number of overlapping pairs in the last Find.
  std::size_t PairCount() const { return m_pair_count; }
  /// True if one of two shapes stands on the other's path up the tree and one of them has a body,
  /// whatever their masks and bounds.
  bool EverMeet(std::size_t a, std::size_t b) const;
  const QuadTree& Tree() const { return m_tree; }

 private:
  struct Filter {
    std::int32_t mask;
    bool has_body;
    bool is_box;
  };

  void Collect();
  void SortByA();
  Candidate Make(std::uint32_t a, std::uint32_t b, std::uint32_t pair) const;
  bool MayTouch(std::uint32_t a, std::uint32_t b) const;

  std::vector<Bounds> m_bounds;        ///< of all shapes
  std::vector<Filter> m_filters;       ///< of all shapes
  std::vector<BoxOutline> m_outlines;  ///< of all shapes; unused for those that are no boxes
  QuadTree m_tree;
  OverlapFinder m_overlaps;
  std::size_t m_pair_count = 0;
  std::vector<Candidate> m_unsorted;  ///< the first m_count are in use
  std::size_t m_count = 0;
  std::vector<Candidate> m_sorted;
  std::vector<std::uint32_t> m_starts;  ///< of each A's candidates in m_sorted, and the end
};

}  // namespace ZOVEngine
