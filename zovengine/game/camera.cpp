#include "game/camera.h"

namespace ZOVEngine {

Camera::Camera(GameObj* owner) : LogicComponent(owner) {
  m_active = false;
}

void Camera::Unserialize(const Value& value) {
  ReadVector3D(value, "m_offset", &m_offset);
  ReadValue(value, "m_shakemag", &m_shakemag);
  ReadValue(value, "m_xlimit", &m_xlimit);
  ReadValue(value, "m_ylimit", &m_ylimit);
}

void Camera::Serialize(Writer& writer) {
  WriteVector3D(writer, "m_offset", m_offset);
  WriteValue(writer, "m_shakemag", m_shakemag);
  WriteValue(writer, "m_xlimit", m_xlimit);
  WriteValue(writer, "m_ylimit", m_ylimit);
}

void Camera::Update(float) {
  if (!m_init) Init();
}

}  // namespace ZOVEngine
