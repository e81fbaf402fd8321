#pragma once

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

/// A level in play, with an enemy "e" and a player unit "p", whose interface the test steps.
class LevelScreen : public TurnWorld {
 public:
  explicit LevelScreen(const std::vector<std::string>& pieces) : TurnWorld(WithUnits(pieces)) {}

  /// Runs updates of an element and nothing else.
  template <class T>
  void Update(const std::string& name, int updates = 1) const {
    for (int i = 0; i < updates; ++i) Of<T>(name).Update(ZOVEngine::kStep);
  }
  ZOVEngine::Render& Sprite(const std::string& name) const { return Of<ZOVEngine::Render>(name); }
  void Select(const std::string& unit) const { Controller().m_selected = Find(unit); }
  void Show(const std::string& state) const { Controller().m_ui_state = state; }
  /// Points at a button and presses and releases the left mouse button, with a step of the button
  /// before each.
  void ClickOn(const std::string& name) {
    Derive();
    const ZOVEngine::Vector3D& place = Of<ZOVEngine::Transform>(name).m_world_pos;
    PointAt(static_cast<int>(place.x), static_cast<int>(place.y));
    for (const std::uint32_t pressed : {1u, 0u}) {
      Update<ZOVEngine::Button>(name);
      Click(0, pressed);
    }
  }
  void Kill(const std::string& unit) const { ZOVEngine::FindUnit(Find(unit))->m_alive = false; }

 private:
  static std::vector<std::string> WithUnits(std::vector<std::string> pieces) {
    pieces.push_back(UnitAt(UnitKind::kEnemy, "e", -300, 0));
    pieces.push_back(UnitAt(UnitKind::kPlayer, "p", 300, 0));
    return pieces;
  }
};

inline constexpr const char* kMenuUnits = "Level Editor/Levels/MainMenu/Entity/Units.json";

/// The main menu with these pieces below its root "menu", whose controller has started.
class MenuScreen : public Stage {
 public:
  explicit MenuScreen(const std::vector<std::string>& pieces) : Stage(WithPieces(pieces)) {
    OutputOf([&] {
      ZOVEngine::ChangeState(ZOVEngine::kMainMenuState, "");
      ZOVEngine::g_state_machine->Step(0.0f);
    });
    Menu().Init();
    Derive();
  }

  ZOVEngine::MainMenuController& Menu() const { return Of<ZOVEngine::MainMenuController>("menu"); }
  ZOVEngine::Render& Sprite(const std::string& name) const { return Of<ZOVEngine::Render>(name); }
  template <class T>
  void Update(const std::string& name, int updates = 1) const {
    for (int i = 0; i < updates; ++i) Of<T>(name).Update(ZOVEngine::kStep);
  }
  /// Presses and releases the left mouse button, with a step of the button before each.
  void ClickOn(const std::string& name) {
    const ZOVEngine::Vector3D& place = Of<ZOVEngine::Transform>(name).m_world_pos;
    world.native.cursor = {640 + static_cast<int>(place.x) * 2 / 3,
                           360 - static_cast<int>(place.y) * 2 / 3};
    for (const std::uint32_t pressed : {1u, 0u}) {
      Update<ZOVEngine::Button>(name);
      OutputOf([&] { world.Send(ZOVEngine::MouseButton(0, pressed, {0, 0, 1})); });
    }
  }

 private:
  static Files WithPieces(const std::vector<std::string>& pieces) {
    const std::string root = Record(
        "menu",
        {{"Transform", TransformAt(0, 0)}, {"MainMenuController", "{}"}, {"AudioSource", kSilence}},
        pieces);
    return {{kMenuUnits, "{\"GameObjFactory\": [" + root + "]}"}};
  }
};

}  // namespace carapace_test
