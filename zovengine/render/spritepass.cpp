#include <algorithm>
#include <cmath>

#include "objects/statec.h"
#include "physics/components/colliderholder.h"
#include "render/animationstep.h"
#include "render/components/imodel.h"
#include "render/passes.h"
#include "render/placement.h"
#include "render/rendersystem.h"

namespace ZOVEngine {
namespace {

constexpr Colour kRed = {1.0f, 0.0f, 0.0f, 1.0f};
constexpr Colour kYellow = {1.0f, 1.0f, 0.0f, 1.0f};

/// The texture of all debug outlines.
void BindOutlineTexture(Painter& painter) {
  static const std::string kTexture = "default";
  painter.BindTexture(kTexture);
}

/// Whether the object's state lets an animation take over; `plain_state` is a second name, beside
/// "default", under which this pass draws the plain sprite.
bool IsAnimated(const Sprite& sprite, const char* plain_state) {
  constexpr std::uint32_t kNeeded = kHasAnimation | kHasState;
  if ((sprite.traits & kNeeded) != kNeeded) return false;
  const std::string& state = sprite.render->m_owner->GetComponent<StateC>()->m_state;
  return state != "default" && state != plain_state;
}

/// One vertex stands for the shared quad.
bool IsSharedQuad(const iModel& model) {
  return model.m_vertices.size() == 1;
}

bool IsSelected(const RenderSystem& system, const Render& render) {
  return static_cast<std::int32_t>(render.m_owner->id) == system.m_selected_id;
}

/// Draws the plain sprite with its own geometry.
void DrawPlain(RenderSystem& system, const Render& render, const iModel& model,
               const Placement& placement) {
  Painter& painter = system.m_painter;
  painter.SetQuad(0.0f, 1.0f);
  painter.BindTexture(IsSelected(system, render) ? render.m_hl_tex : render.m_tex);
  if (IsSharedQuad(model)) {
    painter.UploadQuad();
    painter.DrawQuadIndices(ProgramOf(render), placement, render.m_colour,
                            model.m_index_buffer.size());
  } else {
    painter.DrawModel(ProgramOf(render), placement, render.m_colour, model);
  }
}

/// Draws the current frame of the animation, on the shared quad with the model's own index count.
void DrawAnimated(RenderSystem& system, Render& render, const iModel& model,
                  const Placement& placement) {
  AnimationStep(render, system.m_dt, system.m_painter);
  system.m_painter.DrawQuadIndices(ProgramOf(render), placement, render.m_colour,
                                   model.m_index_buffer.size());
}

void DrawSprite(RenderSystem& system, const Sprite& sprite, const char* plain_state,
                const Placement& placement) {
  const iModel& model = sprite.GetModel();
  if (IsAnimated(sprite, plain_state)) {
    DrawAnimated(system, *sprite.render, model, placement);
  } else {
    DrawPlain(system, *sprite.render, model, placement);
  }
  system.m_painter.UploadQuad();
}

/// The object's geometry, white while it touches another object.
void DrawModelOutline(RenderSystem& system, const Sprite& sprite, const Placement& placement) {
  const std::vector<std::int32_t>& ids = system.m_collided_ids;
  const auto id = static_cast<std::int32_t>(sprite.render->m_owner->id);
  const bool touches = std::find(ids.begin(), ids.end(), id) != ids.end();
  const Colour& colour = touches ? kWhite : kRed;
  const iModel& model = sprite.GetModel();
  if (IsSharedQuad(model)) {
    system.m_painter.DrawQuadOutline(placement, colour);
  } else {
    system.m_painter.DrawModelOutline(placement, colour, model);
  }
}

/// The axis-aligned box of the object's collider, centred on the object.
void DrawBounds(RenderSystem& system, const Vector3D& position, const iCollider& collider) {
  const Vector3D extent = collider.m_max - position;
  Placement placement;
  placement.translate = Vector3D(position.x, position.y, 0.0f);
  placement.scale = Vector3D(2.0f * std::abs(extent.x), 2.0f * std::abs(extent.y), 1.0f);
  system.m_painter.DrawQuadOutline(placement, kYellow);
}

void DrawDebugOutlines(RenderSystem& system, const Sprite& sprite, const Placement& placement) {
  const Render& render = *sprite.render;
  if (!render.m_debug_outline || (sprite.traits & kHasCollider) == 0) return;
  const ColliderHolder& holder = *render.m_owner->GetComponent<ColliderHolder>();
  BindOutlineTexture(system.m_painter);
  if (holder.m_collider_type != "Circle") DrawModelOutline(system, sprite, placement);
  if (holder.m_collider != nullptr) {
    DrawBounds(system, sprite.GetTransform().m_world_pos, *holder.m_collider);
  }
}

void DrawWorldSprites(RenderSystem& system, const std::vector<Sprite>& sprites) {
  for (const Sprite& sprite : sprites) {
    if (!sprite.render->m_visible) continue;
    const Placement placement = PlacementOf(sprite.GetTransform());
    DrawSprite(system, sprite, "damaged", placement);
    if (system.m_debug_draw) DrawDebugOutlines(system, sprite, placement);
  }
}

}  // namespace

void HazardPass(RenderSystem& system) {
  DrawWorldSprites(system, system.m_sprites.hazards);
}

void WorldPass(RenderSystem& system) {
  DrawWorldSprites(system, system.m_sprites.world);
}

void InterfacePass(RenderSystem& system) {
  for (const Sprite& sprite : system.m_sprites.interface) {
    if (!sprite.render->m_visible) continue;
    Placement placement = PlacementOf(sprite.GetTransform());
    placement.translate.z -= system.m_view_translate.z;
    DrawSprite(system, sprite, "move", placement);
  }
}

void TreePass(RenderSystem& system) {
  if (!system.m_debug_draw || system.m_tree_lister == nullptr) return;
  system.m_tree_rectangles.clear();
  system.m_tree_lister(&system.m_tree_rectangles);
  BindOutlineTexture(system.m_painter);
  for (const TreeRectangle& rectangle : system.m_tree_rectangles) {
    Placement placement;
    placement.translate = (rectangle.min + rectangle.max) * 0.5f;
    placement.scale = rectangle.max - rectangle.min;
    system.m_painter.DrawQuadOutline(placement, kYellow);
  }
}

}  // namespace ZOVEngine
