#include "render/spritelists.h"

#include <string_view>

#include "core/base/prefetch.h"
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

template <class T>
T* FindComponent(GameObj& object, std::uint32_t traits, SpriteTrait trait) {
  return (traits & trait) != 0 ? object.GetComponent<T>() : nullptr;
}

/// Has the processor begin to load the objects behind `index`: far ahead the Render, then its
/// object, then the object's list of components.
void PrefetchObjects(ComponentArray<Render> components, std::size_t index) {
  constexpr std::size_t kAhead = 4;
  if (index + 3 * kAhead >= components.size()) return;
  const Render* render = components[index + 3 * kAhead];
  Prefetch(&render->m_owner);
  Prefetch(&render->m_shader);
  const GameObj* object = components[index + 2 * kAhead]->m_owner;
  Prefetch(&object->id);
  Prefetch(&object->components);
  Prefetch(components[index + kAhead]->m_owner->components.data());
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
  return *model;
}

void SpriteLists::Fill(ComponentArray<Render> components, bool (*hides)(const GameObj&)) {
  for (auto* list : {&tiles, &instances, &hazards, &world, &interface}) list->clear();
  // Clones of an archetype, which have equal lists of components, stand in rows.
  const GameObj* last = nullptr;
  std::uint32_t traits = 0;
  for (std::size_t i = 0; i < components.size(); ++i) {
    PrefetchObjects(components, i);
    Render* render = components[i];
    GameObj& object = *render->m_owner;
    if (hides != nullptr && hides(object)) continue;
    if (last == nullptr || last->components != object.components) traits = FindTraits(object);
    last = &object;
    const Sprite sprite{render, FindComponent<Transform>(object, traits, kHasTransform),
                        FindComponent<iModel>(object, traits, kHasModel), traits};
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

void PrefetchAhead(const std::vector<Sprite>& sprites, std::size_t index) {
  constexpr std::size_t kAhead = 6;
  if (index + kAhead >= sprites.size()) return;
  const Sprite& sprite = sprites[index + kAhead];
  Prefetch(&sprite.render->m_visible);
  Prefetch(&sprite.render->m_colour);
  Prefetch(&sprite.render->m_shader);
  if (sprite.transform != nullptr) Prefetch(&sprite.transform->m_world_pos);
  if (sprite.model != nullptr) Prefetch(&sprite.model->m_vertices);
}

}  // namespace ZOVEngine
