#include "core/app/loadscreen.h"

#include "jsonunserializer.h"
#include "objects/gameobjfactory.h"
#include "render/rendersystem.h"

namespace ZOVEngine {

void LoadScreen(const std::string& path) {
  JsonDocument document;
  document.Open(path);
  document.Parse();
  std::string objects;
  std::string background;
  ReadValue(document.Root(), "Objects", &objects);
  ReadValue(document.Root(), "Background", &background);
  g_game_obj_factory->LoadObjects(objects);
  g_render_system->m_background_tex = background;
  // No screen has a camera: it is not seen from where a level or the editor was left.
  g_render_system->m_view_translate = Vector3D();
}

void ShowBackground(const std::string& path) {
  JsonDocument document;
  document.Open(path);
  document.Parse();
  ReadValue(document.Root(), "Background", &g_render_system->m_background_tex);
}

}  // namespace ZOVEngine
