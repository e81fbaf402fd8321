#pragma once

#include <gtest/gtest.h>

#include <string>

#include "core/statemachine.h"
#include "objects/gameobjfactory.h"
#include "support/world.h"

namespace carapace_test {

inline const std::string kLevels = "Level Editor/Levels/";

inline std::string ObjectFile(const std::string& records) {
  return "{\"GameObjFactory\": [" + records + "]}";
}

/// The record of an object with a place and a name.
inline std::string Named(const std::string& name) {
  return Record(name, {{"Transform", TransformAt(0, 0)}});
}

/// Each screen and the first level with one object that carries its name.
inline Files Screens() {
  return {
      {kLevels + "SplashScreen/Entity/Units.json",
       ObjectFile(Record("splash", {{"SplashController", "{}"}}))},
      {kLevels + "MainMenu/Entity/Units.json", ObjectFile(Named("menu"))},
      {kLevels + "Level01/Level01.json",
       R"({"TileMap": "map", "Tiles": "tiles", "Objects": "level-objects.json",
           "Background": "Unread", "BGM": "test"})"},
      {"level-objects.json", ObjectFile(Named("level"))},
  };
}

/// A program with those screens, on its splash screen.
class ScreenTest : public ::testing::Test {
 protected:
  ScreenTest() : world(Screens()) {}

  /// Leaves for the state `id` and enters it.
  void Enter(std::int32_t id) {
    ZOVEngine::ChangeState(id, "");
    world.Step();
  }

  template <class S>
  S& GetState(std::int32_t id) {
    return dynamic_cast<S&>(ZOVEngine::g_state_machine->At(id));
  }

  World world;
};

}  // namespace carapace_test
