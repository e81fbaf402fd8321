// Loading the tiles of a large level: the map, the tile objects, and their merge into colliders.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <random>
#include <string>

#include "game/levels/levelbuilder.h"
#include "game/levels/levelsave.h"
#include "game/levels/tilemap.h"
#include "jsonunserializer.h"
#include "objects/gameobjfactory.h"
#include "physics/components/colliderholder.h"
#include "physics/components/transform.h"
#include "ratio.h"
#include "render/components/imodel.h"
#include "render/components/render.h"
#include "repository.h"

namespace {

using namespace ZOVEngine;
namespace fs = std::filesystem;

constexpr int kSide = 1000;  ///< columns, and rows
constexpr int kTiles = 30'000;
constexpr int kTileSize = 60;
constexpr double kAllowedMilliseconds = 2000.0;
constexpr const char* kSubject = "LoadMap";

/// A level of tiles on cells drawn at random, as the editor saves it, in the temporary directory.
class Level {
 public:
  Level() {
    carapace_bench::EnterRepository();
    factory->Init();
    factory->RegisterComponent<Transform>("Transform");
    factory->RegisterComponent<ColliderHolder>("ColliderHolder");
    factory->RegisterComponent<Render>("Render");
    factory->LoadArchetype("tilecollider", "Resources/Archetypes/GameObjects/tilecollider.json");
    fs::create_directories(directory);
    std::ofstream(file) << "{\"TileMap\": \"" << directory << "map.json\", \"Tiles\": \""
                        << directory << "tiles.json\"}";
    MakeTiles();
    if (!SaveTileMap({directory, "map", kSide, kSide, kTileSize})) std::exit(EXIT_FAILURE);
    factory->ClearObjects();
  }
  ~Level() {
    std::error_code ignored;
    fs::remove_all(directory, ignored);
  }
  Level(const Level&) = delete;
  Level& operator=(const Level&) = delete;

  std::unique_ptr<GameObjFactory> factory = std::make_unique<GameObjFactory>();
  std::string directory = (fs::temp_directory_path() / "carapace-mapload-bench/").string();
  std::string file = directory + "level.json";

 private:
  void MakeTiles() const {
    std::mt19937 random(1);
    std::uniform_int_distribution<int> cell(0, kSide - 1);
    for (int i = 0; i < kTiles; ++i) {
      const int column = cell(random);
      const int row = cell(random);
      MakeTile(kTileSize / 2 + kTileSize * (column - kSide / 2),
               kTileSize / 2 + kTileSize * (kSide / 2 - row - 1));
    }
  }

  void MakeTile(int x, int y) const {
    auto* tile = new GameObj;
    tile->name = "tile";
    tile->active = true;
    tile->id = static_cast<std::uint32_t>(factory->m_objects.size());
    factory->m_objects.push_back(tile);
    tile->AddComponent<Transform>();
    tile->AddComponent<Render>();
    tile->AddComponent<iModel>();
    tile->GetComponent<Render>()->m_tile = true;
    Transform& transform = *tile->GetComponent<Transform>();
    transform.m_local_pos = Vector3D(static_cast<float>(x), static_cast<float>(y), 1.0f);
    transform.m_world_pos = transform.m_local_pos;
    transform.m_local_scale = transform.m_world_scale = Vector3D(kTileSize, kTileSize, 1.0f);
  }
};

void LoadMap(benchmark::State& state) {
  Level level;
  std::streambuf* out = std::cout.rdbuf(nullptr);  // the trace of the grid
  for (auto _ : state) {
    TileMap map;
    std::vector<GameObj*> tiles;
    BuildTiles(level.file, &map, &tiles);
    state.PauseTiming();
    state.counters["tiles"] = static_cast<double>(tiles.size());
    state.counters["colliders"] =
        static_cast<double>(level.factory->m_objects.size() - tiles.size());
    level.factory->ClearObjects();
    state.ResumeTiming();
  }
  std::cout.rdbuf(out);
}

constexpr int kRepetitions = 3;
BENCHMARK(LoadMap)->Unit(benchmark::kMillisecond)->Repetitions(kRepetitions);

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  carapace_bench::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  std::printf("%d tiles on %d by %d cells: %.0f ms (target: at most %.0f)\n", kTiles, kSide, kSide,
              reporter.Median(kSubject), kAllowedMilliseconds);
  return 0;
}
