#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "gameobj.h"
#include "physics/components/colliderholder.h"

namespace ZOVEngine {

/// One of the boxes into which a level's tiles are merged, during the merge.
///
/// A box grows in one direction only: to the right or downward. The growth changes its shape and
/// the local fields of its Transform; the world fields follow in the next derivation.
struct TileCollider {
  ColliderHolder* holder = nullptr;  ///< of an object made from the archetype "tilecollider"
  bool grown_x = false;
  bool grown_y = false;
};

/// Finds boxes by one of their corners, as whole numbers, so that a level of many tiles is merged
/// in one pass. Boxes are numbers; one that moves its corner is removed before and added after.
class CornerTable {
 public:
  void Add(float x, float y, std::size_t box);
  /// `x` and `y` are those that the box was added with.
  void Remove(float x, float y, std::size_t box);
  /// The boxes at this corner, in no order.
  std::vector<std::size_t> Find(float x, float y) const;

 private:
  std::unordered_multimap<std::uint64_t, std::size_t> m_boxes;
};

/// The boxes of one merge. A tile continues a box to the right at its upper right corner, and
/// downward at its lower right one, so the boxes are listed by both.
class TileColliders {
 public:
  /// Adds the square of `tile`, which must have a Transform, to the boxes that end where it begins.
  ///
  /// Every box that the tile continues grows by it, even two of them. If there is none, a new
  /// object "tilecollider" is made at the tile's position, in the size of its archetype. Edges are
  /// compared as whole numbers, so tiles of odd size at whole positions, whose edges are halves,
  /// are not merged. An archetype without a box ends the program.
  void Merge(GameObj* tile);

 private:
  struct Square;

  bool GrowRight(const Square& tile);
  bool GrowDown(const Square& tile);
  void Append(ColliderHolder* holder);
  void List(std::size_t box);
  void Unlist(std::size_t box);

  std::vector<TileCollider> m_boxes;
  CornerTable m_by_upper_right;
  CornerTable m_by_lower_right;
};

}  // namespace ZOVEngine
