#pragma once

#include <string>
#include <utility>
#include <vector>

#include "game/objectquery.h"
#include "support/world.h"

namespace carapace_test {

/// How a unit of a test differs from a whole one.
struct UnitParts {
  std::string fields = R"({"m_health": 8, "m_max_health": 10})";  ///< of the unit's component
  float x = 100.0f;                                               ///< (unit: world units)
  float y = 50.0f;
  std::vector<std::string> without =
      {};  ///< names of children, and of the unit's own component classes
  /// Classes of the two weapons; "" makes a weapon child without a shot.
  std::vector<std::string> weapons = {"ProjectileDefault", "ProjectilePierce"};
  std::vector<std::string> more = {};  ///< records of further children, after the others
  std::vector<std::pair<std::string, std::string>> components = {};  ///< further ones of the unit
};

/// The record of a unit with all its named children. `component` is "Player" or "Enemy".
std::string UnitRecord(const std::string& name, const std::string& component,
                       const UnitParts& parts = {});
/// UnitRecord of an Enemy that is a boss, with its shots, shields and explosions.
std::string BossRecord(const std::string& name, const UnitParts& parts = {});
/// A child with Transform, Render, Animation and StateC, at (x, y) in its parent's space.
std::string SpriteRecord(const std::string& name, float x = 0.0f, float y = 0.0f,
                         const std::vector<std::string>& children = {});
/// A child that holds a shot of the class, with a body and a "bullet_hit" child.
std::string ShotRecord(const std::string& name, const std::string& shot);
/// A loose body with the further components at (x, y).
std::string BodyRecord(const std::string& name, float x, float y,
                       const std::vector<std::pair<std::string, std::string>>& components = {});

/// Units under a level root with a turn controller and a sound source. Nothing is stepped but what
/// a test steps; the controller has its bodies without having been started.
class UnitStage {
 public:
  explicit UnitStage(const std::vector<std::string>& children, bool with_controller = true);

  /// The first object of this name; one that is absent fails the test.
  ZOVEngine::GameObj* Find(const std::string& name) const;
  /// The first child of this name.
  template <class T>
  T& ChildOf(const std::string& parent, const std::string& name) const {
    return *ZOVEngine::FirstChildNamed(Find(parent), name)->GetComponent<T>();
  }
  template <class T>
  T& Of(const std::string& name) const {
    return *Find(name)->GetComponent<T>();
  }
  /// Derives all world transforms.
  static void Derive();

  World world;
};

/// Whether a sound of the object was asked for.
bool AsksFor(ZOVEngine::GameObj* object, const std::string& sound);
/// Forgets what was asked for.
void Hush(ZOVEngine::GameObj* object);

/// Expects a place or direction at (x, y), to a thousandth; its depth may be any.
void ExpectNear(const ZOVEngine::Vector3D& actual, float x, float y);

}  // namespace carapace_test
