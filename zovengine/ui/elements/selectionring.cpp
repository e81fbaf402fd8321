#include "ui/elements/selectionring.h"

#include "game/objectquery.h"
#include "game/units/enemy.h"
#include "physics/components/transform.h"
#include "render/components/render.h"
#include "ui/elements/uielement.h"

namespace ZOVEngine {
namespace {

constexpr float kOpen = 20.0f;   ///< scale at the start, in sizes of the unit
constexpr float kClosed = 1.0f;  ///< scale of the outline
constexpr float kShrink = 0.7f;  ///< by which the scale shrinks in a step
constexpr float kShrinkOfBoss = 0.4f;

struct Ring {
  Unit* unit = nullptr;
  bool boss = false;
  Render* render = nullptr;
  Transform* transform = nullptr;

  explicit operator bool() const { return unit && render && transform; }
};

/// The ring and its unit; false if the element is not on a ring of a unit.
Ring FindRing(UIElement* element) {
  GameObj* parent = element->m_owner->parent;
  if (parent == nullptr) return {};
  const auto* enemy = FindComponent<Enemy>(parent);
  return {FindUnit(parent), enemy != nullptr && enemy->m_boss,
          FindComponent<Render>(element->m_owner), FindComponent<Transform>(element->m_owner)};
}

void Scale(Transform* transform, float scale) {
  transform->m_local_scale.x = transform->m_local_scale.y = scale;
}

const char* RingTexture(const Ring& ring) {
  if (ring.boss) return "UI_CirclePurple";
  return ring.unit->m_owner->HasComponent<Enemy>() ? "UI_CircleRed" : "UI_CircleGreen";
}

void Close(UIElement* element, const Ring& ring) {
  if (ring.boss) ring.render->m_visible = false;
  ring.render->m_tex = "UnitBeetle_SelectedOutline";
  Scale(ring.transform, kClosed);
  if (element->m_ring_announced) return;
  ring.unit->ShowWeaponLabel();
  element->m_ring_announced = true;
}

}  // namespace

void CloseRing(UIElement* element) {
  const Ring ring = FindRing(element);
  if (!ring) return;
  ring.render->m_active = ring.render->m_visible = true;
  const float step = ring.boss ? kShrinkOfBoss : kShrink;
  ring.transform->m_local_scale.x -= step;
  ring.transform->m_local_scale.y -= step;
  if (!ring.unit->m_alive) ring.render->m_active = ring.render->m_visible = false;
  ring.render->m_tex = RingTexture(ring);
  if (ring.transform->m_local_scale.x <= kClosed) Close(element, ring);
}

void ResetRing(UIElement* element) {
  element->m_ring_announced = false;
  const Ring ring = FindRing(element);
  if (!ring) return;
  Scale(ring.transform, kOpen);
  ring.render->m_visible = false;
}

}  // namespace ZOVEngine
