#include "render/components/light.h"

#include "jsonunserializer.h"

namespace ZOVEngine {

void Light::Unserialize(const Value& value) {
  ReadValue(value, "m_active", &m_active);
  ReadVector3D(value, "m_pos", &m_pos);
  ReadVector3D(value, "m_diffuse", &m_diffuse);
  ReadVector3D(value, "m_specular", &m_specular);
  ReadVector3D(value, "m_ambient", &m_ambient);
  ReadValue(value, "m_diffuseStr", &m_diffuseStr);
  ReadValue(value, "m_specularStr", &m_specularStr);
  ReadValue(value, "m_ambientStr", &m_ambientStr);
}

void Light::Serialize(Writer& writer) {
  WriteValue(writer, "m_active", m_active);
  WriteVector3D(writer, "m_pos", m_pos);
  WriteVector3D(writer, "m_diffuse", m_diffuse);
  WriteVector3D(writer, "m_specular", m_specular);
  WriteVector3D(writer, "m_ambient", m_ambient);
  WriteValue(writer, "m_diffuseStr", m_diffuseStr);
  WriteValue(writer, "m_specularStr", m_specularStr);
  WriteValue(writer, "m_ambientStr", m_ambientStr);
}

}  // namespace ZOVEngine
