#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "autoplay/statehash.h"
#include "core/app/winmain.h"
#include "gameobj.h"
#include "objects/gameobjfactory.h"
#include "support/fakedevice.h"
#include "support/fakemixer.h"
#include "support/fakenative.h"
#include "support/tempdirectory.h"

namespace carapace_test {

/// Files of a world by path, relative to the working directory of the program.
using Files = std::map<std::string, std::string>;

/// The whole engine without window, sound or GL, in a working directory of its own.
///
/// Starts from a small set of data: the shipped settings, collision groups and archetypes, no
/// textures, a splash and a menu level without objects. `files` replaces or adds files; an empty
/// text removes one. The engine runs from construction to destruction; one world lives at a time.
class World {
 public:
  explicit World(const Files& files = {});
  ~World();
  World(const World&) = delete;
  World& operator=(const World&) = delete;

  /// The small set of data that every world starts from.
  static Files BaseFiles();
  /// The shipped data without pictures: what a player's program reads.
  static Files ShippedFiles();

  /// Runs fixed steps, each as the main loop does.
  void Step(int steps = 1);
  /// Makes the objects of an array of object records, given as JSON text.
  void LoadObjects(const std::string& records);
  /// The first object of this name, or null.
  ZOVEngine::GameObj* Find(const std::string& name) const;
  /// Sends a message to all systems and returns it as the receivers left it.
  template <class M>
  M Send(M message) const {
    ZOVEngine::g_engine->Broadcast(&message);
    return message;
  }
  /// Deletes the engine now instead of at the end.
  void Shutdown();

  /// The hash of the whole state.
  static std::uint64_t Hash() { return ZOVEngine::HashState(); }

  TempDirectory& Directory() { return m_directory; }
  FakeNative native;
  FakeDevice device;
  FakeMixer mixer;

 private:
  TempDirectory m_directory;
};

/// An object record as JSON text. `components` is a list of pairs of class name and JSON of its
/// fields.
std::string Record(const std::string& name,
                   const std::vector<std::pair<std::string, std::string>>& components,
                   const std::vector<std::string>& children = {}, bool active = true);

/// The fields of a Transform at (x, y, z), as JSON text.
std::string TransformAt(float x, float y, float z = 1.0f, float scale = 1.0f, float rotate = 0.0f,
                        bool with_parent = true);

}  // namespace carapace_test
