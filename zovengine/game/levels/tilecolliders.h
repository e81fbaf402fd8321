#pragma once

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

/// Adds the square of `tile`, which must have a Transform, to the boxes that end where it begins.
///
/// Every box that the tile continues grows by it, even two of them. If there is none, a new object
/// "tilecollider" is made at the tile's position, in the size of its archetype, and appended. Edges
/// are compared as whole numbers, so tiles of odd size at whole positions, whose edges are halves,
/// are not merged. An archetype without a box ends the program.
void MergeTileCollider(GameObj* tile, std::vector<TileCollider>* colliders);

}  // namespace ZOVEngine
