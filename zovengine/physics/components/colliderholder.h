#pragma once

#include <memory>
#include <string>

#include "objects/gamecomponentbase.h"
#include "physics/components/collider.h"

namespace ZOVEngine {

/// Gives an object its collision shape.
///
/// The type name chooses the creator of the shape; the category is a key into the collider system's
/// mask table. The component's own active flag decides whether it takes part. Copying clones the
/// shape.
class ColliderHolder final : public GameComponentBase {
  RTTR_ENABLE(GameComponentBase)

 public:
  /// Makes a holder of type "Box", shaped after the owner's Transform.
  explicit ColliderHolder(GameObj* owner);
  ColliderHolder(const ColliderHolder& other);
  ColliderHolder& operator=(const ColliderHolder&) = delete;

  void Unserialize(const Value& value) override;
  void Serialize(Writer& writer) override;

  /// Stores the type and makes its shape; a name that is none of "Box", "Circle" and "Polygon"
  /// leaves the holder without a shape.
  void SetType(const std::string& type);
  void SetDebug(bool debug) { m_debug = debug; }

  std::string m_collider_type;
  std::shared_ptr<iCollider> m_collider;
  int m_layer = 0;       ///< passes through files only
  bool m_debug = false;  ///< draw this shape
  std::string bitmask_category = "Default";
};

}  // namespace ZOVEngine
