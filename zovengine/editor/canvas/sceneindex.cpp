#include "editor/canvas/sceneindex.h"

#include <algorithm>

#include "editor/leveldocument.h"
#include "game/camera.h"
#include "game/objectquery.h"
#include "game/turns/gamecontroller.h"
#include "objects/gameobjfactory.h"
#include "physics/components/colliderholder.h"
#include "physics/components/transform.h"
#include "render/components/animation.h"
#include "render/components/light.h"
#include "render/components/particlesystemc.h"
#include "render/components/render.h"
#include "ui/buttons/button.h"
#include "ui/elements/uielement.h"

namespace ZOVEngine {
namespace {

constexpr const char* kInterfacePrefix = "ui_";

bool IsInterface(const GameObj& object) {
  return object.HasComponent<UIElement>() || object.HasComponent<Button>() ||
         object.HasComponent<Camera>() || object.name.rfind(kInterfacePrefix, 0) == 0;
}

/// Whether the object is a plain image: nothing acts, shines or is in the path of a shot.
bool IsPlainImage(const SceneEntry& entry) {
  return entry.path.size() == 1 && entry.render != nullptr && entry.collider == nullptr &&
         entry.object->children.empty() && !entry.object->HasComponent<Light>() &&
         !entry.object->HasComponent<Animation>() && !entry.object->HasComponent<ParticleSystemC>();
}

bool PathBefore(const SceneEntry& entry, const ObjectPath& path) {
  return entry.path < path;
}

}  // namespace

bool SceneIndex::Refresh(const LevelDocument& document) {
  const std::uint64_t clears = g_game_obj_factory->ClearCount();
  const std::size_t objects = g_game_obj_factory->m_objects.size();
  if (m_built && clears == m_clears && objects == m_objects) return false;
  const bool new_scene = !m_built || clears != m_clears;
  m_clears = clears;
  m_objects = objects;
  m_built = true;
  Build(document);
  if (new_scene) MarkDraggable();
  return true;
}

void SceneIndex::Build(const LevelDocument& document) {
  m_entries.clear();
  const std::uint32_t saved_roots = document.Children({})->Size();
  for (const PlacedObject& placed : LevelObjects()) {
    // Roots behind those of the document live in the running editor only.
    if (placed.path.front() >= saved_roots) break;
    AddEntry(placed);
  }
  MarkPaint();
}

void SceneIndex::AddEntry(const PlacedObject& placed) {
  SceneEntry entry;
  entry.object = placed.object;
  entry.transform = FindComponent<Transform>(placed.object);
  entry.render = FindComponent<Render>(placed.object);
  entry.collider = FindComponent<ColliderHolder>(placed.object);
  entry.path = placed.path;
  entry.is_level = placed.path.size() == 1 && placed.object->HasComponent<GameController>();
  entry.unit = static_cast<std::uint32_t>(m_entries.size());
  const SceneEntry* parent =
      placed.path.size() > 1 ? Find({placed.path.begin(), placed.path.end() - 1}) : nullptr;
  if (parent != nullptr && !parent->is_level) {
    entry.unit = parent->unit;
    entry.is_interface = parent->is_interface;
  } else {
    entry.is_interface = IsInterface(*placed.object);
  }
  m_entries.push_back(std::move(entry));
}

void SceneIndex::MarkPaint() {
  const auto root = std::find_if(m_entries.begin(), m_entries.end(),
                                 [](const SceneEntry& entry) { return entry.is_level; });
  if (root == m_entries.end()) return;
  for (auto entry = m_entries.begin(); entry != root; ++entry) {
    entry->is_paint = !entry->is_interface && IsPlainImage(*entry);
  }
}

void SceneIndex::MarkDraggable() {
  for (const SceneEntry& entry : m_entries) {
    if (entry.transform != nullptr) entry.transform->CanBeDragged = !entry.is_level;
  }
}

const SceneEntry* SceneIndex::Find(const ObjectPath& path) const {
  const auto found = std::lower_bound(m_entries.begin(), m_entries.end(), path, PathBefore);
  return found != m_entries.end() && found->path == path ? &*found : nullptr;
}

std::vector<const SceneEntry*> SceneIndex::Selected(const Selection& selection) const {
  std::vector<const SceneEntry*> out;
  for (const ObjectPath& path : selection) {
    if (const SceneEntry* entry = Find(path)) out.push_back(entry);
  }
  return out;
}

std::vector<const SceneEntry*> SceneIndex::SelectedTopmost(const Selection& selection) const {
  std::vector<const SceneEntry*> sorted = Selected(selection);
  std::sort(sorted.begin(), sorted.end(),
            [](const SceneEntry* a, const SceneEntry* b) { return a->path < b->path; });
  std::vector<const SceneEntry*> out;
  for (const SceneEntry* entry : sorted) {
    if (out.empty() || !IsWithin(entry->path, out.back()->path)) out.push_back(entry);
  }
  return out;
}

}  // namespace ZOVEngine
