#include "ui/buttons/glossarytabs.h"

#include "game/objectquery.h"
#include "render/components/render.h"
#include "ui/buttons/button.h"

namespace ZOVEngine {
namespace {

void SetPage(GameObj* screen, const std::string& glossary, const char* page) {
  ForEachChildWith<Render>(screen, glossary + "_img",
                           [page](Render* image) { image->m_tex = page; });
}

void DressTab(GameObj* screen, const std::string& tab, const char* at_rest, const char* hovered) {
  ForEachChildWith<Button>(screen, tab, [=](Button* button) {
    button->m_default_tex = at_rest;
    button->m_highlight_tex = hovered;
  });
}

}  // namespace

void ShowWeaponsTab(GameObj* screen, const std::string& glossary) {
  SetPage(screen, glossary, "Glossary_Pg1Weapons");
  DressTab(screen, glossary + "_weapons", "Glossary_WeaponsSelected", "Glossary_WeaponsSelected");
  DressTab(screen, glossary + "_enviro", "Glossary_EnviroDefault", "Glossary_EnviroHover");
}

void ShowSurroundingsTab(GameObj* screen, const std::string& glossary) {
  SetPage(screen, glossary, kSurroundingsPage);
  DressTab(screen, glossary + "_weapons", "Glossary_WeaponsDefault", "Glossary_WeaponsHover");
  DressTab(screen, glossary + "_enviro", "Glossary_EnviroSelected", "Glossary_EnviroSelected");
}

}  // namespace ZOVEngine
