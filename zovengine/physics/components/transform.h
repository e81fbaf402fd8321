#pragma once

#include "core/base/matrix4x4.h"
#include "core/base/vector3d.h"
#include "gameobj.h"
#include "objects/gamecomponentbase.h"

namespace ZOVEngine {

/// Places an object in the world, relative to its parent.
///
/// The local set is written by game logic, physics and the editor; the world set is derived from it
/// by UpdateWorldTransforms once a step. Drawing and collision read the world set, which is stale
/// until the next derivation. Angles are degrees, positions world units. z rides along: a parent
/// never translates it and rotation is about z only. A new component's world scale is (0, 0, 1), so
/// a sprite drawn before the first derivation has no extent.
class Transform final : public GameComponentBase {
  RTTR_ENABLE(GameComponentBase)

 public:
  using GameComponentBase::GameComponentBase;

  ZOV_DECLARE_FIELDS()
  template <class Visitor>
  static void Written(Visitor& visit);
  template <class Visitor>
  static void Inspected(Visitor& visit);

  /// Sets the local and the previous position; nothing else changes.
  void SetLocalPosition(Vector3D p);
  /// The rotation matrix of `t`'s local rotation; the object it is called on plays no part.
  Matrix4x4 GetRotate(Transform* t);
  /// Moves the object to the world position `p` by undoing its ancestors, nearest first, which is
  /// exact for one parent. The previous position is not touched.
  void SetWorldPosition(Vector3D p);
  /// Turns the object about `pivot` in its parent's space (unit of `degrees`: degrees). The local z
  /// becomes 1 + pivot.z, deliberately whatever it was; the rotation is not wrapped.
  void RotateAround(Vector3D pivot, float degrees);
  /// Derives the world set from the local values of this object and its ancestors.
  void DeriveWorld() {
    m_world_pos = m_local_pos;
    m_world_rotate = m_local_rotate;
    m_world_scale = m_local_scale;
    // Inline up to here: most objects have no parent, and each is derived twice a step.
    if (m_owner->parent != nullptr) FollowAncestors();
  }

  Vector3D m_local_pos{0.0f, 0.0f, 1.0f};
  Vector3D m_local_scale{1.0f, 1.0f, 1.0f};
  float m_local_rotate = 0.0f;            ///< (unit: degrees)
  Vector3D m_prev_pos{0.0f, 0.0f, 1.0f};  ///< local position at the start of the last physics step
  float m_prev_rotate = 0.0f;             ///< (unit: degrees)
  Vector3D m_world_pos{0.0f, 0.0f, 1.0f};
  Vector3D m_world_scale{0.0f, 0.0f, 1.0f};
  float m_world_rotate = 0.0f;       ///< (unit: degrees)
  bool CanBeDragged = false;         ///< for the editor; not persisted
  bool m_rotate_with_parent = true;  ///< the parent's rotation moves and turns this object

 private:
  void FollowAncestors();
};

}  // namespace ZOVEngine
