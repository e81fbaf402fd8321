#pragma once

#include <string>
#include <vector>

#include "render/graphicsconfig.h"
#include "support/reports.h"
#include "support/world.h"

namespace carapace_test {

/// The settings with these texture paths and, for the rest, sound values.
inline std::string Config(const std::vector<std::string>& paths,
                          const std::string& font = "none.ttf", bool vsync = false) {
  std::string list;
  for (const std::string& path : paths) list += (list.empty() ? "\"" : ", \"") + path + "\"";
  return R"({"texPath": [)" + list + R"(], "fontPath": ")" + font + R"(",
    "vshader": "a.vert", "fshader": "a.frag", "fontvshader": "b.vert", "fontfshader": "b.frag",
    "instancevshader": "c.vert", "instancefshader": "c.frag",
    "lightvshader": "d.vert", "lightfshader": "d.frag", "vsync": )" +
         (vsync ? "true}" : "false}");
}

/// `config` as the settings, and the eight shader sources that Config names.
inline Files WithShaders(const std::string& config) {
  return {{ZOVEngine::kGraphicsConfigPath, config},
          {"a.vert", "vertex a"},
          {"a.frag", "fragment a"},
          {"b.vert", "vertex b"},
          {"b.frag", "fragment b"},
          {"c.vert", "vertex c"},
          {"c.frag", "fragment c"},
          {"d.vert", "vertex d"},
          {"d.frag", "fragment d"}};
}

/// What the start of an engine prints that finds `files`.
inline std::string StartOutput(const Files& files) {
  return OutputOf([&] { World world(files); });
}

/// How often `part` stands in `text`.
inline std::size_t CountOf(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

}  // namespace carapace_test
