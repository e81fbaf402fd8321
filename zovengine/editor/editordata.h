#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/base/vector3d.h"

namespace ZOVEngine {

class GameObj;

/// What a release of W, R or E chooses for the mouse; the numbers are what `m_edit_mode` holds.
enum EditMode : std::uint32_t { EDIT_MOVE = 0, EDIT_SCALE = 1, EDIT_ROTATE = 2 };

/// The tile map of the open level and the tool that paints it.
struct TileMapInfo {
  std::string m_map_dir;         ///< folder of the map's files, with a slash at its end
  std::string m_map_name;        ///< of the map's file, without ending
  std::int32_t m_width = 0;      ///< (unit: tiles)
  std::int32_t m_height = 0;     ///< (unit: tiles)
  std::int32_t m_tile_size = 0;  ///< side of a tile (unit: world units)
  std::string m_mode = "Draw Single";
  /// The tools in the order of the menu.
  std::vector<std::string> m_modes = {"Draw Single", "Erase", "Draw Row", "Draw Column",
                                      "Rotate Tile"};
  std::string m_tile_tex = "default";  ///< texture key of the tile that is painted
};

/// Everything that the editor's state, its panels and its import share.
///
/// There is one, `g_editor`, and it outlives the state: the state object has no fields of its own.
/// `m_editor_camera` belongs to the factory and is gone with the next ClearObjects.
struct EditorData {
  GameObj* m_editor_camera = nullptr;
  bool m_dragging = false;  ///< panning with the right mouse button
  Vector3D m_last_mouse;    ///< cursor at the last step of panning (unit: world units)
  bool m_ctrl_down = false;
  std::uint32_t m_edit_mode = EDIT_MOVE;
  bool m_level_open = false;         ///< guards saving and file drops
  bool m_input_captured = false;     ///< a panel holds the keyboard: every message is ignored
  bool m_mouse_captured = false;     ///< a panel or a tool has the mouse: it moves no view
  std::string m_level_name;          ///< folder and file stem of the level
  std::string m_asset_dir;           ///< target folder of dropped files
  float m_viewport_offset_y = 0.0f;  ///< shifts the game's picture in the layout (unit: pixels)
  TileMapInfo m_tile_map;
  /// How the panels save the open level; while there are none, its live objects are saved as they
  /// are.
  std::function<void()> m_save;
};

extern EditorData g_editor;

}  // namespace ZOVEngine
