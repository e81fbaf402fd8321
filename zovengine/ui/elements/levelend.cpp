#include "ui/elements/levelend.h"

#include "game/objectquery.h"
#include "game/turns/gamecontroller.h"
#include "render/components/render.h"
#include "ui/elements/hud.h"
#include "ui/elements/uielement.h"

namespace ZOVEngine {
namespace {

constexpr float kDimSpeed = 0.5f;     ///< of the alpha (unit: per second)
constexpr float kBannerSpeed = 1.0f;  ///< of the alpha (unit: per second)

/// Takes a fade one step on; true when it is complete.
bool FadeIn(Render* render, float step) {
  float& alpha = render->m_colour[3];
  alpha += step;
  if (alpha < 1.0f) return false;
  alpha = 1.0f;
  return true;
}

void FadeBanner(UIElement* element, GameController* game, Render* banner) {
  if (game->m_state != TURN_LEVEL_END) return;
  if (element->m_banner_armed && !game->m_banner_done) {
    game->m_banner_done = FadeIn(banner, kBannerSpeed * element->m_dt);
  }
  if (game->m_fade_done && !game->m_banner_done && !element->m_banner_armed) {
    element->m_banner_armed = true;
  }
}

void ShowBanner(UIElement* element, GameController* game, Render* banner, bool applies) {
  banner->m_visible = banner->m_active =
      applies && (game->m_ui_state == "ui_default" || game->m_ui_state == "ui_level_end");
  if (banner->m_visible) FadeBanner(element, game, banner);
}

}  // namespace

void DimLevel(UIElement* element) {
  GameController* game = FindController(element->m_owner);
  auto* sheet = FindComponent<Render>(element->m_owner);
  if (game == nullptr || sheet == nullptr) return;
  if (IsLevelLive(*game)) {
    sheet->m_visible = false;
    return;
  }
  sheet->m_active = sheet->m_visible = true;
  if (game->m_state != TURN_LEVEL_END) return;
  if (element->m_fade_armed && !game->m_fade_done) {
    game->m_fade_done = FadeIn(sheet, kDimSpeed * element->m_dt);
  }
  if (!element->m_fade_armed) {
    sheet->m_colour[3] = 0.0f;
    element->m_fade_armed = true;
  }
}

void ShowVictory(UIElement* element) {
  GameController* game = FindController(element->m_owner);
  auto* banner = FindComponent<Render>(element->m_owner);
  if (game == nullptr || banner == nullptr) return;
  const bool won = game->AllEnemiesDead() && !game->AllPlayersDead();
  ShowBanner(element, game, banner, won);
}

void ShowDefeat(UIElement* element) {
  GameController* game = FindController(element->m_owner);
  auto* banner = FindComponent<Render>(element->m_owner);
  if (game == nullptr || banner == nullptr) return;
  ShowBanner(element, game, banner, game->AllPlayersDead());
}

}  // namespace ZOVEngine
