#include "ui/elements/uielement.h"

#include "jsonunserializer.h"
#include "objects/reflection.h"

RTTR_REGISTRATION {
  using ZOVEngine::UIElement;
  ZOVEngine::ComponentRegistration<UIElement>("UIElement")
      .Field("m_ui_element_name", &UIElement::m_ui_element_name, "std::string", "UI Element Name");
}

namespace ZOVEngine {

void UIElement::Unserialize(const Value& value) {
  ReadValue(value, "m_ui_element_name", &m_ui_element_name);
}

void UIElement::Serialize(Writer& writer) {
  WriteValue(writer, "m_ui_element_name", m_ui_element_name);
}

void UIElement::Update(float dt) {
  m_dt = dt;
  if (!m_init) Init();
}

}  // namespace ZOVEngine
