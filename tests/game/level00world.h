#pragma once

#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "core/random.h"
#include "core/statemachine.h"
#include "game/levelsave.h"
#include "objects/gameobjfactory.h"
#include "physics/rigidbody.h"
#include "physics/transform.h"
#include "render/particle.h"
#include "render/rendersystem.h"
#include "support/world.h"

namespace carapace_test {

/// The training range as it is shipped, entered from the menu, with fixed random numbers.
///
/// The construction ends after the first step: the level is loaded, built and drawn once.
class Level00World {
 public:
  explicit Level00World(const Files& more = {}) : world(AndLevel(more)) {
    // Once for what draws before the level's controller starts, and once for after, since the
    // controller seeds from the time of day.
    ZOVEngine::SeedRand(kSeed);
    ZOVEngine::g_current_level_path = ZOVEngine::LevelPaths("Level00").level;
    ZOVEngine::ChangeState(ZOVEngine::kDefaultState, "");
    ZOVEngine::g_render_system->m_background_tex = "Background_Space";
    world.Step();
    ZOVEngine::SeedRand(kSeed);
  }

  /// The things that move: bodies that are no particles.
  static std::vector<ZOVEngine::GameObj*> Bodies() {
    std::vector<ZOVEngine::GameObj*> bodies;
    for (ZOVEngine::GameObj* object : ZOVEngine::g_game_obj_factory->m_objects) {
      if (object->HasComponent<ZOVEngine::RigidBody>() &&
          !object->HasComponent<ZOVEngine::Particle>()) {
        bodies.push_back(object);
      }
    }
    return bodies;
  }

  static const ZOVEngine::Vector3D& PlaceOf(ZOVEngine::GameObj* object) {
    return object->GetComponent<ZOVEngine::Transform>()->m_local_pos;
  }

  /// True if the middle of the object is on the walled floor. False for a place that is no number.
  static bool IsInside(ZOVEngine::GameObj* object) {
    const ZOVEngine::Vector3D& place = PlaceOf(object);
    return std::abs(place.x) < 960.0f && std::abs(place.y) < 540.0f;
  }

  /// How many bodies are outside the walls.
  static int CountOutside() {
    int count = 0;
    for (ZOVEngine::GameObj* body : Bodies()) count += IsInside(body) ? 0 : 1;
    return count;
  }

  static constexpr std::uint32_t kSeed = 2026;

  World world;

 private:
  static Files AndLevel(const Files& more) {
    Files files = World::ShippedFiles();
    const ZOVEngine::LevelPaths paths("Level00");
    for (const std::string& path : {paths.level, paths.tile_map, paths.tiles, paths.objects}) {
      files[path] = ShippedFile(path);
    }
    for (const auto& [path, text] : more) files[path] = text;
    return files;
  }
};

}  // namespace carapace_test
