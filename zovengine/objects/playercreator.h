#pragma once

#include "objects/gameobjfactory.h"

namespace ZOVEngine {

/// The creator type of PlayerCreator.
inline constexpr std::uint32_t kPlayerCreator = 0;

/// Builds a unit in code: Transform, BoxCollider, RigidBody, Render.
///
/// Deliberately not a working route: BoxCollider is a shape and has no table, so Create throws
/// std::out_of_range "invalid unordered_map<K, T> key" there. Units come from files.
class PlayerCreator final : public GameObjCreator {
 public:
  GameObj* Create(std::uint32_t id) override;
};

}  // namespace ZOVEngine
