#pragma once

#include <string>

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// A clickable sprite whose action is chosen by its name.
///
/// It lives in one interface state only and is hidden in all others; the key hints of a level are
/// buttons whose state never comes and which are always shown. Its object's Render shows one of
/// three textures, at rest, under the mouse, and in the step of a press or a release. The release
/// of the left button over it calls the handler of its name (clickhandlers.h), wherever the button
/// went down. Buttons live on in a pause; buttons that overlap all act.
class Button final : public LogicComponent {
  RTTR_ENABLE(LogicComponent)

 public:
  using LogicComponent::LogicComponent;

  ZOV_DECLARE_FIELDS()

  /// Takes the texture at rest from the Render. Deliberately not called by Update: that texture
  /// comes from the level file.
  void Init() override;
  void Update(float dt) override;
  /// Prints "Button Destroy".
  void Destroy() override;
  /// Takes the left mouse button.
  void OnMessage(Message* message) override;

  bool m_hover = false;    ///< the mouse is over it
  bool m_clicked = false;  ///< the left button acted on it in this step
  std::string m_default_tex = "default";
  std::string m_highlight_tex = "default";
  std::string m_click_tex = "default";
  bool m_end_fade_started = false;  ///< the fade at the level's end has begun
  bool m_end_fade_done = false;     ///< it is over
  float m_dt = 0.0f;                ///< of the last step (unit: seconds)
  std::string m_click_name = "default";
  std::string m_usable_state = "ui_default";

 private:
  void Hide();
  void FollowLevelEnd();
  void TakePlaceOfDefeat();
  void FadeIn();
  void Hover();
  bool IsUnderMouse() const;
  void ShowPreview();
};

}  // namespace ZOVEngine
