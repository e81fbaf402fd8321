#include <iterator>

#include "editor/editorview.h"
#include "editor/levelrulesreport.h"

namespace ZOVEngine {
namespace {

/// Names of the program's tables that no level needs: one element does nothing, one is set while
/// the level runs, and the handler reports a button that was forgotten.
const NameSet kUnneeded = {"ui_element_default", "ui_selection_circle", "default"};
/// Elements that units bring with them; a level without units is told of those.
const NameSet kOfUnits = {"ui_font", "ui_selection_circle_off"};
/// Buttons that are hints of keys; they are shown and have no handler.
const NameSet kKeyHints = {"ui_skip", "ui_cycle_left", "ui_cycle_right", "ui_undo"};
/// The pieces of the glossary, which its tabs look for below the level's root and beside
/// themselves.
constexpr const char* kGlossaryTab = "ui_pause_glossary_weapons";
constexpr const char* kGlossary[] = {
    "ui_pause_glossary_img", kGlossaryTab, "ui_pause_glossary_enviro",
    "EnvDestructible",       "EnvDamage",  "EnvBlackhole"};

bool IsOfMenu(const std::string& name) {
  return name.starts_with("menu_");
}

bool IsWhereTabsLook(const ObjectView& object, const LevelView& level) {
  return object.parent != nullptr &&
         (object.parent == level.root || object.parent->HasChild(kGlossaryTab));
}

/// The names of `wanted` that a level needs and that `found` lacks, separated by commas.
std::string Missing(const NameSet& wanted, const NameSet& found) {
  std::string names;
  for (const std::string& name : wanted) {
    if (IsOfMenu(name) || kUnneeded.contains(name) || found.contains(name)) continue;
    names += (names.empty() ? "" : ", ") + name;
  }
  return names;
}

void RequireAll(const char* what, const std::string& missing, LevelReport* report) {
  if (missing.empty()) return;
  report->Add("interface-missing", LevelFile::kObjects,
              std::string("the level has no ") + what + " " + missing);
}

}  // namespace

void CheckInterface(const LevelView& level, const KnownAssets& known, LevelReport* report) {
  NameSet elements, buttons, pieces;
  bool has_units = false;
  for (const ObjectView& object : level.objects.All()) {
    const std::string element(object.Text("UIElement", "m_ui_element_name", "ui_element_default"));
    if (object.Has("UIElement") && !known.behaviours.contains(element)) {
      report->Add("interface-element", object, "is an element of the unknown name " + element);
    }
    const std::string click(object.Text("Button", "m_click_name", "default"));
    if (object.Has("Button") && !known.handlers.contains(click) && !kKeyHints.contains(click)) {
      report->Add("interface-button", object, "is a button of the unknown name " + click);
    }
    has_units = has_units || object.Has("Player") || object.Has("Enemy");
    if (object.Has("UIElement")) elements.insert(element);
    if (object.Has("Button")) buttons.insert(click);
    if (IsWhereTabsLook(object, level)) pieces.insert(object.name);
  }
  if (!has_units) elements.insert(kOfUnits.begin(), kOfUnits.end());
  RequireAll("element", Missing(known.behaviours, elements), report);
  RequireAll("button", Missing(known.handlers, buttons), report);
  RequireAll("hint", Missing(kKeyHints, buttons), report);
  RequireAll("piece of the glossary below its root or beside its tabs",
             Missing({std::begin(kGlossary), std::end(kGlossary)}, pieces), report);
  RequireAll("closing sprite", Missing({kClosingSprite}, pieces), report);
}

}  // namespace ZOVEngine
