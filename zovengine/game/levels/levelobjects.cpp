#include "game/levels/levelobjects.h"

#include <algorithm>
#include <iterator>

#include "objects/gameobjfactory.h"
#include "render/components/render.h"

namespace ZOVEngine {
namespace {

// Names of objects that the editor and the level's own start add to a scene. The collider's
// archetype is the file "tilecollider"; the name here is the one in its record.
constexpr const char* kUnsavedNames[] = {"tile", "tile_collider", "particle_test", "LECamera"};

}  // namespace

bool IsTile(GameObj* object) {
  return object->HasComponent<Render>() && object->GetComponent<Render>()->m_tile;
}

bool IsLevelObject(GameObj* object) {
  const bool unsaved = std::any_of(std::begin(kUnsavedNames), std::end(kUnsavedNames),
                                   [object](const char* name) { return object->name == name; });
  return !unsaved && !IsTile(object) && object->parent == nullptr;
}

void WriteLevelObjects(Writer& writer) {
  writer.json->StartObject();
  WriteKey(writer, "GameObjFactory");
  writer.json->StartArray();
  const std::vector<GameObj*> objects = g_game_obj_factory->m_objects;
  for (GameObj* object : objects) {
    if (IsLevelObject(object)) WriteObject(writer, object);
  }
  writer.json->EndArray();
  writer.json->EndObject();
}

}  // namespace ZOVEngine
