#pragma once

#include <optional>
#include <string>
#include <vector>

#include "editor/palette.h"

namespace ZOVEngine {

class LevelEditor;

/// What can be put into a level: units, weapons, hazards, lights and things, with thumbnails and a
/// search.
///
/// A click on an entry takes it in hand, and a click in the level puts it there; Shift keeps it in
/// hand, Escape or the right button lays it down. It can be dragged into the level as well. A unit
/// comes with the two weapons that are chosen; a click on a weapon gives it to the selected unit.
class PalettePanel {
 public:
  /// Fills the window that the layout has begun.
  void Show(LevelEditor& editor);

 private:
  void Load(LevelEditor& editor);
  void ShowBar();
  void ShowHands();
  void ShowEntries(LevelEditor& editor);
  void ShowEntry(LevelEditor& editor, std::size_t index);
  void TakeOrGive(LevelEditor& editor, std::size_t index);
  void ShowInHand(LevelEditor& editor);
  void PutDown(LevelEditor& editor);
  bool IsShown(const PaletteEntry& entry) const;
  const PaletteEntry* FindWeapon(const std::string& name) const;

  bool m_loaded = false;
  std::vector<PaletteEntry> m_entries;
  std::string m_search;
  std::string m_category;  ///< empty shows all
  std::string m_weapons[2] = {"BASIC", "BOUNCE"};
  int m_hand = 0;                     ///< that gets the weapon that is clicked
  std::optional<std::size_t> m_held;  ///< the entry in hand
  bool m_dragging = false;            ///< it was taken by a drag
};

/// Puts an entry into the level at a place of the world, as a child of the level's root, and
/// selects it (unit: world units). `weapons` are those of a unit; null keeps its own.
void InsertEntry(LevelEditor& editor, const PaletteEntry& entry, float x, float y,
                 const PaletteEntry* const (&weapons)[2]);
/// Gives a weapon to a hand, 0 or 1, of the selected unit. False, with a line in the log, if no
/// unit with such a hand is selected.
bool GiveWeapon(LevelEditor& editor, const PaletteEntry& weapon, int hand);

}  // namespace ZOVEngine
