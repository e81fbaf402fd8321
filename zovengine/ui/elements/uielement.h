#pragma once

#include <string>

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// A piece of the interface that shows itself by the interface state; its name tells which.
class UIElement final : public QuietComponent {
  RTTR_ENABLE(QuietComponent)

 public:
  using QuietComponent::QuietComponent;

  ZOV_DECLARE_FIELDS()
  void Init() override { m_init = true; }
  void Update(float dt) override;

  std::string m_ui_element_name = "ui_element_default";
  float m_dt = 0.0f;  ///< of the last step (unit: seconds)
};

}  // namespace ZOVEngine
