#include "editor/objectpath.h"

#include <algorithm>

#include "game/levels/levelobjects.h"
#include "objects/gameobjfactory.h"

namespace ZOVEngine {
namespace {

/// The place of `object` in `list`, or the list's size.
std::uint32_t PlaceIn(const std::vector<GameObj*>& list, const GameObj* object) {
  const auto found = std::find(list.begin(), list.end(), object);
  return static_cast<std::uint32_t>(found - list.begin());
}

void AppendWithChildren(GameObj* object, const ObjectPath& path, std::vector<PlacedObject>* out) {
  out->push_back({object, path});
  ObjectPath child = path;
  child.push_back(0);
  for (std::uint32_t i = 0; i < object->children.size(); ++i) {
    child.back() = i;
    AppendWithChildren(object->children[i], child, out);
  }
}

}  // namespace

std::vector<GameObj*> LevelRoots() {
  std::vector<GameObj*> roots;
  for (GameObj* object : g_game_obj_factory->m_objects) {
    if (IsLevelObject(object)) roots.push_back(object);
  }
  return roots;
}

GameObj* ObjectAt(const ObjectPath& path) {
  if (path.empty()) return nullptr;
  const std::vector<GameObj*> roots = LevelRoots();
  if (path[0] >= roots.size()) return nullptr;
  GameObj* object = roots[path[0]];
  for (std::size_t i = 1; i < path.size(); ++i) {
    if (path[i] >= object->children.size()) return nullptr;
    object = object->children[path[i]];
  }
  return object;
}

ObjectPath PathTo(GameObj* object) {
  if (object == nullptr) return {};
  ObjectPath path;
  GameObj* at = object;
  for (; at->parent != nullptr; at = at->parent) {
    path.push_back(PlaceIn(at->parent->children, at));
  }
  const std::vector<GameObj*> roots = LevelRoots();
  const std::uint32_t place = PlaceIn(roots, at);
  if (place == roots.size()) return {};
  path.push_back(place);
  std::reverse(path.begin(), path.end());
  return path;
}

bool IsWithin(const ObjectPath& path, const ObjectPath& ancestor) {
  return path.size() >= ancestor.size() &&
         std::equal(ancestor.begin(), ancestor.end(), path.begin());
}

std::vector<PlacedObject> LevelObjects() {
  std::vector<PlacedObject> out;
  const std::vector<GameObj*> roots = LevelRoots();
  for (std::uint32_t i = 0; i < roots.size(); ++i) AppendWithChildren(roots[i], {i}, &out);
  return out;
}

}  // namespace ZOVEngine
