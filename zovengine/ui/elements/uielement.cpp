#include "ui/elements/uielement.h"

#include "game/objectquery.h"
#include "objects/componentmanager.h"
#include "objects/fields.h"
#include "physics/components/transform.h"
#include "ui/elements/behaviours.h"

namespace ZOVEngine {

template <class Visitor>
void UIElement::Fields(Visitor& visit) {
  visit("m_ui_element_name", &UIElement::m_ui_element_name, "UI Element Name");
}
ZOV_COMPONENT_FIELDS(UIElement)

void UIElement::Init() {
  m_init = true;
  if (const auto* transform = FindComponent<Transform>(m_owner)) {
    m_bar_scale = transform->m_local_scale.x;
    m_bar_x = transform->m_local_pos.x;
    m_bar_left = m_bar_x - m_bar_scale * 0.5f;
  }
  m_fade_armed = m_banner_armed = false;
}

void UIElement::Update(float dt) {
  m_dt = dt;
  if (!m_init) Init();
  RunElementBehaviour(this);
}

}  // namespace ZOVEngine
