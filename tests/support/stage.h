#pragma once

#include <stdexcept>
#include <string>

#include "core/contactinfo.h"
#include "game/objectquery.h"
#include "support/world.h"

namespace carapace_test {

/// A world whose objects a test looks up by name: what all fixtures of the game are built on.
///
/// A name that no object has throws std::out_of_range, which fails the test.
class Stage {
 public:
  explicit Stage(const Files& files = {}) : world(files) {}

  /// The first object of this name.
  ZOVEngine::GameObj* Find(const std::string& name) const;
  /// The first child of this name.
  ZOVEngine::GameObj* FindChild(const std::string& parent, const std::string& name) const;
  /// The component of type T of an object or of a child.
  template <class T>
  T& Of(const std::string& name) const {
    return *Find(name)->GetComponent<T>();
  }
  template <class T>
  T& ChildOf(const std::string& parent, const std::string& name) const {
    return *FindChild(parent, name)->template GetComponent<T>();
  }
  /// A contact of the objects of these names.
  ZOVEngine::ContactInfo Between(const std::string& a, const std::string& b) const;
  /// Derives all world transforms.
  static void Derive();
  /// Puts the cursor at (x, y) from the middle of the screen (unit: world units).
  void PointAt(int x, int y) {
    // The window is 1280 by 720 and stands for a screen of 1080 lines.
    world.native.cursor = {640 + x * 2 / 3, 360 - y * 2 / 3};
  }

  World world;
};

/// Whether a sound of the object was asked for.
bool AsksFor(ZOVEngine::GameObj* object, const std::string& sound);
/// Forgets what was asked for.
void Hush(ZOVEngine::GameObj* object);

/// Expects a place or direction at (x, y), to a thousandth; its depth may be any.
void ExpectNear(const ZOVEngine::Vector3D& actual, float x, float y);

}  // namespace carapace_test
