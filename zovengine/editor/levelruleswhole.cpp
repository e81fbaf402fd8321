#include "editor/levelrulesreport.h"
#include "game/levels/levelsave.h"

namespace ZOVEngine {
namespace {

constexpr LevelFile kObjects = LevelFile::kObjects;

void CheckRoot(const LevelView& level, LevelReport* report) {
  int roots = 0;
  for (const ObjectView& object : level.objects.All()) roots += object.Has("GameController");
  if (roots != 1) {
    report->Add("one-controller", kObjects,
                "the level has " + std::to_string(roots) + " objects with a GameController");
  }
  if (level.root == nullptr) return;
  for (const char* component : {"Transform", "AudioSource"}) {
    if (!level.root->Has(component)) {
      report->Add("controller-parts", *level.root,
                  std::string("runs the level, but has no ") + component);
    }
  }
}

void CheckCamera(const LevelView& level, LevelReport* report) {
  int cameras = 0;
  for (const ObjectView& object : level.objects.All()) {
    cameras += object.parent == level.root && object.Has("Camera");
  }
  if (cameras == 1) return;
  report->Add("one-camera", *level.root,
              "runs the level and has " + std::to_string(cameras) + " cameras below it");
}

void CheckSides(const LevelView& level, LevelReport* report) {
  for (const char* side : {"Player", "Enemy"}) {
    bool lives = false;
    for (const ObjectView& object : level.objects.All()) {
      lives = lives || (object.Has(side) && object.Flag(side, "m_alive", true));
    }
    if (lives) continue;
    report->Add("both-sides", kObjects,
                std::string("the level has no ") + side + " and would end on its first step");
  }
}

void CheckPaths(const LevelView& level, LevelReport* report) {
  const LevelPaths own(level.name);
  const std::pair<const char*, const std::string*> wanted[] = {
      {"TileMap", &own.tile_map}, {"Tiles", &own.tiles}, {"Objects", &own.objects}};
  for (const auto& [key, path] : wanted) {
    if (!level.level.Root().IsObject() || TextIn(level.level.Root(), key, "") == *path) continue;
    report->Add("level-paths", LevelFile::kLevel,
                std::string("the level's ") + key + " is not its own file " + *path);
  }
  if (level.root == nullptr) return;
  if (level.root->Text("GameController", "m_level_map", "") == own.level) return;
  report->Add("level-paths", *level.root, "has a m_level_map that is not " + own.level);
}

}  // namespace

void CheckWhole(const LevelView& level, LevelReport* report) {
  CheckRoot(level, report);
  if (level.root != nullptr) CheckCamera(level, report);
  CheckSides(level, report);
  CheckPaths(level, report);
}

}  // namespace ZOVEngine
