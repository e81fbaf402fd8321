#pragma once

#include <vector>

#include "gameobj.h"
#include "physics/components/colliderholder.h"

namespace ZOVEngine {

/// One of the boxes into which a level's tiles are merged, while they are being merged.
///
/// A box grows in one direction only: to the right or downward. What it has grown by shows in its
/// shape and in the local fields of its Transform; the world fields follow in the next derivation.
struct TileCollider {
  ColliderHolder* holder = nullptr;  ///< of an object made from the archetype "tilecollider"
  bool grown_x = false;
  bool grown_y = false;
};

/// Adds the square of `tile`, which must have a Transform, to the boxes that end where it begins.
///
/// Each box that continues into the tile grows by it, be it more than one; if none does, a new
/// object "tilecollider" is made at the tile's place, with the size that its archetype has, and
/// appended. Edges are compared as whole numbers, so tiles of odd size at whole positions, whose
/// edges lie between two, are not merged. An archetype without a box ends the program.
void MergeTileCollider(GameObj* tile, std::vector<TileCollider>* colliders);

}  // namespace ZOVEngine
