#pragma once

#include <memory>
#include <vector>

#include "core/base/vector3d.h"

namespace ZOVEngine {

class Transform;

/// A convex, planar collision shape; its z rides along.
///
/// Local fields are relative to the object, world fields are what UpdateCollider derived from the
/// object's Transform. The local position moves the centre; only MoveLocal moves the vertices of a
/// polygon. Positions are world units, angles degrees.
class iCollider {
 public:
  virtual std::shared_ptr<iCollider> Clone() const = 0;
  virtual ~iCollider() = default;
  /// Derives the world fields from the world set of `transform`.
  virtual void UpdateCollider(const Transform& transform) = 0;
  /// Sends the lines that outline the shape to the render system.
  virtual void DrawDebug() const;
  /// Moves the shape within its object so that `m_local_pos` becomes `position`.
  virtual void MoveLocal(const Vector3D& position);

  bool m_flags[2] = {false, false};  ///< carried along by copies, used by nothing
  Vector3D m_local_scale{1.0f, 1.0f, 1.0f};
  float m_local_rot = 0.0f;  ///< (unit: degrees)
  Vector3D m_local_pos{0.0f, 0.0f, 1.0f};
  Vector3D m_local_min{0.0f, 0.0f, 1.0f};
  Vector3D m_local_max{0.0f, 0.0f, 1.0f};
  Vector3D m_center{0.0f, 0.0f, 1.0f};
  Vector3D m_min{0.0f, 0.0f, 1.0f};  ///< world bounds
  Vector3D m_max{0.0f, 0.0f, 1.0f};
};

/// A convex polygon. The order of the vertices is significant: each joins the next, the last the
/// first. A new one has no vertices; they come from its file.
class PolygonCollider : public iCollider {
 public:
  std::shared_ptr<iCollider> Clone() const override;
  void UpdateCollider(const Transform& transform) override;
  void DrawDebug() const override;
  void MoveLocal(const Vector3D& position) override;
  virtual const std::vector<Vector3D>& GetLocalVertices() const { return m_local_vertices; }
  virtual void SetLocalVertices(const std::vector<Vector3D>& vertices) {
    m_local_vertices = vertices;
  }

  std::vector<Vector3D> m_world_vertices;
  std::vector<Vector3D> m_local_vertices;
};

/// The unit square around the object, wound clockwise from its upper left corner.
class BoxCollider final : public PolygonCollider {
 public:
  explicit BoxCollider(const Transform& transform);
  std::shared_ptr<iCollider> Clone() const override;
};

/// A circle whose diameter is the x scale.
class CircleCollider final : public iCollider {
 public:
  explicit CircleCollider(const Transform& transform);
  std::shared_ptr<iCollider> Clone() const override;
  void UpdateCollider(const Transform& transform) override;

  float m_radius = 0.0f;  ///< in the world (unit: world units)
};

}  // namespace ZOVEngine
