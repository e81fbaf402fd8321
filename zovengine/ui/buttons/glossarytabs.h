#pragma once

#include <string>

namespace ZOVEngine {

class GameObj;

/// Begins the names of the glossary's pieces in a pause, and of those in the menu.
inline constexpr const char* kPauseGlossary = "ui_pause_glossary";
inline constexpr const char* kMenuGlossary = "menu_glossary";

/// The texture of the glossary's page on a level's surroundings.
inline constexpr const char* kSurroundingsPage = "Glossary_Pg2Environment_B";

/// Opens the glossary's page on weapons: its image, and the looks of the two tabs. The pieces are
/// direct children of `screen`, with names that begin with `glossary`.
void ShowWeaponsTab(GameObj* screen, const std::string& glossary);
/// The same for the page on a level's surroundings.
void ShowSurroundingsTab(GameObj* screen, const std::string& glossary);

}  // namespace ZOVEngine
