#include "support/world.h"

#include <cstring>
#include <sstream>

#include "core/statemachine.h"
#include "jsonunserializer.h"
#include "physics/components/transform.h"
#include "platform/windowsystem.h"

namespace carapace_test {

using namespace ZOVEngine;

namespace {

constexpr const char* kLevels = "Level Editor/Levels/";

const char* const kShippedPaths[] = {
    "Resources/Archetypes/WinInit.json",
    "Resources/Archetypes/GameObjects/camera.json",
    "Resources/Archetypes/GameObjects/particle_test.json",
    "Resources/Archetypes/GameObjects/tilecollider.json",
    "Resources/CollisionInfo.json",
    "Level Editor/Levels/SplashScreen/SplashScreen.json",
    "Level Editor/Levels/SplashScreen/Entity/Units.json",
    "Level Editor/Levels/MainMenu/MainMenu.json",
    "Level Editor/Levels/MainMenu/Entity/Units.json",
    "Resources/Shaders/default.vert",
    "Resources/Shaders/default.frag",
    "Resources/Shaders/font.vert",
    "Resources/Shaders/font.frag",
    "Resources/Shaders/instance.vert",
    "Resources/Shaders/instance.frag",
    "Resources/Shaders/light.vert",
    "Resources/Shaders/light.frag",
};

constexpr const char* kGraphicsWithoutTextures = R"({
    "texPath": [],
    "fontPath": "Resources/Fonts/none.ttf",
    "vshader": "Resources/Shaders/default.vert",
    "fshader": "Resources/Shaders/default.frag",
    "fontvshader": "Resources/Shaders/font.vert",
    "fontfshader": "Resources/Shaders/font.frag",
    "instancevshader": "Resources/Shaders/instance.vert",
    "instancefshader": "Resources/Shaders/instance.frag",
    "lightvshader": "Resources/Shaders/light.vert",
    "lightfshader": "Resources/Shaders/light.frag",
    "vsync": false
})";

}  // namespace

Files World::ShippedFiles() {
  Files files;
  for (const char* path : kShippedPaths) files[path] = ShippedFile(path);
  files["Resources/Textures/graphics.json"] = kGraphicsWithoutTextures;
  return files;
}

Files World::BaseFiles() {
  Files files = ShippedFiles();
  for (const char* screen : {"SplashScreen", "MainMenu"}) {
    const std::string folder = std::string(kLevels) + screen + "/";
    files[folder + "Entity/Units.json"] = R"({"GameObjFactory": []})";
  }
  return files;
}

World::World(const Files& files) {
  Files all = BaseFiles();
  for (const auto& [path, text] : files) all[path] = text;
  for (const auto& [path, text] : all) {
    if (!text.empty()) m_directory.Write(path, text);
  }
  g_native = &native;
  g_gl_device = &device;
  // What another world of this process left behind.
  g_window_state = WindowState();
  g_current_level_path = "Level Editor/Levels/Level01/Level01.json";
  CreateEngine();
  InitSystems();
}

World::~World() {
  Shutdown();
  g_native = nullptr;
  g_gl_device = nullptr;
}

void World::Shutdown() {
  if (g_engine != nullptr) DestroyEngine();
}

void World::Step(int steps) {
  for (int i = 0; i < steps; ++i) RunStep(*g_engine, BeginStep);
}

void World::LoadObjects(const std::string& records) {
  m_directory.Write("objects-of-the-test.json", "{\"GameObjFactory\": [" + records + "]}");
  g_game_obj_factory->LoadObjects("objects-of-the-test.json");
}

GameObj* World::Find(const std::string& name) const {
  for (GameObj* object : g_game_obj_factory->m_objects) {
    if (object->name == name) return object;
  }
  return nullptr;
}

std::string Record(const std::string& name,
                   const std::vector<std::pair<std::string, std::string>>& components,
                   const std::vector<std::string>& children, bool active) {
  std::ostringstream out;
  out << "{\"name\": \"" << name << "\", \"active\": " << (active ? "true" : "false")
      << ", \"components\": [";
  for (std::size_t i = 0; i < components.size(); ++i) {
    out << (i == 0 ? "" : ", ") << '"' << components[i].first << '"';
  }
  out << "]";
  for (const auto& [type, fields] : components) out << ", \"" << type << "\": " << fields;
  out << ", \"Childs\": [";
  for (std::size_t i = 0; i < children.size(); ++i) out << (i == 0 ? "" : ", ") << children[i];
  out << "]}";
  return out.str();
}

std::string TransformAt(float x, float y, float z, float scale, float rotate, bool with_parent) {
  std::ostringstream out;
  out << "{\"m_pos\": [" << x << ", " << y << ", " << z << "], \"m_scale\": [" << scale << ", "
      << scale << ", 1], \"m_rotate\": " << rotate
      << ", \"m_rotate_with_parent\": " << (with_parent ? "true" : "false")
      << ", \"m_world_scale\": [1, 1, 1], \"m_world_rotate\": 0, \"m_world_pos\": [0, 0, 1]}";
  return out.str();
}

}  // namespace carapace_test
