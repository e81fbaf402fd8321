// Prints what is wrong with levels; editor/levelrules.h has the rules.
//
//   carapace_checklevel [DIRECTORY...]   all shipped levels, unless directories of levels are named
//   carapace_checklevel --rules          the rules, a line each
//
// To be started in the repository, whose textures, sounds and other files the levels name. A line
// for each problem; the status is 1 if one of them is an error, and 2 if there is no level.
#include <algorithm>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "core/base/wholefile.h"
#include "editor/levelrules.h"

namespace {

using namespace ZOVEngine;
using std::filesystem::path;

constexpr const char* kLevels = "Level Editor/Levels";

const char* Title(LevelSeverity severity) {
  return severity == LevelSeverity::kError ? "error" : "warning";
}

/// The text of a file; empty for one that cannot be read.
std::string Read(const path& file) {
  return ZOVEngine::ReadWholeFile(file).value_or("");
}

LevelText ReadLevel(const path& folder) {
  const std::string name = folder.filename().string();
  return {name, Read(folder / (name + ".json")), Read(folder / "Map" / (name + ".json")),
          Read(folder / "Map" / "tiles.json"), Read(folder / "Entity" / "Units.json")};
}

/// The directories with a map: the splash screen and the menu have none.
std::vector<path> ShippedLevels() {
  std::vector<path> folders;
  std::error_code failed;
  for (const auto& entry : std::filesystem::directory_iterator(kLevels, failed)) {
    if (std::filesystem::is_directory(entry.path() / "Map")) folders.push_back(entry.path());
  }
  std::sort(folders.begin(), folders.end());
  return folders;
}

std::string Address(const LevelProblem& problem) {
  std::string text;
  for (const std::uint32_t index : problem.address) {
    text += (text.empty() ? "" : "/") + std::to_string(index);
  }
  return text.empty() ? "" : ", at " + text;
}

/// Prints the problems of a level; true if one is an error.
bool Report(const path& folder, const KnownAssets& known) {
  const LevelProblems problems = CheckLevel(ReadLevel(folder), known);
  for (const LevelProblem& problem : problems) {
    std::cout << folder.filename().string() << ": " << Title(problem.severity) << ": "
              << problem.text << " [" << problem.rule << Address(problem) << "]\n";
  }
  return HasError(problems);
}

int PrintRules() {
  for (const LevelRule& rule : LevelRules()) {
    std::cout << rule.name << ": " << Title(rule.severity) << ": " << rule.meaning << '\n';
  }
  return 0;
}

}  // namespace

int main(int count, char** words) {
  std::vector<path> folders(words + 1, words + count);
  if (count == 2 && folders.front() == "--rules") return PrintRules();
  // A folder's name may end with a slash.
  for (path& folder : folders) folder = std::filesystem::absolute(folder / "").parent_path();
  if (folders.empty()) folders = ShippedLevels();
  if (folders.empty()) {
    std::cerr << "there is no level in " << kLevels << '\n';
    return 2;
  }
  const KnownAssets known = ReadKnownAssets();
  bool failed = false;
  for (const path& folder : folders) failed = Report(folder, known) || failed;
  return failed ? 1 : 0;
}
