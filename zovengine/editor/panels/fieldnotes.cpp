#include "editor/panels/fieldnotes.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <string_view>

#include "editor/panels/assetlist.h"
#include "physics/collidersystem.h"
#include "ui/buttons/clickhandlers.h"
#include "ui/elements/behaviours.h"

namespace ZOVEngine {
namespace {

template <class Map>
std::vector<std::string> SortedKeys(const Map& map) {
  std::vector<std::string> keys;
  keys.reserve(map.size());
  for (const auto& [key, value] : map) keys.push_back(key);
  std::sort(keys.begin(), keys.end());
  return keys;
}

struct ChoiceRow {
  std::string_view component, key;
  std::vector<std::string> (*choices)();
};

const std::array<ChoiceRow, 8>& ChoiceRows() {
  static const std::array<ChoiceRow, 8> rows = {{
      {"Button", "m_click_name", [] { return SortedKeys(ClickHandlers()); }},
      {"Button", "m_usable_state",
       [] {
         return std::vector<std::string>{
             "ui_default",        "ui_how_to_play",  "ui_level_end",
             "ui_options",        "ui_pause",        "ui_pause_credits",
             "ui_pause_glossary", "ui_quit_confirm", "ui_quit_mainmenu_confirm"};
       }},
      {"UIElement", "m_ui_element_name", [] { return SortedKeys(ElementBehaviours()); }},
      {"ColliderHolder", "m_collider_type",
       [] {
         return std::vector<std::string>{"Box", "Circle", "Polygon"};
       }},
      {"ColliderHolder", "bitmask_category",
       [] { return SortedKeys(g_collider_system->m_groups); }},
      {"Render", "m_shader",
       [] {
         return std::vector<std::string>{"default", "light"};
       }},
      {"StateC", "m_state",
       [] {
         return std::vector<std::string>{"default", "damaged", "move", "spawn",
                                         "death",   "once",    "loop"};
       }},
      {"GameController", "m_level_theme", [] { return SoundNames("BGM"); }},
  }};
  return rows;
}

const ChoiceRow* FindChoice(const std::string& component, const std::string& key) {
  const auto& rows = ChoiceRows();
  const auto found = std::find_if(rows.begin(), rows.end(), [&](const ChoiceRow& row) {
    return row.component == component && row.key == key;
  });
  return found != rows.end() ? &*found : nullptr;
}

bool IsOneOf(const std::string& key, std::initializer_list<std::string_view> keys) {
  return std::find(keys.begin(), keys.end(), key) != keys.end();
}

bool IsTextureKey(const std::string& component, const std::string& key) {
  if (component == "Animation") return IsOneOf(key, {"m_spawn", "m_death", "m_once", "m_loop"});
  return IsOneOf(key, {"m_tex", "m_hl_tex", "m_default_tex", "m_highlight_tex", "m_click_tex",
                       "particle_tex"});
}

bool IsColourKey(const std::string& key) {
  return IsOneOf(key, {"m_colour", "m_diffuse", "m_specular", "m_ambient", "m_start_color_min",
                       "m_start_color_max", "m_particle_color_min", "m_particle_color_max"});
}

/// What the running game writes, and geometry that needs tools of its own.
bool IsFixed(const std::string& component, const std::string& key) {
  if (component == "iModel") return true;
  if (component == "Transform") {
    return IsOneOf(key, {"m_world_pos", "m_world_scale", "m_world_rotate"});
  }
  if (component == "Render" && key == "m_tile") return true;  // a tile belongs to the other file
  return component == "Animation" && IsOneOf(key, {"m_timer", "m_currStep"});
}

using Notes = std::map<std::string_view, const char*>;

const Notes& FieldNotes() {
  static const Notes notes = {
      {"m_local_pos", "World units from the parent's middle, y upwards."},
      {"m_local_scale", "Width and height in world units; below a parent, parts of its size."},
      {"m_local_rotate", "Degrees, counter-clockwise. Control and a click type a number."},
      {"m_rotate_with_parent", "Turns with its parent; otherwise it is only carried along."},
      {"m_world_pos", "Follows from the parents' places."},
      {"m_world_scale", "Follows from the parents' sizes."},
      {"m_world_rotate", "Degrees; follows from the parents' angles."},
      {"m_mass", "0 cannot be moved by anything."},
      {"m_inertia", "Resistance to turning; 0 cannot be turned."},
      {"m_drag", "The part of the speed that is lost in a second."},
      {"m_angular_drag", "The part of the turning speed that is lost in a second."},
      {"m_rest", "How much of its speed it keeps when it bounces: 0 to 1."},
      {"m_health", "Points; 1 to 99 at the start of a level."},
      {"m_max_health", "Points."},
      {"m_movement_curr", "Energy at the start: seconds of a held key."},
      {"m_movement_limit", "Energy of each turn: seconds of a held key."},
      {"m_movement_mag", "Force of a movement key."},
      {"m_move_limit", "Seconds of pushing in a turn."},
      {"m_move_speed", "A push has 100 times this force."},
      {"m_snap_range", "World units at which a point of the path counts as reached."},
      {"m_waypoints", "The path, in world units; an enemy with an AIComp walks it."},
      {"m_suction_force", "The pull is this times 100 at all distances."},
      {"m_suction_range", "World units."},
      {"m_max_range", "World units that a shot flies."},
      {"m_speed", "A shot of mass 1 leaves at 0.83 of it."},
      {"m_aoe", "World units that the effect reaches."},
      {"m_time_per_frame", "Seconds."},
      {"m_spawn_frames", "0 to 10; 0 is no sheet."},
      {"m_tex", "Texture of the sprite."},
      {"m_hl_tex", "Texture while it is highlighted."},
      {"m_colour", "Multiplies the texture: red, green, blue, alpha."},
      {"m_click_name", "What a click does."},
      {"m_usable_state", "The one screen of the interface in which the button lives."},
      {"bitmask_category", "What it collides with."},
      {"m_num_of_particles", "The pool: the most that are alive at once."},
      {"m_emitter_num_particles", "Particles a second, the fewest and the most."},
      {"volume", "0 to 1."},
  };
  return notes;
}

using Needs = std::map<std::string_view, std::vector<std::string>>;

const Needs& NeedsTable() {
  static const std::vector<std::string> place = {"Transform"};
  static const std::vector<std::string> moved = {"Transform", "RigidBody"};
  static const std::vector<std::string> drawn = {"Transform", "Render", "iModel"};
  static const std::vector<std::string> unit = {"Transform", "RigidBody", "Render",
                                                "iModel",    "StateC",    "Animation"};
  static const Needs needs = {
      {"Render", {"Transform", "iModel"}},
      {"RigidBody", place},
      {"ColliderHolder", place},
      {"Light", place},
      {"Font", place},
      {"Camera", place},
      {"Waypoint", moved},
      {"Pathfinding", moved},
      {"ParticleSystemC", place},
      {"Particle", {"Transform", "RigidBody", "Render", "iModel"}},
      {"Animation", {"Transform", "Render", "iModel", "StateC"}},
      {"Button", drawn},
      {"UIElement", place},
      {"Player", unit},
      {"Enemy", unit},
      {"AIComp", {"Enemy"}},
      {"EnvironmentBlackhole", place},
      {"EnvironmentDestructible", place},
      {"DeathField", place},
      {"ProjectileDefault", moved},
      {"ProjectilePush", moved},
      {"ProjectileSwap", moved},
      {"ProjectileBounce", moved},
      {"ProjectileExplosion", moved},
      {"ProjectileVacuum", moved},
      {"ProjectilePierce", moved},
  };
  return needs;
}

}  // namespace

FieldWidget FormOfField(const std::string& component, const std::string& key) {
  if (FindChoice(component, key) != nullptr) return FieldWidget::kChoice;
  if (IsTextureKey(component, key)) return FieldWidget::kTexture;
  if (IsColourKey(key)) return FieldWidget::kColour;
  return IsFixed(component, key) ? FieldWidget::kFixed : FieldWidget::kPlain;
}

std::vector<std::string> FieldChoices(const std::string& component, const std::string& key) {
  const ChoiceRow* row = FindChoice(component, key);
  return row != nullptr ? row->choices() : std::vector<std::string>();
}

NumberBounds BoundsOfField(const std::string& key) {
  constexpr float kMostParticles = 1000.0f;
  if (key == "m_num_of_particles") return {0.0f, kMostParticles};
  if (key == "m_emitter_num_particles") return {0.0f, kMostParticles};
  if (key == "m_xlimit" || key == "m_ylimit") return {0.0f, 100.0f};
  if (key == "m_arc") return {0.0f, 360.0f};
  if (key == "volume") return {0.0f, 1.0f};
  return {};
}

std::string FieldNote(const std::string& component, const std::string& key) {
  if (component == "Light" && key == "m_pos")
    return "World units from the object; z is its height.";
  const auto found = FieldNotes().find(key);
  return found != FieldNotes().end() ? found->second : "";
}

std::vector<std::string> ComponentNeeds(const std::string& component) {
  const auto found = NeedsTable().find(component);
  return found != NeedsTable().end() ? found->second : std::vector<std::string>();
}

}  // namespace ZOVEngine
