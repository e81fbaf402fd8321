#include "physics/components/rigidbody.h"

#include "objects/fields.h"

namespace ZOVEngine {
namespace {

float Inverse(float value) {
  return value > 0.0f ? 1.0f / value : 0.0f;
}

}  // namespace

template <class Visitor>
void RigidBody::Fields(Visitor& visit) {
  visit("m_vel", &RigidBody::m_vel);
  visit("m_accel", &RigidBody::m_accel);
  visit("m_mass", &RigidBody::m_mass, "Mass", "float", FieldBounds{0.0, 5000.0});
  visit("m_inertia", &RigidBody::m_inertia, "Inertia", "float", FieldBounds{0.0, 1.0e6});
  visit("m_sleeper_vel", &RigidBody::m_sleeper_vel);
  visit("m_sleeper_rot_vel", &RigidBody::m_sleeper_rot_vel);
  visit("m_drag", &RigidBody::m_drag, "Drag", "float", FieldBounds{0.0, 60.0});
  visit("m_angular_drag", &RigidBody::m_angular_drag, "Ang Drag", "float", FieldBounds{0.0, 60.0});
  visit("m_rest", &RigidBody::m_rest, "Rest", "float", FieldBounds{0.0, 1.0});
}
ZOV_COMPONENT_FORMS(RigidBody)
ZOV_COMPONENT_INSPECTED(RigidBody)

void RigidBody::Unserialize(const Value& value) {
  ReadFields(value, this);
  m_inv_mass = Inverse(m_mass);
  m_inv_inertia = Inverse(m_inertia);
}

void RigidBody::Serialize(Writer& writer) {
  WriteFields(writer, *this);
}

}  // namespace ZOVEngine
