#include "core/app/defaultstate.h"

#include "jsonunserializer.h"
#include "objects/gameobjfactory.h"

void DefaultState::Enter() {
  ZOVEngine::JsonDocument document;
  document.Open(ZOVEngine::g_current_level_path);
  document.Parse();
  ZOVEngine::ReadValue(document.Root(), "TileMap", &m_tileMapPath);
  ZOVEngine::ReadValue(document.Root(), "Objects", &m_objectsPath);
  ZOVEngine::g_game_obj_factory->LoadObjects(m_objectsPath);
}
