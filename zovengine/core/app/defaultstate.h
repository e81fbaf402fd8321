#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "core/app/screenstate.h"
#include "game/turns/gamecontroller.h"
#include "ui/buttons/button.h"

/// A level: loads the object file of the level at the global current-level path.
///
/// The tile map and its tile objects are left to the level's turn controller, and the background
/// stays what the last screen set. Broadcasts go to every GameController, then to every Button.
class DefaultState final
    : public ZOVEngine::ScreenState<ZOVEngine::GameController, ZOVEngine::Button> {
 public:
  void Enter() override;

  std::string m_tileMapPath;
  std::string m_objectsPath;

  /// Kept as part of the state's record; nothing reads the two.
  std::string m_tilesPath;
  struct TileRecord {
    std::vector<std::vector<int>> m_grid;
    std::unordered_map<int, std::string> m_names;
  } m_tiles;
};
