#pragma once

#include <string>

namespace ZOVEngine {

/// Reads a menu-like level file: loads the object file under "Objects" and makes "Background" the
/// background texture. A missing key prints its line and counts as empty.
void LoadScreen(const std::string& path);

/// Shows the background that the file at `path` names, without its objects.
void ShowBackground(const std::string& path);

}  // namespace ZOVEngine
