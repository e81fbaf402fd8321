#include "physics/components/rigidbody.h"

#include "jsonunserializer.h"
#include "objects/reflection.h"

RTTR_REGISTRATION {
  using ZOVEngine::RigidBody;
  ZOVEngine::ComponentRegistration<RigidBody>("RigidBody")
      .Field("m_mass", &RigidBody::m_mass, "float", "Mass", "float")
      .Field("m_inertia", &RigidBody::m_inertia, "float", "Inertia", "float")
      .Field("m_drag", &RigidBody::m_drag, "float", "Drag", "float")
      .Field("m_angular_drag", &RigidBody::m_angular_drag, "float", "Ang Drag", "float")
      .Field("m_rest", &RigidBody::m_rest, "float", "Rest", "float");
}

namespace ZOVEngine {
namespace {

float InverseOf(float value) {
  return value > 0.0f ? 1.0f / value : 0.0f;
}

}  // namespace

void RigidBody::Unserialize(const Value& value) {
  ReadVector3D(value, "m_vel", &m_vel);
  ReadVector3D(value, "m_accel", &m_accel);
  ReadValue(value, "m_mass", &m_mass);
  ReadValue(value, "m_inertia", &m_inertia);
  ReadVector3D(value, "m_sleeper_vel", &m_sleeper_vel);
  ReadValue(value, "m_sleeper_rot_vel", &m_sleeper_rot_vel);
  ReadValue(value, "m_drag", &m_drag);
  ReadValue(value, "m_angular_drag", &m_angular_drag);
  ReadValue(value, "m_rest", &m_rest);
  m_inv_mass = InverseOf(m_mass);
  m_inv_inertia = InverseOf(m_inertia);
}

void RigidBody::Serialize(Writer& writer) {
  WriteVector3D(writer, "m_vel", m_vel);
  WriteVector3D(writer, "m_accel", m_accel);
  WriteValue(writer, "m_mass", m_mass);
  WriteValue(writer, "m_inertia", m_inertia);
  WriteVector3D(writer, "m_sleeper_vel", m_sleeper_vel);
  WriteValue(writer, "m_sleeper_rot_vel", m_sleeper_rot_vel);
  WriteValue(writer, "m_drag", m_drag);
  WriteValue(writer, "m_angular_drag", m_angular_drag);
  WriteValue(writer, "m_rest", m_rest);
}

}  // namespace ZOVEngine
