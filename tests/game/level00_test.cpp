#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "audio/audiosource.h"
#include "core/base/random.h"
#include "game/camera.h"
#include "game/level00hash.h"
#include "game/level00world.h"
#include "game/turns/gamecontroller.h"
#include "jsonunserializer.h"
#include "physics/components/colliderholder.h"
#include "render/components/light.h"
#include "render/components/particlesystemc.h"
#include "render/components/render.h"
#include "render/graphicsconfig.h"
#include "support/reports.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::SizeIs;

std::vector<GameObj*> ObjectsNamed(const std::string& name) {
  std::vector<GameObj*> found;
  for (GameObj* object : g_game_obj_factory->m_objects) {
    if (object->name == name) found.push_back(object);
  }
  return found;
}

template <class T>
std::vector<T*> All() {
  const auto components = ComponentTable<T>().Components();
  return {components.begin(), components.end()};
}

/// Texture keys as the settings of the picture list them.
std::vector<std::string> ListedTextures() {
  JsonDocument settings;
  settings.ParseText(ShippedFile(kGraphicsConfigPath), "graphics.json");
  std::vector<std::string> keys;
  ReadStringArray(settings.Root(), "texPath", &keys);
  for (std::string& key : keys) {
    key = key.substr(std::string("Resources/Textures/").size());
    key.resize(key.size() - std::string(".png").size());
  }
  return keys;
}

TEST(Level00, LoadingItComplainsOfNothing) {
  const std::string output = OutputOf([] { const Level00World level; });
  EXPECT_THAT(output, Not(HasSubstr("Cant find Key: m_")));
  EXPECT_THAT(output, Not(HasSubstr(" not found")));
  EXPECT_THAT(output, Not(HasSubstr("Not Object")));
}

TEST(Level00, TheMapIsTheWholeScreenAndIsMergedIntoTenBoxes) {
  Level00World level;
  const TileMap& map = level.world.Find("level")->GetComponent<GameController>()->m_tile_map;
  EXPECT_EQ(map.m_width * static_cast<unsigned>(map.m_tileSize), 1920u);
  EXPECT_EQ(map.m_height * static_cast<unsigned>(map.m_tileSize), 1080u);
  EXPECT_THAT(ObjectsNamed("tile_collider"), SizeIs(10))
      << "four walls, and two bars of four and two rows";
}

TEST(Level00, TheFloorHasNoColliders) {
  Level00World level;
  for (GameObj* object : ObjectsNamed("tile_collider")) {
    const Vector3D& min = object->GetComponent<ColliderHolder>()->m_collider->m_min;
    const Vector3D& max = object->GetComponent<ColliderHolder>()->m_collider->m_max;
    EXPECT_TRUE(max.x - min.x == 60.0f || max.y - min.y == 60.0f) << "a bar of one tile's breadth";
  }
}

TEST(Level00, ThereIsEveryShapeThatMovesAndAPillarThatDoesNot) {
  const Level00World level;
  std::map<std::string, int> moving;
  for (GameObj* body : Level00World::Things()) {
    ++moving[body->GetComponent<ColliderHolder>()->m_collider_type];
  }
  EXPECT_GE(moving["Box"], 3);
  EXPECT_GE(moving["Circle"], 3);
  EXPECT_GE(moving["Polygon"], 3);
  ASSERT_THAT(ObjectsNamed("pillar"), SizeIs(1));
  EXPECT_FALSE(ObjectsNamed("pillar").front()->HasComponent<RigidBody>());
}

TEST(Level00, TheCameraIsOnAndTheLampsAreThere) {
  Level00World level;
  ASSERT_THAT(All<Camera>(), SizeIs(1));
  EXPECT_TRUE(All<Camera>().front()->m_active);
  EXPECT_GE(All<Light>().size(), 2u);
}

TEST(Level00, WhatItShowsIsInTheSettingsOfThePicture) {
  const Level00World level;
  const std::vector<std::string> listed = ListedTextures();
  for (const Render* render : All<Render>()) {
    if (render->m_owner->name == "particle_test") continue;  // its emitter gives it a texture
    EXPECT_THAT(listed, Contains(render->m_tex)) << render->m_owner->name;
  }
  for (const ParticleSystemC* emitter : All<ParticleSystemC>()) {
    EXPECT_THAT(listed, Contains(emitter->particle_tex));
  }
}

TEST(Level00, TheMusicIsALoopThatStartsWithTheLevel) {
  Level00World level;
  GameObj* root = level.world.Find("level");
  const auto& sounds = root->GetComponent<AudioSource>()->sounds;
  ASSERT_EQ(sounds.count(root->GetComponent<GameController>()->m_level_theme), 1u);
  const SoundRecord& music = sounds.at("maintheme03.ogg");
  EXPECT_EQ(music.sound_type, "BGM");
  EXPECT_TRUE(music.loop);
  EXPECT_GT(music.volume, 0.0f);
  EXPECT_EQ(level.world.mixer.CountPlays("Resources/Sound/BGM/maintheme03.ogg"), 1);
  EXPECT_EQ(level.world.mixer.CountPlays("Resources/Sound/SFX/button_click.ogg"), 1);
}

TEST(Level00, ThingsMoveByThemselves) {
  Level00World level;
  std::map<GameObj*, Vector3D> before;
  for (GameObj* body : Level00World::Things()) before[body] = Level00World::PlaceOf(body);
  level.world.Step(120);
  int moved = 0;
  for (const auto& [body, place] : before) {
    moved += (Level00World::PlaceOf(body) - place).Length() > 50.0f ? 1 : 0;
  }
  EXPECT_GE(moved, 10);
}

TEST(Level00, NothingLeavesTheWallsInAMinute) {
  Level00World level;
  for (int second = 0; second < 60; ++second) {
    level.world.Step(60);
    ASSERT_EQ(level.CountOutside(), 0) << "after " << second + 1 << " seconds";
  }
}

TEST(Level00, SparksRiseFromTheFountain) {
  Level00World level;
  level.world.Step(120);
  GameObj* fountain = level.world.Find("fountain");
  const Vector3D source = Level00World::PlaceOf(fountain);
  int flying = 0;
  for (const Particle* particle : fountain->GetComponent<ParticleSystemC>()->m_particles) {
    if (!particle->m_owner->active) continue;
    ++flying;
    EXPECT_GT(Level00World::PlaceOf(particle->m_owner).y, source.y);
  }
  EXPECT_GE(flying, 40);
}

TEST(Level00, ARestartIsTheSameLevel) {
  Level00World level;
  const std::uint64_t hash = level.world.Hash();
  level.world.Step(90);
  EXPECT_NE(level.world.Hash(), hash);
  level.world.Find("level")->GetComponent<GameController>()->m_restart = true;
  level.world.Step();
  SeedRand(Level00World::kSeed);
  level.world.Step();
  EXPECT_EQ(level.world.Hash(), hash);
}

std::uint64_t HashAfter(int steps) {
  Level00World level;
  level.world.Step(steps);
  return level.world.Hash();
}

TEST(Level00, TwoRunsAreOneAndTheSame) {
  EXPECT_EQ(HashAfter(300), HashAfter(300));
}

TEST(Level00, AMinuteOfItEndsAsEver) {
  EXPECT_EQ(HashAfter(kLevel00HashSteps), kLevel00Hash);
}

}  // namespace
}  // namespace carapace_test
