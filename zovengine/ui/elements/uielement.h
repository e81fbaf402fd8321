#pragma once

#include <string>

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// A piece of the interface that is not clicked: backdrop, text, bar, panel, ring, banner.
///
/// It holds little but a name, by which every step looks up what the piece does (behaviours.h); a
/// name without a behaviour does nothing. Elements live on in a pause. The other fields are what
/// some behaviours keep from step to step.
class UIElement final : public QuietComponent {
  RTTR_ENABLE(QuietComponent)

 public:
  using QuietComponent::QuietComponent;

  ZOV_DECLARE_FIELDS()
  /// Measures the object's place and width, from which the energy bar starts.
  void Init() override;
  void Update(float dt) override;

  std::string m_ui_element_name = "ui_element_default";  ///< the turn machine changes a ring's
  float m_bar_scale = 125.0f;                            ///< width at the start (unit: world units)
  float m_bar_left = -542.5f;     ///< left edge at the start (unit: world units)
  float m_bar_x = -480.0f;        ///< middle at the start (unit: world units)
  bool m_fade_armed = false;      ///< the dimming starts from nothing and may run
  bool m_banner_armed = false;    ///< the banner may fade in
  float m_dt = 0.0f;              ///< of the last step (unit: seconds)
  bool m_ring_announced = false;  ///< the selection ring has shown the weapon's label
};

}  // namespace ZOVEngine
