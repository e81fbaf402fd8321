#include "render/graphicsconfig.h"

#include "render/rendersystem.h"

namespace ZOVEngine {
namespace {

/// The keys of a program's two source files.
struct ShaderKeys {
  const char* vertex;
  const char* fragment;
  ShaderRecord RenderSystem::*record;
};

constexpr ShaderKeys kShaderKeys[] = {
    {"vshader", "fshader", &RenderSystem::m_default_shader},
    {"fontvshader", "fontfshader", &RenderSystem::m_font_shader},
    {"instancevshader", "instancefshader", &RenderSystem::m_instance_shader},
    {"lightvshader", "lightfshader", &RenderSystem::m_light_shader},
};

}  // namespace

void ReadGraphicsConfig(const Value& root, RenderSystem* system) {
  // The reader of arrays empties its target, and a missing list must keep it.
  if (FindOrComplain(root, "texPath") != nullptr) {
    ReadStringArray(root, "texPath", &system->m_texture_paths);
  }
  ReadValue(root, "fontPath", &system->m_font_path);
  for (const ShaderKeys& keys : kShaderKeys) {
    ShaderRecord& shader = system->*keys.record;
    ReadValue(root, keys.vertex, &shader.vertex_path);
    ReadValue(root, keys.fragment, &shader.fragment_path);
  }
  ReadValue(root, "vsync", &system->m_vsync);
}

void WriteGraphicsConfig(Writer& writer, const RenderSystem& system) {
  writer.json->StartObject();
  WriteStringArray(writer, "texPath", system.m_texture_paths);
  WriteValue(writer, "fontPath", system.m_font_path);
  for (const ShaderKeys& keys : kShaderKeys) {
    const ShaderRecord& shader = system.*keys.record;
    WriteValue(writer, keys.vertex, shader.vertex_path);
    WriteValue(writer, keys.fragment, shader.fragment_path);
  }
  WriteValue(writer, "vsync", system.m_vsync);
  writer.json->EndObject();
}

}  // namespace ZOVEngine
