#pragma once

#include <string>

#include "support/tempdirectory.h"
#include "support/world.h"

namespace carapace_test {

// What the fuzzers feed. Each target reads `data` as the program would read a file, survives
// whatever it is, and aborts when something that must hold does not. The unit tests replay the
// fuzzers' corpus through the same targets. One target lives at a time.

/// An object file: its objects are made, run for a few steps, written, and read again.
class ObjectFileTarget {
 public:
  ObjectFileTarget();
  void Run(const std::string& data);

 private:
  World m_world;
};

/// A file of settings; the first byte says of what: window, graphics, collision groups, archetype.
class SettingsTarget {
 public:
  SettingsTarget();
  void Run(const std::string& data);

 private:
  TempDirectory m_directory;
};

/// A picture file.
class ImageTarget {
 public:
  void Run(const std::string& data);

 private:
  TempDirectory m_directory;
};

}  // namespace carapace_test
