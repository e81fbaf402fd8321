#include "support/scene.h"

#include <gtest/gtest.h>

#include "game/camera.h"
#include "render/components/particle.h"

namespace carapace_test {

using namespace ZOVEngine;

Scene::Scene(const Files& files) : world(files) {
  System().m_textures = {{"one", 1},  {"two", 2},      {"three", 3},   {"four", 4},
                         {"five", 5}, {"six", 6},      {"seven", 7},   {"eight", 8},
                         {"nine", 9}, {"default", 10}, {"yellow", 11}, {"Crosshair", 12}};
}

GameObj* Scene::AddObject(const std::string& name, GameObj* parent) {
  auto* object = new GameObj;
  object->id = static_cast<std::uint32_t>(g_game_obj_factory->m_objects.size());
  object->name = name;
  object->parent = parent;
  if (parent != nullptr) parent->children.push_back(object);
  g_game_obj_factory->m_objects.push_back(object);
  object->AddComponent<Transform>();
  return object;
}

GameObj* Scene::AddSprite(const std::string& name, const std::string& texture, GameObj* parent) {
  GameObj* object = AddObject(name, parent);
  object->AddComponent<Render>();
  object->AddComponent<iModel>();
  Of<Render>(object).m_tex = texture;
  Of<iModel>(object).m_vertices.resize(1);
  return object;
}

GameObj* Scene::AddAnimated(const std::string& name, const std::string& state) {
  GameObj* object = AddSprite(name, "one");
  object->AddComponent<Animation>();
  object->AddComponent<StateC>();
  Of<StateC>(object).m_state = state;
  Animation& animation = Of<Animation>(object);
  animation.m_spawn_frames = animation.m_death_frames = 4;
  animation.m_once_frames = animation.m_loop_frames = 4;
  animation.m_spawn = "two";
  animation.m_death = "three";
  animation.m_once = "four";
  animation.m_loop = "five";
  animation.m_time_per_frame = 0.0f;
  return object;
}

GameObj* Scene::AddParticle(const std::string& texture) {
  GameObj* object = AddSprite("particle", texture);
  object->AddComponent<Particle>();
  Of<Render>(object).m_shader = "instanced";
  return object;
}

GameObj* Scene::AddCamera(GameObj* parent) {
  GameObj* object = AddObject("camera", parent);
  object->AddComponent<Camera>();
  Of<Camera>(object).m_active = true;
  return object;
}

std::vector<DrawCommand> Scene::Draw() {
  world.Step();
  const std::vector<DrawCommand>& all = Frame().commands;
  EXPECT_GE(all.size(), 2u);
  return {all.begin() + 1, all.end() - 1};
}

DrawCommand Scene::DrawOne() {
  const std::vector<DrawCommand> draws = Draw();
  EXPECT_EQ(draws.size(), 1u);
  return draws.empty() ? DrawCommand() : draws.front();
}

std::vector<int> Scene::DrawTextures() {
  std::vector<int> textures;
  for (const DrawCommand& draw : Draw()) textures.push_back(static_cast<int>(draw.texture));
  return textures;
}

}  // namespace carapace_test
