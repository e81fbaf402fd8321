#include "physics/components/transform.h"

#include "jsonunserializer.h"
#include "objects/componentmanager.h"
#include "objects/reflection.h"

RTTR_REGISTRATION {
  using ZOVEngine::Transform;
  ZOVEngine::ComponentRegistration<Transform>("Transform")
      .Field("m_local_pos", &Transform::m_local_pos, "Vector3", "Local Position")
      .Field("m_local_scale", &Transform::m_local_scale, "Vector3", "Local Scale")
      .Field("m_local_rotate", &Transform::m_local_rotate, "float", "Local Rotate")
      .Field("m_prev_pos", &Transform::m_prev_pos, "Vector3", "Previous Positon")
      .Field("m_prev_rotate", &Transform::m_prev_rotate, "float", "Previous Rotate")
      .Field("m_world_pos", &Transform::m_world_pos, "Vector3", "World Position")
      .Field("m_world_scale", &Transform::m_world_scale, "Vector3", "World Scale")
      .Field("m_world_rotate", &Transform::m_world_rotate, "float", "World Rotate")
      .Field("CanBeDragged", &Transform::CanBeDragged, "bool", "Can Be Dragged")
      .Field("m_rotate_with_parent", &Transform::m_rotate_with_parent, "bool", "Rotate with parent")
      .Method("SetLocalPosition", &Transform::SetLocalPosition)
      .Method("GetRotate", &Transform::GetRotate)
      .Method("SetWorldPosition", &Transform::SetWorldPosition)
      .Method("RotateAround", &Transform::RotateAround);
}

namespace ZOVEngine {
namespace {

/// The Transform of an ancestor, or null for one without.
Transform* TransformOf(GameObj* object) {
  return object->HasComponent<Transform>() ? object->GetComponent<Transform>() : nullptr;
}

}  // namespace

void Transform::Unserialize(const Value& value) {
  ReadVector3D(value, "m_pos", &m_local_pos);
  m_prev_pos = m_local_pos;
  ReadVector3D(value, "m_scale", &m_local_scale);
  ReadValue(value, "m_rotate", &m_local_rotate);
  m_prev_rotate = m_local_rotate;
  ReadValue(value, "m_rotate_with_parent", &m_rotate_with_parent);
  ReadVector3D(value, "m_world_scale", &m_world_scale);
  ReadValue(value, "m_world_rotate", &m_world_rotate);
  ReadVector3D(value, "m_world_pos", &m_world_pos);
}

void Transform::Serialize(Writer& writer) {
  WriteVector3D(writer, "m_pos", m_local_pos);
  WriteVector3D(writer, "m_scale", m_local_scale);
  WriteValue(writer, "m_rotate", m_local_rotate);
  WriteVector3D(writer, "m_world_scale", m_world_scale);
  WriteValue(writer, "m_world_rotate", m_world_rotate);
  WriteVector3D(writer, "m_world_pos", m_world_pos);
  WriteValue(writer, "m_rotate_with_parent", m_rotate_with_parent);
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
    const Transform* a = TransformOf(ancestor);
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

void Transform::DeriveWorld() {
  m_world_pos = m_local_pos;
  m_world_rotate = m_local_rotate;
  m_world_scale = m_local_scale;
  for (GameObj* ancestor = m_owner->parent; ancestor != nullptr; ancestor = ancestor->parent) {
    const Transform* a = TransformOf(ancestor);
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
