#pragma once

#include <string>
#include <vector>

#include "core/app/builtintables.h"
#include "core/app/logictables.h"
#include "physics/components/colliderholder.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"
#include "render/components/animation.h"
#include "render/components/font.h"
#include "render/components/render.h"

namespace carapace_test {

/// The classes that the physics, collider and render systems register in their constructors.
using SystemTables =
    ZOVEngine::TypeList<ZOVEngine::Transform, ZOVEngine::RigidBody, ZOVEngine::ColliderHolder,
                        ZOVEngine::Render, ZOVEngine::Animation, ZOVEngine::Font>;

/// The names of all component classes, each once. A test compares them with the tables.
inline std::vector<std::string> ComponentClassNames() {
  using namespace ZOVEngine;
  std::vector<std::string> names;
  const auto add = [&]<class T>() { names.push_back(ClassName<T>()); };
  SystemTables::ForEach(add);
  LogicTables::ForEach(add);
  BuiltInTables::ForEach([&]<class T>() {
    if constexpr (!LogicTables::Contains<T>()) add.template operator()<T>();
  });
  return names;
}

}  // namespace carapace_test
