#pragma once

#include <filesystem>

namespace carapace_bench {

/// Goes up to the root of the repository, whose data the systems read, from anywhere in it.
inline void EnterRepository() {
  namespace fs = std::filesystem;
  while (!fs::exists("Resources/Shaders") && fs::current_path().has_relative_path()) {
    fs::current_path(fs::current_path().parent_path());
  }
}

}  // namespace carapace_bench
