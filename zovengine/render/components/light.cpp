#include "render/components/light.h"

#include "objects/fields.h"

namespace ZOVEngine {

template <class Visitor>
void Light::Fields(Visitor& visit) {
  visit("m_active", &Light::m_active);
  visit("m_pos", &Light::m_pos);
  visit("m_diffuse", &Light::m_diffuse);
  visit("m_specular", &Light::m_specular);
  visit("m_ambient", &Light::m_ambient);
  visit("m_diffuseStr", &Light::m_diffuseStr);
  visit("m_specularStr", &Light::m_specularStr);
  visit("m_ambientStr", &Light::m_ambientStr);
}
ZOV_COMPONENT_FILE(Light)

}  // namespace ZOVEngine
