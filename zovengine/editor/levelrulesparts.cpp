#include <algorithm>
#include <utility>

#include "editor/levelrulesreport.h"

namespace ZOVEngine {
namespace {

constexpr const char* kSheets[] = {"spawn", "death", "once", "loop"};
constexpr int kMostFrames = 10;
/// The fields that name a texture, by component. All but those of a Button may be empty.
constexpr std::pair<const char*, const char*> kTextureFields[] = {
    {"Render", "m_tex"},         {"Render", "m_hl_tex"},
    {"Button", "m_default_tex"}, {"Button", "m_highlight_tex"},
    {"Button", "m_click_tex"},   {"Animation", "m_spawn"},
    {"Animation", "m_death"},    {"Animation", "m_once"},
    {"Animation", "m_loop"},     {"ParticleSystemC", "particle_tex"}};

/// A component and one that must be beside it.
constexpr std::pair<const char*, const char*> kNeeds[] = {
    {"Render", "Transform"},     {"Render", "iModel"},
    {"Animation", "Render"},     {"Animation", "StateC"},
    {"Font", "Transform"},       {"Light", "Transform"},
    {"Camera", "Transform"},     {"ParticleSystemC", "Transform"},
    {"RigidBody", "Transform"},  {"ColliderHolder", "Transform"},
    {"Button", "Render"},        {"EnvironmentBlackhole", "Transform"},
    {"DeathField", "Transform"}, {"AIComp", "Enemy"},
};

void RequireParts(const ObjectView& object, LevelReport* report) {
  for (const auto& [component, other] : kNeeds) {
    if (!object.Has(component) || object.Has(other)) continue;
    report->Add("component-needs", object, std::string("has a ") + component + " without " + other);
  }
}

void CheckTextures(const ObjectView& object, const NameSet& listed, LevelReport* report) {
  for (const auto& [component, key] : kTextureFields) {
    const std::string_view texture = object.Text(component, key, "");
    if (texture.empty() || listed.contains(texture)) continue;
    report->Add("texture", object,
                "shows " + std::string(texture) + ", which graphics.json does not list");
  }
}

void CheckSheets(const ObjectView& object, LevelReport* report) {
  if (!object.Has("Animation")) return;
  for (const std::string sheet : kSheets) {
    const std::string key = "m_" + sheet;
    if (object.Text("Animation", key.c_str(), "").empty()) continue;
    const int frames = object.Whole("Animation", (key + "_frames").c_str(), 0);
    if (frames >= 1 && frames <= kMostFrames) continue;
    report->Add("sheet-frames", object,
                "has a " + sheet + " sheet of " + std::to_string(frames) + " frames, not 1 to 10");
  }
}

void CheckSounds(const ObjectView& object, const KnownAssets& known, LevelReport* report) {
  const std::vector<std::string> names = object.Texts("AudioSource", "sounds");
  const std::vector<std::string> kinds = object.Texts("AudioSource", "sound_type");
  for (std::size_t i = 0; i < std::min(names.size(), kinds.size()); ++i) {
    const NameSet& files = kinds[i] == "BGM" ? known.music : known.effects;
    if (files.contains(names[i])) continue;
    report->Add("sound", object, "lists the sound " + names[i] + ", of which there is no file");
  }
}

void CheckNames(const ObjectView& object, const KnownAssets& known, LevelReport* report) {
  CheckTextures(object, known.textures, report);
  CheckSheets(object, report);
  CheckSounds(object, known, report);
  const std::string_view category = object.Text("ColliderHolder", "bitmask_category", "Default");
  if (object.Has("ColliderHolder") && !known.categories.contains(category)) {
    report->Add("category", object,
                "has the category " + std::string(category) + ", which is unknown");
  }
}

void CheckObject(const ObjectView& object, const KnownAssets& known, LevelReport* report) {
  RequireParts(object, report);
  CheckNames(object, known, report);
  if (object.Has("DeathField") && object.parent == nullptr) {
    report->Add("field-parent", object, "is a DeathField without a parent");
  }
  if (object.Flag("Render", "m_tile", false)) {
    report->Add("tile-object", object, "is a tile: with it here the level would build no tiles");
  }
}

void RequireArchetype(const char* name, bool is_needed, const KnownAssets& known,
                      LevelReport* report) {
  if (!is_needed || known.archetypes.contains(name)) return;
  report->Add("archetype", LevelFile::kObjects,
              std::string("the level needs the archetype ") + name + ", which is absent");
}

}  // namespace

void CheckParts(const LevelView& level, const KnownAssets& known, LevelReport* report) {
  bool emits = false;
  for (const ObjectView& object : level.objects.All()) {
    CheckObject(object, known, report);
    emits = emits || object.Has("ParticleSystemC");
  }
  for (const ObjectView& tile : level.tiles.All()) {
    RequireParts(tile, report);
    CheckNames(tile, known, report);
  }
  RequireArchetype("particle_test", emits, known, report);
  RequireArchetype("tilecollider", !level.tiles.All().empty(), known, report);
}

void CheckBodies(const LevelView& level, LevelReport* report) {
  if (!level.has_units) return;
  const bool pulls = std::any_of(
      level.objects.All().begin(), level.objects.All().end(), [](const ObjectView& object) {
        return object.Number("EnvironmentBlackhole", "m_suction_range",
                             object.Has("EnvironmentBlackhole") ? 100.0f : 0.0f) > 0.0f;
      });
  for (const ObjectView& object : level.objects.All()) {
    if (!object.Has("RigidBody") || object.IsShot()) continue;
    if (object.Number("RigidBody", "m_drag", 0.0f) <= 0.0f) {
      report->Add("body-drag", object,
                  "is a body without drag, which may never rest, and every turn waits for that");
    }
    if (object.Number("RigidBody", "m_angular_drag", 0.0f) <= 0.0f &&
        object.Number("RigidBody", "m_inertia", 1.0f) > 0.0f) {
      report->Add("body-spin", object,
                  "is a body without angular drag, which may turn for ever, and every turn waits "
                  "for that");
    }
    if (pulls && !object.Has("ColliderHolder")) {
      report->Add("body-shape", object,
                  "is a body without a ColliderHolder, which a black hole would pull to and fro "
                  "for ever");
    }
    if (object.Vectors("Waypoint", "m_path").size() > 1 &&
        object.Number("Waypoint", "m_limit", 0.0f) > 0.0f) {
      report->Add("body-waypoint", object,
                  "is a Waypoint that never stands still, and every turn waits for that");
    }
  }
}

}  // namespace ZOVEngine
