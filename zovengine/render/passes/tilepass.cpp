#include "render/passes/tilepass.h"

#include "render/painter.h"
#include "render/passes/placement.h"

namespace ZOVEngine {

void TilePass(const std::vector<Sprite>& tiles, Painter& painter) {
  for (const Sprite& sprite : tiles) {
    const Render& render = *sprite.render;
    if (!render.m_visible) continue;
    painter.BindTexture(render.m_tex);
    painter.DrawQuad(SpriteProgram(render), SpritePlacement(sprite.GetTransform()),
                     render.m_colour);
  }
}

}  // namespace ZOVEngine
