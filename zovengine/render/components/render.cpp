#include "render/components/render.h"

#include "objects/fields.h"

namespace ZOVEngine {

template <class Visitor>
void Render::Fields(Visitor& visit) {
  visit("m_tile", &Render::m_tile);
  visit("m_visible", &Render::m_visible);
  visit("m_zLayer", &Render::m_zLayer);
  visit("m_tex", &Render::m_tex);
  visit("m_hl_tex", &Render::m_hl_tex);
  visit("m_colour", &Render::m_colour);
  visit("m_shader", &Render::m_shader);
}
ZOV_COMPONENT_FILE(Render)

}  // namespace ZOVEngine
