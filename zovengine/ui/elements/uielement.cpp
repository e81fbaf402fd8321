#include "ui/elements/uielement.h"

#include "objects/fields.h"

namespace ZOVEngine {

template <class Visitor>
void UIElement::Fields(Visitor& visit) {
  visit("m_ui_element_name", &UIElement::m_ui_element_name, "UI Element Name");
}
ZOV_COMPONENT_FIELDS(UIElement)

void UIElement::Update(float dt) {
  m_dt = dt;
  if (!m_init) Init();
}

}  // namespace ZOVEngine
