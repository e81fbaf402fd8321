#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "editor/objectpath.h"
#include "objects/jsonforward.h"

namespace ZOVEngine {

class LevelDocument;

/// One thing that can be put into a level: a file of "Resources/Archetypes/Palette".
struct PaletteEntry {
  std::string name;
  std::string category;  ///< "Units", "Weapons", "Hazards", "Lights" or "Things"
  std::string image;     ///< texture key of its thumbnail
  int frames = 1;        ///< of that texture
  /// Texture keys of a weapon's gun on a player's and on an enemy's unit; empty for all else.
  std::string player_gun, enemy_gun;
  std::vector<std::string> records;  ///< its objects, in their order among siblings
};

/// Reads all entries, by category and in the order of their files' names. A file that is none is
/// passed over and named in `*faults`, as a sentence.
std::vector<PaletteEntry> LoadPalette(std::vector<std::string>* faults);

/// The text of the objects that every level needs, for a level with this path of its own file. If
/// the record of new levels cannot be read, a text without objects.
std::string NewLevelText(const std::string& level_path);

/// The path of the object that runs the level, the one with a GameController; empty without one.
ObjectPath FindLevelRoot(const LevelDocument& document);

/// Where a new object of this category belongs among the children of the level's root: units behind
/// the units, decor before all else, anything else behind the hazards, and all before the
/// interface, which is drawn over them.
std::size_t PlaceInLevel(const LevelDocument& document, const ObjectPath& root,
                         const std::string& category);

/// The record of an object at a place of the world, as a child of the object at `parent` (unit:
/// world units).
std::string PlaceRecord(const LevelDocument& document, const ObjectPath& parent,
                        const std::string& record, float x, float y);

/// The record of a unit that stands at `x`, turned towards the middle of the level: to the right or
/// to the left (unit: world units). Any other record as it is.
std::string FaceMiddle(const std::string& record, float x);

/// The record of a unit with another weapon in a hand, 0 or 1: its shot and the sprite of its gun.
/// Empty if the record is no unit with that hand.
std::string EquipUnit(const std::string& unit, int hand, const PaletteEntry& weapon);

}  // namespace ZOVEngine
