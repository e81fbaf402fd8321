#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/plainphysics.h"

namespace carapace_test {

/// What the logic component of an object does when it is told of a contact.
enum class Reaction {
  kNone,
  kDeaf,          ///< the object has no logic component
  kGhost,         ///< lets every contact pass through
  kGhostOnEnter,  ///< lets a contact pass through in its first step
  kJump,          ///< adds a force to itself on Enter
  kStop,          ///< clears its own velocity on Stay
  kSwitchOff,     ///< switches its own holder off on Enter
  kReturn,        ///< goes back to the middle on Exit
};

/// An object of a scene: what both readings of the physics start from.
struct SceneObject {
  PlainObject plain;
  float mass = 1.0f;
  float inertia = 1.0f;
  Reaction reaction = Reaction::kNone;
};

/// Something done to an object between two steps.
struct SceneAction {
  enum class Kind {
    kForce,
    kTorque,
    kRotate,
    kScale,
    kPlace,
    kSwitchShape,
    kSwitchBody,
    kCategory,
    kMoveLocal,
    kType,
    kVelocity,
  };
  int step = 0;
  Kind kind = Kind::kForce;
  std::uint32_t object = 0;
  Vector3D vector;
  float amount = 0.0f;
  float duration = 0.0f;
  bool on = false;
  std::string name;
};

/// Objects, collision masks, and what happens to them step by step.
///
/// A seed gives the same scene on every machine. `crowd` bounds the number of objects.
struct PhysicsScene {
  std::vector<SceneObject> objects;
  std::vector<std::pair<std::string, int>> masks;
  std::vector<SceneAction> actions;  ///< by step
  std::vector<bool> paused;          ///< by step
};

PhysicsScene RandomPhysicsScene(std::uint32_t seed, int steps, int crowd);

/// The plain reading of the scene, before its first step.
PlainPhysics PlainOf(const PhysicsScene& scene);
/// The scene's objects as object records, and its masks as the text of the collision file.
std::string RecordsOf(const PhysicsScene& scene);
std::string CollisionFileOf(const PhysicsScene& scene);

}  // namespace carapace_test
