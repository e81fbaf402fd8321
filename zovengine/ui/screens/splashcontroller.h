#pragma once

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// Plays the logos of the splash screen, one after another, and leaves for the menu on a key.
///
/// Stages: the first logo fades in and out, then the team's, then the game logo fades in and stays
/// and the prompt blinks. Each key released ends one stage; the key after the last one leaves. A
/// stage runs only if its child object is there and has a Render; the fades are the alpha of the
/// Render's colour.
class SplashController final : public EmptyLogicComponent {
  RTTR_ENABLE(EmptyLogicComponent)

 public:
  using EmptyLogicComponent::EmptyLogicComponent;

  /// Finds the children "zarn_logo", "team_logo", "game_logo" and "start"; an absent one stays
  /// null.
  void Init() override;
  void Update(float dt) override;
  /// Takes KeyUp of any key.
  void OnMessage(Message* message) override;

  GameObj* m_first_logo = nullptr;
  GameObj* m_game_logo = nullptr;
  GameObj* m_team_logo = nullptr;
  GameObj* m_start = nullptr;  ///< the press-a-key prompt
  float m_fade_time = 2.0f;    ///< of each fade in and each fade out (unit: seconds)
  float m_blink_time = 1.0f;   ///< between two changes of the prompt (unit: seconds)
  float m_blink_timer = 0.0f;  ///< since the last change (unit: seconds)
  bool m_fading_out = false;   ///< the current logo is going out
  bool m_first_done = false;
  bool m_game_done = false;  ///< the game logo is fully in
  bool m_team_done = false;

 private:
  void UpdateFade(GameObj* logo, float dt, bool* done);
  void UpdateGameLogo(float dt);
  void UpdatePrompt(float dt);
};

/// The key that left the splash screen is answered with a click in the menu; a return from a level
/// is not. Set by SplashController, cleared by the turn controller on quitting to the menu.
extern bool g_menu_entry_click;

}  // namespace ZOVEngine
