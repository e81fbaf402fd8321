#include "support/levelgame.h"

#include "autoplay/levelrun.h"
#include "game/levels/levelsave.h"
#include "render/rendersystem.h"

namespace carapace_test {

namespace {

Files WithLevel(const std::string& level, const Files& more) {
  Files files = World::ShippedFiles();
  const ZOVEngine::LevelPaths paths(level);
  for (const std::string& path : {paths.level, paths.tile_map, paths.tiles, paths.objects}) {
    files[path] = ShippedFile(path);
  }
  for (const auto& [path, text] : more) files[path] = text;
  return files;
}

}  // namespace

LevelGame::LevelGame(const std::string& level, std::uint32_t seed, const Files& more)
    : world(WithLevel(level, more)) {
  ZOVEngine::g_render_system->m_background_tex = "Background_Space";
  ZOVEngine::EnterLevel(ZOVEngine::LevelPaths(level).level, seed);
}

}  // namespace carapace_test
