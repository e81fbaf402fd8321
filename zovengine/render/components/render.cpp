#include "render/components/render.h"

#include "objects/componentmanager.h"
#include "objects/fields.h"
#include "physics/components/transform.h"

namespace ZOVEngine {

Render::Render(GameObj* owner) : GameComponentBase(owner) {
  if (owner->HasComponent<Transform>()) OwnTransform();
}

Transform* Render::OwnTransform() {
  if (m_transform_owner != m_owner) {
    m_transform = m_owner->GetComponent<Transform>();
    m_transform_owner = m_owner;
  }
  return m_transform;
}

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
