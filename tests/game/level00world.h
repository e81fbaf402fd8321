#pragma once

#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "objects/gameobjfactory.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"
#include "render/components/particle.h"
#include "support/levelgame.h"

namespace carapace_test {

/// The training range with fixed random numbers, and what tests ask of the things in it.
class Level00World : public LevelGame {
 public:
  static constexpr std::uint32_t kSeed = 2026;

  explicit Level00World(const Files& more = {}) : LevelGame("Level00", kSeed, more) {}

  /// The crates, drums and blocks that lie about: bodies by themselves.
  static std::vector<ZOVEngine::GameObj*> Things() {
    std::vector<ZOVEngine::GameObj*> things;
    for (ZOVEngine::GameObj* body : Bodies()) {
      if (body->parent == nullptr) things.push_back(body);
    }
    return things;
  }

  /// All bodies that are awake, units and shots too, but no particles.
  static std::vector<ZOVEngine::GameObj*> Bodies() {
    std::vector<ZOVEngine::GameObj*> bodies;
    for (ZOVEngine::GameObj* object : ZOVEngine::g_game_obj_factory->m_objects) {
      if (object->active && object->HasComponent<ZOVEngine::RigidBody>() &&
          !object->HasComponent<ZOVEngine::Particle>()) {
        bodies.push_back(object);
      }
    }
    return bodies;
  }

  static const ZOVEngine::Vector3D& PlaceOf(ZOVEngine::GameObj* object) {
    return object->GetComponent<ZOVEngine::Transform>()->m_world_pos;
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
};

}  // namespace carapace_test
