#include "ui/elements/glossaryexamples.h"

#include <string>

#include "game/hazards/environmentblackhole.h"
#include "game/hazards/environmentdestructible.h"
#include "game/objectquery.h"
#include "game/turns/gamecontroller.h"
#include "physics/components/transform.h"
#include "render/components/animation.h"
#include "render/components/render.h"
#include "ui/buttons/glossarytabs.h"
#include "ui/elements/uielement.h"
#include "ui/interfacestate.h"
#include "ui/screens/mainmenucontroller.h"

namespace ZOVEngine {
namespace {

constexpr const char* kCrystal = "EnvDestructible";
constexpr const char* kDamage = "EnvDamage";
constexpr const char* kHole = "EnvBlackhole";
constexpr float kTurnPerStep = 0.3f;  ///< of the hole in a pause (unit: degrees)

bool IsExample(const GameObj& object) {
  return object.HasComponent<EnvironmentDestructible>() ||
         object.HasComponent<EnvironmentBlackhole>() || object.name == kDamage;
}

bool ShowsSurroundings(GameObj* screen, const std::string& glossary) {
  GameObj* image = FirstChildNamed(screen, glossary + "_img");
  const auto* render = image == nullptr ? nullptr : FindComponent<Render>(image);
  return render != nullptr && render->m_tex == kSurroundingsPage;
}

void Place(GameObj* screen, const char* name, float x, float y) {
  ForEachChildWith<Transform>(screen, name, [=](Transform* transform) {
    transform->m_local_pos.x = x;
    transform->m_local_pos.y = y;
  });
}

/// Wakes the example with all three in their places, or puts it to sleep. True if it is awake.
bool ShowExample(GameObj* example, const std::string& glossary, bool open) {
  GameObj* screen = example->parent;
  if (screen == nullptr || !IsExample(*example)) return false;
  if (!open || !ShowsSurroundings(screen, glossary)) {
    example->SetActive(false);
    return false;
  }
  Place(screen, kCrystal, -660.0f, -45.0f);
  Place(screen, kDamage, 160.0f, 130.0f);
  Place(screen, kHole, 160.0f, -75.0f);
  example->SetActive(true);
  return true;
}

}  // namespace

void ShowPauseExample(UIElement* element) {
  GameObj* example = element->m_owner;
  const GameController* game = FindController(example);
  const bool open = game != nullptr && game->m_ui_state == kPauseGlossary;
  if (!ShowExample(example, kPauseGlossary, open) || example->name != kHole) return;
  if (auto* transform = FindComponent<Transform>(example))
    transform->m_local_rotate += kTurnPerStep;
}

void ShowMenuExample(UIElement* element) {
  GameObj* example = element->m_owner;
  const MainMenuController* menu = FindMenuController(example);
  const bool open = menu != nullptr && menu->m_ui_state == kMenuGlossary;
  if (!ShowExample(example, kMenuGlossary, open) || example->name != kDamage) return;
  auto* animation = FindComponent<Animation>(example);
  if (animation == nullptr) return;
  for (std::string Animation::*sheet :
       {&Animation::m_spawn, &Animation::m_death, &Animation::m_once, &Animation::m_loop}) {
    animation->*sheet = "Sheet_Env_Damaging";
  }
}

}  // namespace ZOVEngine
