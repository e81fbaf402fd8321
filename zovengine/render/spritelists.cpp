#include "render/spritelists.h"

#include <string_view>

#include "game/camera.h"
#include "game/hazards/environmentdamage.h"
#include "game/hazards/environmentrough.h"
#include "objects/statec.h"
#include "physics/components/colliderholder.h"
#include "physics/components/transform.h"
#include "render/components/animation.h"
#include "render/components/imodel.h"
#include "render/components/particle.h"
#include "render/components/render.h"

namespace ZOVEngine {
namespace {

constexpr std::string_view kInstanced = "instanced";

std::uint32_t Trait(ComponentType type) {
  if (type == &typeid(Transform)) return kHasTransform;
  if (type == &typeid(iModel)) return kHasModel;
  if (type == &typeid(Animation)) return kHasAnimation;
  if (type == &typeid(StateC)) return kHasState;
  if (type == &typeid(ColliderHolder)) return kHasCollider;
  if (type == &typeid(Particle)) return kHasParticle;
  if (type == &typeid(EnvironmentDamage) || type == &typeid(EnvironmentRough)) return kIsHazard;
  return 0;
}

std::uint32_t FindTraits(const GameObj& object) {
  std::uint32_t traits = 0;
  for (const ComponentType type : object.components) traits |= Trait(type);
  return traits;
}

void RequireTrait(const Sprite& sprite, SpriteTrait trait, const char* component) {
  ZOV_ASSERT((sprite.traits & trait) != 0,
             "Object \"" + sprite.render->m_owner->name + "\" has a Render and no " + component);
}

}  // namespace

Transform& Sprite::GetTransform() const {
  RequireTrait(*this, kHasTransform, "Transform");
  return *transform;
}

iModel& Sprite::GetModel() const {
  RequireTrait(*this, kHasModel, "iModel");
  return *render->m_owner->GetComponent<iModel>();
}

void SpriteLists::Fill(ComponentArray<Render> components) {
  for (auto* list : {&tiles, &instances, &hazards, &world, &interface}) list->clear();
  // Clones of an archetype, which have equal lists of components, stand in rows.
  const GameObj* last = nullptr;
  std::uint32_t traits = 0;
  for (Render* render : components) {
    GameObj& object = *render->m_owner;
    if (last == nullptr || last->components != object.components) traits = FindTraits(object);
    last = &object;
    const bool has_transform = (traits & kHasTransform) != 0;
    const Sprite sprite{render, has_transform ? object.GetComponent<Transform>() : nullptr, traits};
    if ((sprite.traits & kHasParticle) != 0 && render->m_shader == kInstanced) {
      instances.push_back(sprite);
    }
    if (render->m_tile) {
      tiles.push_back(sprite);
    } else if (object.parent != nullptr && object.parent->HasComponent<Camera>()) {
      interface.push_back(sprite);
    } else {
      ((sprite.traits & kIsHazard) != 0 ? hazards : world).push_back(sprite);
    }
  }
}

}  // namespace ZOVEngine
