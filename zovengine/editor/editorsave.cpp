#include "editor/editorsave.h"

#include "editor/editordata.h"
#include "game/levels/levelobjects.h"
#include "game/levels/levelsave.h"
#include "objects/gameobjfactory.h"

namespace ZOVEngine {

void SaveOpenLevel() {
  if (!g_editor.m_level_open) return;
  if (g_editor.m_save) {
    g_editor.m_save();
  } else {
    SaveLiveLevel();
  }
}

bool SaveLiveLevel() {
  const TileMapInfo& map = g_editor.m_tile_map;
  const bool map_saved =
      SaveTileMap({map.m_map_dir, map.m_map_name, map.m_width, map.m_height, map.m_tile_size});
  const bool units_saved = SaveUnits(g_editor.m_level_name);
  const bool index_saved = SaveLevelIndex(g_editor.m_level_name);
  return map_saved && units_saved && index_saved;
}

void DestroyTiles() {
  // From the end: the last object takes a destroyed one's place.
  const std::vector<GameObj*>& objects = g_game_obj_factory->m_objects;
  for (std::size_t i = objects.size(); i-- > 0;) {
    if (i < objects.size() && IsTile(objects[i])) {
      g_game_obj_factory->Destroy(static_cast<std::uint32_t>(i));
    }
  }
}

}  // namespace ZOVEngine
