#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace ZOVEngine {

/// The texts of a level's four files. An empty text stands for a file that does not exist.
struct LevelText {
  std::string name;  ///< of its directory; the paths in the level must be made of it
  std::string level;
  std::string map;
  std::string tiles;
  std::string objects;
};

/// Names, searched by any kind of text.
using NameSet = std::set<std::string, std::less<>>;

/// The names that a level may use: what the files beside the levels and the tables of the program
/// have.
struct KnownAssets {
  NameSet textures;    ///< keys, as graphics.json lists them
  NameSet music;       ///< file names
  NameSet effects;     ///< file names
  NameSet categories;  ///< of collisions
  NameSet archetypes;
  NameSet handlers;    ///< of clicks on buttons
  NameSet behaviours;  ///< of elements of the interface
};

/// Reads the names from the files below the working directory, as they stand now, and from the
/// tables of the program. A file that is absent or broken gives no names.
KnownAssets ReadKnownAssets();

enum class LevelSeverity : std::uint8_t {
  kWarning,  ///< looks wrong, or not as its author meant it
  kError,    ///< could not be loaded, not be played, or would never end
};
/// The file that a problem lies in.
enum class LevelFile : std::uint8_t { kLevel, kMap, kTiles, kObjects };

/// One thing that is wrong with a level.
struct LevelProblem {
  LevelSeverity severity;
  LevelFile file;
  const char* rule;  ///< its name in LevelRules
  std::string text;  ///< a sentence for the author, which names the object
  /// The object: the number of its record in the file, then the place in each list of children on
  /// the way down. Empty for a problem of the whole file.
  std::vector<std::uint32_t> address;
};
using LevelProblems = std::vector<LevelProblem>;

/// A rule that levels keep.
struct LevelRule {
  const char* name;  ///< stable
  LevelSeverity severity;
  const char* meaning;  ///< what a level that breaks it does
  bool fatal = false;   ///< the program ends over it, in the editor too
};
/// All rules.
const std::vector<LevelRule>& LevelRules();

/// All problems of a level: first those of its form, without which it cannot be read, then the
/// rest, each in the order of the objects.
///
/// Reads the texts alone: it needs no engine and changes nothing, and no text ends the program. A
/// level without errors can be loaded and played. The time grows with the length of the texts;
/// units are compared with each other.
LevelProblems CheckLevel(const LevelText& level, const KnownAssets& known);

/// True if the rule that the problem breaks is a fatal one.
bool IsFatal(const LevelProblem& problem);

/// True if one of the problems is an error.
bool HasError(const LevelProblems& problems);

}  // namespace ZOVEngine
