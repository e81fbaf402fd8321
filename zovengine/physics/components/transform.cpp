#include "physics/components/transform.h"

#include "objects/componentmanager.h"
#include "objects/fields.h"

namespace ZOVEngine {
namespace {

template <class Visitor>
void VisitLocal(Visitor& visit) {
  visit("m_pos", &Transform::m_local_pos);
  visit("m_scale", &Transform::m_local_scale);
  visit("m_rotate", &Transform::m_local_rotate);
}

template <class Visitor>
void VisitParenting(Visitor& visit) {
  visit("m_rotate_with_parent", &Transform::m_rotate_with_parent);
}

template <class Visitor>
void VisitWorld(Visitor& visit) {
  visit("m_world_scale", &Transform::m_world_scale);
  visit("m_world_rotate", &Transform::m_world_rotate);
  visit("m_world_pos", &Transform::m_world_pos);
}

/// The Transform of an ancestor, or null for one without.
Transform* FindTransform(GameObj* object) {
  return object->HasComponent<Transform>() ? object->GetComponent<Transform>() : nullptr;
}

}  // namespace

template <class Visitor>
void Transform::Fields(Visitor& visit) {
  VisitLocal(visit);
  VisitParenting(visit);
  VisitWorld(visit);
}

template <class Visitor>
void Transform::Written(Visitor& visit) {
  VisitLocal(visit);
  VisitWorld(visit);
  VisitParenting(visit);
}

template <class Visitor>
void Transform::Inspected(Visitor& visit) {
  visit("m_local_pos", &Transform::m_local_pos, "Local Position");
  visit("m_local_scale", &Transform::m_local_scale, "Local Scale");
  visit("m_local_rotate", &Transform::m_local_rotate, "Local Rotate", FieldBounds{-180.0, 180.0});
  visit("m_prev_pos", &Transform::m_prev_pos, "Previous Positon");
  visit("m_prev_rotate", &Transform::m_prev_rotate, "Previous Rotate", FieldBounds{-180.0, 180.0});
  visit("m_world_pos", &Transform::m_world_pos, "World Position");
  visit("m_world_scale", &Transform::m_world_scale, "World Scale");
  visit("m_world_rotate", &Transform::m_world_rotate, "World Rotate", FieldBounds{-180.0, 180.0});
  visit("CanBeDragged", &Transform::CanBeDragged, "Can Be Dragged");
  visit("m_rotate_with_parent", &Transform::m_rotate_with_parent, "Rotate with parent");
}

ZOV_COMPONENT_FORMS(Transform)

ZOV_REGISTRATION(Transform) {
  RegisterFields(ComponentRegistration<Transform>("Transform"))
      .Method("SetLocalPosition", &Transform::SetLocalPosition)
      .Method("GetRotate", &Transform::GetRotate)
      .Method("SetWorldPosition", &Transform::SetWorldPosition)
      .Method("RotateAround", &Transform::RotateAround);
}

void Transform::Unserialize(const Value& value) {
  ReadFields(value, this);
  m_prev_pos = m_local_pos;
  m_prev_rotate = m_local_rotate;
}

void Transform::Serialize(Writer& writer) {
  WriteFields(writer, *this);
}

void Transform::SetLocalPosition(Vector3D p) {
  m_local_pos = p;
  m_prev_pos = p;
}

Matrix4x4 Transform::GetRotate(Transform* t) {
  return Matrix4x4::Rotation(t->m_local_rotate);
}

void Transform::SetWorldPosition(Vector3D p) {
  m_world_pos = p;
  m_local_pos = p;
  for (GameObj* ancestor = m_owner->parent; ancestor != nullptr; ancestor = ancestor->parent) {
    const Transform* a = FindTransform(ancestor);
    if (a == nullptr) continue;
    const Matrix4x4 back = Matrix4x4::Translation(a->m_local_pos.x, a->m_local_pos.y);
    Matrix4x4 undo;
    float det = 0.0f;
    Inverse(&undo, &det, back);
    if (m_rotate_with_parent) {
      Matrix4x4 turn_back;
      Inverse(&turn_back, &det, Matrix4x4::Rotation(a->m_local_rotate));
      undo = turn_back * undo;
    }
    m_local_pos = undo * m_local_pos;
  }
}

void Transform::RotateAround(Vector3D pivot, float degrees) {
  const float radians = DegreesToRadians(degrees);
  const float cosine = std::cos(radians);
  const float sine = std::sin(radians);
  const float dx = m_local_pos.x - pivot.x;
  const float dy = m_local_pos.y - pivot.y;
  m_local_pos.x = dx * cosine - dy * sine + pivot.x;
  m_local_pos.y = dx * sine + dy * cosine + pivot.y;
  m_local_pos.z = 1.0f + pivot.z;
  m_local_rotate += degrees;
}

namespace {

/// Turns and moves the world set of `t` by the local values of its ancestor `a`.
void FollowAncestor(Transform* t, const Transform& a) {
  const Matrix4x4 turn = Matrix4x4::Rotation(a.m_local_rotate);
  const Matrix4x4 both = turn * Matrix4x4::Rotation(t->m_world_rotate);
  t->m_world_rotate = std::atan2(both.at[1][0], both.at[0][0]) * 180.0f / kPi;
  t->m_world_pos =
      (Matrix4x4::Translation(a.m_local_pos.x, a.m_local_pos.y) * turn) * t->m_world_pos;
}

/// Moves the world set of `t` by its ancestor's position alone. The depth is deliberately forced
/// to 1.
void CarryAlong(Transform* t, const Transform& a) {
  t->m_world_pos.x += a.m_local_pos.x;
  t->m_world_pos.y += a.m_local_pos.y;
  t->m_world_pos.z = 1.0f;
}

}  // namespace

void Transform::FollowAncestors() {
  for (GameObj* ancestor = m_owner->parent; ancestor != nullptr; ancestor = ancestor->parent) {
    const Transform* a = FindTransform(ancestor);
    if (a == nullptr) continue;
    m_world_scale.x *= a->m_local_scale.x;
    m_world_scale.y *= a->m_local_scale.y;
    m_world_scale.z *= a->m_local_scale.z;
    if (m_rotate_with_parent) {
      FollowAncestor(this, *a);
    } else {
      CarryAlong(this, *a);
    }
  }
}

}  // namespace ZOVEngine
