#include "render/passes/debugoverlay.h"

#include <algorithm>
#include <cmath>

#include "objects/componentmanager.h"
#include "physics/components/colliderholder.h"
#include "physics/components/transform.h"
#include "render/components/imodel.h"
#include "render/components/render.h"
#include "render/painter.h"

namespace ZOVEngine {
namespace {

constexpr Colour kRed = {1.0f, 0.0f, 0.0f, 1.0f};
constexpr Colour kYellow = {1.0f, 1.0f, 0.0f, 1.0f};

/// The texture of all debug outlines.
void BindOutlineTexture(Painter& painter) {
  static const std::string kTexture = "default";
  painter.BindTexture(kTexture);
}

bool Touches(const GameObj& object, const std::vector<std::int32_t>& collided_ids) {
  const auto id = static_cast<std::int32_t>(object.id);
  return std::find(collided_ids.begin(), collided_ids.end(), id) != collided_ids.end();
}

void DrawModelOutline(const iModel& model, const Placement& placement, const Colour& colour,
                      Painter& painter) {
  if (IsSharedQuad(model)) {
    painter.DrawQuadOutline(placement, colour);
  } else {
    painter.DrawModelOutline(placement, colour, model);
  }
}

/// The axis-aligned box of the object's collider, centred on the object.
void DrawBounds(const Vector3D& position, const iCollider& collider, Painter& painter) {
  const Vector3D extent = collider.m_max - position;
  Placement placement;
  placement.translate = Vector3D(position.x, position.y, 0.0f);
  placement.scale = Vector3D(2.0f * std::abs(extent.x), 2.0f * std::abs(extent.y), 1.0f);
  painter.DrawQuadOutline(placement, kYellow);
}

}  // namespace

void DrawDebugOutlines(const Sprite& sprite, const Placement& placement,
                       const std::vector<std::int32_t>& collided_ids, Painter& painter) {
  if (!sprite.render->m_debug_outline || (sprite.traits & kHasCollider) == 0) return;
  GameObj& object = *sprite.render->m_owner;
  const ColliderHolder& holder = *object.GetComponent<ColliderHolder>();
  BindOutlineTexture(painter);
  if (holder.m_collider_type != "Circle") {
    const Colour& colour = Touches(object, collided_ids) ? kWhite : kRed;
    DrawModelOutline(sprite.GetModel(), placement, colour, painter);
  }
  if (holder.m_collider != nullptr) {
    DrawBounds(sprite.GetTransform().m_world_pos, *holder.m_collider, painter);
  }
}

void TreePass(const std::vector<TreeRectangle>& rectangles, Painter& painter) {
  BindOutlineTexture(painter);
  for (const TreeRectangle& rectangle : rectangles) {
    Placement placement;
    placement.translate = (rectangle.min + rectangle.max) * 0.5f;
    placement.scale = rectangle.max - rectangle.min;
    painter.DrawQuadOutline(placement, kYellow);
  }
}

}  // namespace ZOVEngine
