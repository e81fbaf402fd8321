#include "render/passes/lightpass.h"

#include "objects/componentmanager.h"
#include "render/components/light.h"
#include "render/components/render.h"
#include "render/passes/placement.h"

namespace ZOVEngine {
namespace {

bool IsHidden(GameObj* object) {
  return object->HasComponent<Render>() && !object->GetComponent<Render>()->m_visible;
}

LightRecord MakeRecord(const Light& light) {
  LightRecord record;
  record.position = light.m_pos + RequireTransform(light.m_owner, "Light").m_world_pos;
  record.ambient = light.m_ambient;
  record.diffuse = light.m_diffuse;
  record.specular = light.m_specular;
  record.ambientStr = light.m_ambientStr;
  record.diffuseStr = light.m_diffuseStr;
  record.specularStr = light.m_specularStr;
  return record;
}

}  // namespace

void LightPass(ComponentArray<Light> lights, std::vector<LightRecord>* out) {
  for (const Light* light : lights) {
    if (light->m_active && !IsHidden(light->m_owner)) out->push_back(MakeRecord(*light));
  }
}

}  // namespace ZOVEngine
