#pragma once

#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "core/statemachine.h"
#include "game/turns/turnworld.h"
#include "physics/components/transform.h"
#include "render/components/render.h"
#include "support/stage.h"
#include "support/unitrecords.h"
#include "ui/buttons/button.h"
#include "ui/screens/mainmenucontroller.h"

namespace carapace_test {

/// The interface states of a level, and those of the menu.
inline const std::set<std::string> kLevelStates = {
    "ui_default",        "ui_pause",         "ui_options",      "ui_how_to_play",
    "ui_pause_glossary", "ui_pause_credits", "ui_quit_confirm", "ui_quit_mainmenu_confirm",
    "ui_level_end"};
inline const std::set<std::string> kMenuStates = {
    "menu_slide",    "menu_default", "menu_level_select", "menu_howtoplay",
    "menu_glossary", "menu_credits", "menu_quit"};

/// The fields of a Render with this texture and alpha.
inline std::string RenderOf(const std::string& texture = "rest", float alpha = 1.0f) {
  return R"({"m_tile": false, "m_visible": true, "m_zLayer": 0, "m_tex": ")" + texture +
         R"(", "m_hl_tex": "default", "m_shader": "default", "m_colour": [1, 1, 1, )" +
         std::to_string(alpha) + "]}";
}

/// Where a piece of the interface stands, and its size (unit: world units).
struct Area {
  float x = 0.0f;
  float y = 0.0f;
  float width = 100.0f;
  float height = 100.0f;
};

/// A sprite of the interface, with further components.
inline std::string PieceRecord(const std::string& name, const Components& more,
                               const Area& area = {}, const std::string& render = RenderOf()) {
  std::ostringstream transform;
  transform << R"({"m_pos": [)" << area.x << ", " << area.y << R"(, 0], "m_scale": [)" << area.width
            << ", " << area.height << R"(, 1], "m_rotate": 0, "m_rotate_with_parent": true,
                "m_world_scale": [1, 1, 1], "m_world_rotate": 0, "m_world_pos": [0, 0, 0]})";
  Components components = {{"Transform", transform.str()}, {"Render", render}, {"iModel", "{}"}};
  components.insert(components.end(), more.begin(), more.end());
  return Record(name, components);
}

/// A sprite with the behaviour of an element.
inline std::string ElementRecord(const std::string& name, const std::string& element,
                                 const Components& more = {}, const Area& area = {}) {
  Components components = {{"UIElement", R"({"m_ui_element_name": ")" + element + "\"}"}};
  components.insert(components.end(), more.begin(), more.end());
  return PieceRecord(name, components, area);
}

/// A source of sounds that has none yet.
inline constexpr const char* kSilence =
    R"({"sounds": [], "loop": [], "is_3D": [], "start_play": [], "volume": [], "sound_type": []})";

/// A button with the textures "rest", "hover" and "press", and a source of sounds.
inline std::string ButtonRecord(const std::string& click_name, const std::string& state,
                                const Area& area = {}, const std::string& name = "button",
                                const std::string& render = RenderOf()) {
  const std::string button =
      R"({"m_click_name": ")" + click_name + R"(", "m_usable_state": ")" + state +
      R"(", "m_default_tex": "rest", "m_highlight_tex": "hover", "m_click_tex": "press"})";
  return PieceRecord(name, {{"Button", button}, {"AudioSource", kSilence}}, area, render);
}

/// A stage with single pieces of a screen that the test steps, points at and clicks.
template <class Base>
class PieceStage : public Base {
 public:
  using Base::Base;

  /// Runs updates of a component and nothing else.
  template <class T>
  void Update(const std::string& name, int updates = 1) const {
    for (int i = 0; i < updates; ++i) this->template Of<T>(name).Update(ZOVEngine::kStep);
  }
  /// Runs whole steps of the engine, whose output is dropped.
  void Step(int steps = 1) {
    OutputOf([&] { this->world.Step(steps); });
  }
  ZOVEngine::Render& Sprite(const std::string& name) const {
    return this->template Of<ZOVEngine::Render>(name);
  }
  float& Alpha(const std::string& name) const { return Sprite(name).m_colour[3]; }
  /// Points at a button and presses and releases the left mouse button, with a step of the button
  /// before each.
  void ClickOn(const std::string& name) {
    this->Derive();
    const ZOVEngine::Vector3D& place = this->template Of<ZOVEngine::Transform>(name).m_world_pos;
    this->PointAt(static_cast<int>(place.x), static_cast<int>(place.y));
    for (const std::uint32_t pressed : {1u, 0u}) {
      Update<ZOVEngine::Button>(name);
      OutputOf([&] { this->world.Send(ZOVEngine::MouseButton(0, pressed, {0, 0, 1})); });
    }
  }
};

/// A level in play, with an enemy "e" and a player unit "p", whose interface the test steps.
class LevelScreen : public PieceStage<TurnWorld> {
 public:
  explicit LevelScreen(const std::vector<std::string>& pieces) : PieceStage(WithUnits(pieces)) {}

  void Select(const std::string& unit) const { Controller().m_selected = Find(unit); }
  void Show(const std::string& state) const { Controller().m_ui_state = state; }
  void Kill(const std::string& unit) const { ZOVEngine::FindUnit(Find(unit))->m_alive = false; }

 private:
  static std::vector<std::string> WithUnits(std::vector<std::string> pieces) {
    pieces.push_back(UnitAt(UnitKind::kEnemy, "e", -300, 0));
    pieces.push_back(UnitAt(UnitKind::kPlayer, "p", 300, 0));
    return pieces;
  }
};

inline constexpr const char* kMenuUnits = "Level Editor/Levels/MainMenu/Entity/Units.json";

/// The main menu with these pieces below its root "menu", whose controller has started. The
/// objects `before` come ahead of the root.
class MenuScreen : public PieceStage<Stage> {
 public:
  explicit MenuScreen(const std::vector<std::string>& pieces,
                      const std::vector<std::string>& before = {})
      : PieceStage(MenuFiles(pieces, before)) {
    OutputOf([&] {
      ZOVEngine::ChangeState(ZOVEngine::kMainMenuState, "");
      ZOVEngine::g_state_machine->Step(0.0f);
    });
    Menu().Init();
    Derive();
  }

  ZOVEngine::MainMenuController& Menu() const { return Of<ZOVEngine::MainMenuController>("menu"); }
  void Show(const std::string& state) const { Menu().m_ui_state = state; }

 private:
  static Files MenuFiles(const std::vector<std::string>& pieces, std::vector<std::string> objects) {
    objects.push_back(Record(
        "menu",
        {{"Transform", TransformAt(0, 0)}, {"MainMenuController", "{}"}, {"AudioSource", kSilence}},
        pieces));
    return {{kMenuUnits, ObjectsFile(objects)}};
  }
};

}  // namespace carapace_test
