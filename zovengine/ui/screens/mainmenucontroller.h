#pragma once

#include <string>

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// Runs the main menu, as a component of the menu's root object.
///
/// Holds the menu's interface state, by which buttons and elements show themselves. On the way in
/// the title rises to its place and the buttons fade in; without a title the menu stays shut for
/// good. A chosen level is started in the controller's own next step, because its button hears the
/// click in the middle of a walk over all buttons and a change of state destroys every object.
class MainMenuController final : public EmptyLogicComponent {
  RTTR_ENABLE(EmptyLogicComponent)

 public:
  using EmptyLogicComponent::EmptyLogicComponent;

  /// Starts the slide and the music, answers the key that left the splash with a click, and puts
  /// the glossary's live examples to sleep.
  void Init() override;
  /// One step; a launch ends it early, with no object left.
  void Update(float dt) override;
  /// Answers CurrMC.
  void OnMessage(Message* message) override;

  /// Starts the level file at `path` in the next step.
  void LaunchLevel(const std::string& path);

  std::string m_ui_state = "menu_slide";
  bool m_launch = false;  ///< a level was chosen
  std::string m_level_path = "Level Editor/Levels/Level01/Level01.json";
  bool m_slide_done = false;    ///< the title has reached its place
  bool m_buttons_done = false;  ///< the buttons have faded in

 private:
  void Launch();
  void SlideTitle(float dt);
  void FadeButtonsIn(float dt);
};

}  // namespace ZOVEngine
