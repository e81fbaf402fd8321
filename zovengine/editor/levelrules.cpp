#include "editor/levelrules.h"

#include <algorithm>
#include <iterator>

#include "editor/levelrulesreport.h"
#include "editor/levelrulesview.h"

namespace ZOVEngine {
namespace {

constexpr LevelSeverity kError = LevelSeverity::kError;
constexpr LevelSeverity kWarning = LevelSeverity::kWarning;

const LevelRule kRules[] = {
    // The form of the files
    {"json", kError, "a file is absent or no JSON, and counts as empty"},
    {"record", kError, "a record is not of the form that the loader takes, which ends the game",
     true},
    {"component-unknown", kError, "a listed component is unknown, which ends the game", true},
    {"component-twice", kError, "a component is listed twice, which ends the game", true},
    {"component-absent", kError, "a listed component has no key, which ends the game", true},
    {"component-unlisted", kWarning, "a component has a key but is not listed: it is not read"},
    {"field-form", kError, "a value is of another type than its field, which ends the game", true},
    {"field-whole", kError, "a fraction stands where a whole number is read as another number"},
    {"field-flag", kWarning, "a value is neither true nor false, and counts as false"},
    {"field-absent", kWarning, "keys are absent: their fields keep a default"},
    {"sound-lists", kError, "a list of an AudioSource is too short, which ends the game", true},
    {"collider-type", kError, "a collider has an unknown shape, which ends the game", true},
    {"particle-rate", kError, "births have a minimum above the maximum, which ends the game", true},
    {"particle-pool", kError, "a pool of particles is too large, which ends the game", true},
    // The level as a whole
    {"one-controller", kError, "not exactly one object runs the level"},
    {"controller-parts", kError, "the object that runs the level lacks its place or its sounds"},
    {"one-camera", kError, "the level has not exactly one camera"},
    {"both-sides", kError, "a side has no living unit: the level ends on its first step"},
    {"level-paths", kError, "a path of the level leads elsewhere than to its own files"},
    {"archetype", kError, "a template that the level's objects are made of is absent"},
    // Units
    {"unit-place", kError, "a unit is not below the object that runs the level: it is ignored"},
    {"unit-sides", kError, "a unit belongs to both sides"},
    {"unit-health", kError, "a unit starts without health"},
    {"unit-energy", kError, "a player has no energy to move with"},
    {"unit-off", kError, "a unit is switched off: it can neither act nor die"},
    {"unit-dead", kError, "a unit is dead at the start"},
    {"unit-hidden", kError, "a unit is not drawn: its spawn never ends, and it cannot die"},
    {"unit-element", kError, "a unit has an element of its own, which holds back its turn"},
    {"unit-parts", kError, "a unit lacks a component"},
    {"unit-children", kError, "a unit lacks a child: the game does not find its gun or its bar"},
    {"unit-overlap", kWarning, "two units overlap"},
    {"boss-name", kError, "a boss is not named Boss: its field does not find it"},
    {"walker-path", kError, "a walker has no patrol of two points: its move never ends"},
    {"walker-legs", kError, "a patrol has no leg that the pushes of a move leave unfinished"},
    {"path-walker", kWarning, "a patrol has no AIComp to walk it"},
    {"shot-place", kError, "a shot is no child of a unit"},
    {"shot-parts", kError, "a shot lacks its place or its body"},
    {"shot-turns", kError, "a shot turns with its unit, which carries it off its path"},
    {"shot-drag", kError, "drag stops a shot before the end of its range, and the turn with it"},
    // Parts and names
    {"component-needs", kError, "a component lacks another beside it, which ends the game", true},
    {"sheet-frames", kWarning, "a sheet has not 1 to 10 frames"},
    {"texture", kWarning, "a texture is not listed: another is shown"},
    {"sound", kWarning, "a sound has no file: it is not heard"},
    {"category", kWarning, "a category of collisions is unknown: it touches nothing"},
    {"field-parent", kError, "a DeathField has no parent, which ends the game"},
    {"tile-object", kError, "a tile lies among the objects: the level builds no tiles"},
    // Bodies
    {"body-drag", kError, "a body has no drag: turns wait until it rests"},
    {"body-spin", kError, "a body has no angular drag: turns wait until it rests"},
    {"body-shape", kError, "a black hole pulls a body without a shape for ever"},
    {"body-waypoint", kError, "a Waypoint never stands still: turns wait until it rests"},
    // The interface
    {"interface-element", kWarning, "an element has a behaviour that the program lacks"},
    {"interface-button", kWarning, "a button has a handler that the program lacks"},
    {"interface-missing", kWarning, "pieces of the interface are missing"},
    // The map
    {"map-size", kError, "the sizes of the map are absent or out of bounds"},
    {"map-grid", kError, "the grid of the map is not of its sizes, which ends the game", true},
    {"tile-kind", kWarning, "an object among the tiles is none"},
    {"tile-grid", kWarning, "a tile lies off the grid or off the map"},
    {"tile-twice", kWarning, "two tiles lie on one place"},
    {"place-free", kError, "a unit or its patrol lies in a wall or off the map"},
    {"hull", kWarning, "floor lies open to space: units and shots leave the level"},
    {"cover-thin", kWarning, "units fire through a wall of one tile that they lean on"},
};

const LevelRule& FindRule(const char* name) {
  const std::string wanted = name;
  const auto& rules = LevelRules();
  const auto found = std::find_if(rules.begin(), rules.end(),
                                  [&](const LevelRule& rule) { return rule.name == wanted; });
  ZOV_ASSERT(found != rules.end(), "no rule of levels is named " + wanted);
  return *found;
}

}  // namespace

const std::vector<LevelRule>& LevelRules() {
  static const std::vector<LevelRule> rules(std::begin(kRules), std::end(kRules));
  return rules;
}

void LevelReport::Add(const char* rule, const ObjectView& object, const std::string& fault) {
  const LevelRule& broken = FindRule(rule);
  m_problems.push_back(
      {broken.severity, object.file, broken.name, object.Title() + " " + fault, object.Address()});
}

void LevelReport::Add(const char* rule, LevelFile file, const std::string& fault) {
  const LevelRule& broken = FindRule(rule);
  m_problems.push_back({broken.severity, file, broken.name, fault, {}});
}

LevelProblems CheckLevel(const LevelText& text, const KnownAssets& known) {
  const LevelView level(text);
  LevelReport report;
  CheckForms(level, &report);
  CheckWhole(level, &report);
  CheckUnits(level, &report);
  CheckParts(level, known, &report);
  CheckBodies(level, &report);
  CheckInterface(level, known, &report);
  CheckMap(level, &report);
  return report.Take();
}

bool IsFatal(const LevelProblem& problem) {
  return FindRule(problem.rule).fatal;
}

bool HasError(const LevelProblems& problems) {
  return std::any_of(problems.begin(), problems.end(),
                     [](const LevelProblem& problem) { return problem.severity == kError; });
}

}  // namespace ZOVEngine
