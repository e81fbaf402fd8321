#include "render/passes/spritepass.h"

#include "objects/componentmanager.h"
#include "objects/statec.h"
#include "render/components/imodel.h"
#include "render/painter.h"
#include "render/passes/animationstep.h"
#include "render/passes/debugoverlay.h"
#include "render/passes/placement.h"

namespace ZOVEngine {
namespace {

/// Whether the object's state lets an animation take over; `plain_state` is a second name, beside
/// "default", under which this pass draws the plain sprite.
bool IsAnimated(const Sprite& sprite, const char* plain_state) {
  constexpr std::uint32_t kNeeded = kHasAnimation | kHasState;
  if ((sprite.traits & kNeeded) != kNeeded) return false;
  const std::string& state = sprite.render->m_owner->GetComponent<StateC>()->m_state;
  return state != "default" && state != plain_state;
}

bool IsSelected(const Render& render, std::int32_t selected_id) {
  return static_cast<std::int32_t>(render.m_owner->id) == selected_id;
}

/// Draws the plain sprite with its own geometry.
void DrawPlain(const Render& render, const iModel& model, const Placement& placement,
               const SpriteStep& step, Painter& painter) {
  painter.SetQuad(0.0f, 1.0f);
  painter.BindTexture(IsSelected(render, step.selected_id) ? render.m_hl_tex : render.m_tex);
  if (IsSharedQuad(model)) {
    painter.UploadQuad();
    painter.DrawQuadIndices(SpriteProgram(render), placement, render.m_colour,
                            model.m_index_buffer.size());
  } else {
    painter.DrawModel(SpriteProgram(render), placement, render.m_colour, model);
  }
}

/// Draws the current frame of the animation, on the shared quad with the model's own index count.
void DrawAnimated(Render& render, const iModel& model, const Placement& placement,
                  const SpriteStep& step, Painter& painter) {
  AnimationStep(render, step.dt, painter);
  painter.DrawQuadIndices(SpriteProgram(render), placement, render.m_colour,
                          model.m_index_buffer.size());
}

void DrawSprite(const Sprite& sprite, const char* plain_state, const Placement& placement,
                const SpriteStep& step, Painter& painter) {
  const iModel& model = sprite.GetModel();
  if (IsAnimated(sprite, plain_state)) {
    DrawAnimated(*sprite.render, model, placement, step, painter);
  } else {
    DrawPlain(*sprite.render, model, placement, step, painter);
  }
  painter.UploadQuad();
}

}  // namespace

void WorldPass(const std::vector<Sprite>& sprites, const SpriteStep& step, Painter& painter) {
  for (std::size_t i = 0; i < sprites.size(); ++i) {
    PrefetchAhead(sprites, i);
    const Sprite& sprite = sprites[i];
    if (!sprite.render->m_visible) continue;
    const Placement placement = SpritePlacement(sprite.GetTransform());
    DrawSprite(sprite, "damaged", placement, step, painter);
    if (step.collided_ids == nullptr) continue;
    DrawDebugOutlines(sprite, placement, *step.collided_ids, painter);
  }
}

void InterfacePass(const std::vector<Sprite>& sprites, const SpriteStep& step, float view_depth,
                   Painter& painter) {
  for (const Sprite& sprite : sprites) {
    if (!sprite.render->m_visible) continue;
    Placement placement = SpritePlacement(sprite.GetTransform());
    placement.translate.z -= view_depth;
    DrawSprite(sprite, "move", placement, step, painter);
  }
}

}  // namespace ZOVEngine
