#include "game/levels/levelsave.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <sstream>

#include "game/levels/tilemap.h"
#include "game/levels/tileworld.h"
#include "jsonunserializer.h"
#include "physicssystem.h"
#include "render/rendersystem.h"

namespace ZOVEngine {
namespace {

using carapace_test::Files;
using carapace_test::KeysOf;
using carapace_test::OutputOf;
using carapace_test::PlacedAt;
using carapace_test::Record;
using carapace_test::ShippedFile;
using carapace_test::TileAt;
using carapace_test::World;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr const char* kMapFile = "Level Editor/Levels/Made/Map/Made.json";
constexpr const char* kTilesFile = "Level Editor/Levels/Made/Map/tiles.json";
constexpr const char* kUnitsFile = "Level Editor/Levels/Made/Entity/Units.json";
constexpr const char* kLevelFile = "Level Editor/Levels/Made/Made.json";
const std::string kLevelFolder = "Level Editor/Levels/";
constexpr const char* kGraphicsFile = "Resources/Textures/graphics.json";

/// The folders of a level "Made", each with an old file in it.
const Files kOldFiles = {{kMapFile, "old map"},
                         {kTilesFile, "old tiles"},
                         {kUnitsFile, "old units"},
                         {kLevelFile, "old level"}};

TileMapPlan Plan(int width, int height) {
  return {"Level Editor/Levels/Made/Map/", "Made", width, height, 60};
}

std::vector<std::string> NamesIn(const std::string& text) {
  JsonDocument document;
  document.ParseText(text, "saved");
  std::vector<std::string> names;
  for (const Value& record : RequireValue(document.Root(), "GameObjFactory").GetArray()) {
    names.emplace_back(record["name"].GetString());
  }
  return names;
}

std::string Named(const std::string& name, bool tile, bool active) {
  return Record(name,
                {{"Transform", PlacedAt(0, 0)},
                 {"Render", std::string(R"({"m_tile": )") + (tile ? "true}" : "false}")}},
                {}, active);
}

/// As if the disk were full: no file may become longer than this.
class SmallDisk {
 public:
  explicit SmallDisk(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &m_before);
    m_handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{bytes, m_before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
  }
  ~SmallDisk() {
    setrlimit(RLIMIT_FSIZE, &m_before);
    std::signal(SIGXFSZ, m_handler);
  }
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

 private:
  rlimit m_before{};
  void (*m_handler)(int) = nullptr;
};

TEST(LevelSave, ALevelsPathsAreMadeOfItsName) {
  const LevelPaths paths("Made");
  EXPECT_EQ(paths.level, kLevelFile);
  EXPECT_EQ(paths.tile_map, kMapFile);
  EXPECT_EQ(paths.tiles, kTilesFile);
  EXPECT_EQ(paths.objects, kUnitsFile);
}

TEST(LevelSave, AnEmptyNameLeavesEmptySegments) {
  const LevelPaths paths("");
  EXPECT_EQ(paths.level, "Level Editor/Levels//.json");
  EXPECT_EQ(paths.tile_map, "Level Editor/Levels//Map/.json");
}

// The tile map

TEST(LevelSave, TheTileMapFileHasTheThreeSizesInTheirOrder) {
  World world(kOldFiles);
  EXPECT_TRUE(SaveTileMap(Plan(32, 18)));
  EXPECT_EQ(world.Directory().Read(kMapFile),
            "{\n    \"Width\": 32,\n    \"Height\": 18,\n    \"TileSize\": 60\n}");
}

TEST(LevelSave, TheTilesFileHasTheActiveTilesInTheFactorysOrder) {
  World world(kOldFiles);
  world.LoadObjects(Named("b", true, true) + "," + Named("off", true, false) + "," +
                    Named("unit", false, true) + "," + Record("bare", {}) + "," +
                    Named("a", true, true));
  EXPECT_TRUE(SaveTileMap(Plan(9, 9)));
  EXPECT_THAT(NamesIn(world.Directory().Read(kTilesFile)), ElementsAre("b", "a"));
}

TEST(LevelSave, NoMoreTilesAreSavedThanTheMapHasCells) {
  World world(kOldFiles);
  for (const char* name : {"a", "b", "c", "d", "e"}) world.LoadObjects(Named(name, true, true));
  const auto saved = [&](int width, int height) {
    SaveTileMap(Plan(width, height));
    return NamesIn(world.Directory().Read(kTilesFile));
  };
  EXPECT_THAT(saved(2, 2), ElementsAre("a", "b", "c", "d"));
  EXPECT_THAT(saved(5, 1), ElementsAre("a", "b", "c", "d", "e"));
  EXPECT_THAT(saved(0, 5), IsEmpty());
  EXPECT_THAT(saved(65535, 64), ElementsAre("a", "b", "c", "d", "e"));
}

TEST(LevelSave, SizesThatLoadingWouldRefuseAreRefusedWithALine) {
  World world(kOldFiles);
  const auto refusal = [](TileMapPlan plan) {
    return OutputOf([&] { EXPECT_FALSE(SaveTileMap(plan)); });
  };
  const std::string start = "The tile map \"Made\" is not saved: ";
  EXPECT_EQ(refusal(Plan(65536, 1)), start + "Width: 65536 is not within 0 and 65535\n");
  EXPECT_EQ(refusal(Plan(1, -3)), start + "Height: -3 is not within 0 and 65535\n");
  EXPECT_EQ(refusal(Plan(2049, 2048)),
            start + "Height: 2049 by 2048 tiles are above the limit of 4194304\n");
  TileMapPlan plan = Plan(2, 2);
  plan.tile_size = 16385;
  EXPECT_EQ(refusal(plan), start + "TileSize: 16385 is not within 0 and 16384\n");
  EXPECT_EQ(world.Directory().Read(kMapFile), kOldFiles.at(kMapFile));
  EXPECT_EQ(world.Directory().Read(kTilesFile), kOldFiles.at(kTilesFile));
}

TEST(LevelSave, TheLargestMapThatIsSavedIsReadAgain) {
  World world(kOldFiles);
  for (const auto& [width, height] : {std::pair(65535, 1), std::pair(1000, 1000)}) {
    ASSERT_TRUE(SaveTileMap(Plan(width, height)));
    TileMap map;
    OutputOf([&] { map.Load(kMapFile); });
    EXPECT_EQ(map.m_grid.size(), static_cast<std::size_t>(width));
    EXPECT_EQ(map.m_grid.back().size(), static_cast<std::size_t>(height));
  }
}

TEST(LevelSave, AMapOfNoSizeHasAnEmptyArrayOfTiles) {
  World world(kOldFiles);
  world.LoadObjects(Named("a", true, true));
  SaveTileMap(Plan(0, 0));
  EXPECT_EQ(world.Directory().Read(kTilesFile), "{\n    \"GameObjFactory\": []\n}");
}

TEST(LevelSave, TheFilesOfTheMapAreNamedByItsOwnFolderAndName) {
  World world(Files{{"elsewhere/old", "x"}});
  EXPECT_TRUE(SaveTileMap({"elsewhere/", "plan", 1, 2, 3}));
  EXPECT_TRUE(world.Directory().Has("elsewhere/plan.json"));
  EXPECT_TRUE(world.Directory().Has("elsewhere/tiles.json"));
}

// The units

TEST(LevelSave, TheUnitsFileHasTheObjectsOfTheLevel) {
  World world(kOldFiles);
  world.LoadObjects(Named("unit", false, true) + "," + Named("a", true, true) + "," +
                    Record("parent", {}, {Record("child", {})}) + "," +
                    Record("off", {}, {}, false));
  for (const char* name : {"tile", "tile_collider", "particle_test", "LECamera"}) {
    world.LoadObjects(Record(name, {}));
  }
  EXPECT_TRUE(SaveUnits("Made"));
  const std::string text = world.Directory().Read(kUnitsFile);
  EXPECT_THAT(NamesIn(text), ElementsAre("unit", "parent", "off"));
  EXPECT_THAT(text, HasSubstr("\"child\""));
}

// The level file

TEST(LevelSave, TheLevelFileHasItsFiveKeysInTheirOrder) {
  World world(kOldFiles);
  g_render_system->m_background_tex = "Some_Sky";
  EXPECT_TRUE(SaveLevelIndex("Made"));
  const std::string text = world.Directory().Read(kLevelFile);
  EXPECT_THAT(KeysOf(text), ElementsAre("TileMap", "Tiles", "Objects", "Background", "BGM"));
  JsonDocument document;
  document.ParseText(text, "level");
  EXPECT_STREQ(document.Root()["TileMap"].GetString(), kMapFile);
  EXPECT_STREQ(document.Root()["Tiles"].GetString(), kTilesFile);
  EXPECT_STREQ(document.Root()["Objects"].GetString(), kUnitsFile);
  EXPECT_STREQ(document.Root()["Background"].GetString(), "Some_Sky");
  EXPECT_STREQ(document.Root()["BGM"].GetString(), "test");
}

TEST(LevelSave, TheSettingsOfThePictureAreSavedWithTheLevelFile) {
  World world(kOldFiles);
  g_render_system->m_texture_paths = {"Resources/Textures/imported.png"};
  EXPECT_TRUE(SaveLevelIndex("Made"));
  EXPECT_THAT(world.Directory().Read(kGraphicsFile), HasSubstr("imported.png"));
}

// What was saved is read again

TEST(LevelSave, ASavedLevelIsTheLevelThatWasBuilt) {
  Files files = carapace_test::PlainLevel({"xx.", "x.x", "xxx"});
  for (const auto& [path, text] : kOldFiles) files[path] = text;
  carapace_test::TileWorld world(files);
  world.world.LoadObjects(Record("unit", {{"Transform", PlacedAt(7, 8)}}));
  world.Build();
  ASSERT_TRUE(SaveTileMap(Plan(3, 3)));
  ASSERT_TRUE(SaveUnits("Made"));
  ASSERT_TRUE(SaveLevelIndex("Made"));
  const std::size_t colliders = world.Colliders().size();
  const std::string units = world.world.Directory().Read(kUnitsFile);
  const std::string tiles = world.world.Directory().Read(kTilesFile);

  g_game_obj_factory->ClearObjects();
  g_game_obj_factory->LoadObjects(kUnitsFile);
  world.Build(kLevelFile);
  EXPECT_EQ(world.Colliders().size(), colliders);
  EXPECT_EQ(world.Named("tile").size(), 7u);
  ASSERT_TRUE(SaveTileMap(Plan(3, 3)));
  ASSERT_TRUE(SaveUnits("Made"));
  EXPECT_EQ(world.world.Directory().Read(kUnitsFile), units);
  EXPECT_EQ(world.world.Directory().Read(kTilesFile), tiles);
}

// Saving that fails

TEST(LevelSave, AMissingFolderIsToldAndNothingIsMade) {
  World world;
  EXPECT_FALSE(SaveTileMap(Plan(1, 1)));
  EXPECT_FALSE(SaveUnits("Made"));
  EXPECT_FALSE(SaveLevelIndex("Made"));
  EXPECT_FALSE(world.Directory().Has("Level Editor/Levels/Made"));
}

TEST(LevelSave, OneFileOfTheMapThatFailsIsToldAndTheOtherSaved) {
  World world(Files{{"Level Editor/Levels/Made/Map/Made.json/in-the-way", "x"}});
  EXPECT_FALSE(SaveTileMap(Plan(1, 1)));
  EXPECT_EQ(world.Directory().Read(kTilesFile), "{\n    \"GameObjFactory\": []\n}");
}

TEST(LevelSave, AFullDiskLeavesTheOldFilesAndNothingBesideThem) {
  World world(kOldFiles);
  const std::string graphics = world.Directory().Read(kGraphicsFile);
  world.LoadObjects(Named("a", true, true) + "," + Named("unit", false, true));
  g_render_system->m_texture_paths = {"Resources/Textures/imported.png"};
  {
    const SmallDisk full(16);
    EXPECT_FALSE(SaveTileMap(Plan(32, 18)));
    EXPECT_FALSE(SaveUnits("Made"));
    EXPECT_FALSE(SaveLevelIndex("Made"));
  }
  for (const auto& [path, text] : kOldFiles) {
    EXPECT_EQ(world.Directory().Read(path), text);
    EXPECT_FALSE(world.Directory().Has(path + ".new")) << path;
  }
  EXPECT_EQ(world.Directory().Read(kGraphicsFile), graphics);
  EXPECT_TRUE(SaveUnits("Made")) << "and with room again it is saved";
  EXPECT_THAT(world.Directory().Read(kUnitsFile), HasSubstr("unit"));
}

/// The first line in which two texts differ, as both have it; empty for equal texts.
std::string FirstDifference(const std::string& a, const std::string& b) {
  std::istringstream lines_a(a), lines_b(b);
  std::string line_a, line_b;
  for (int number = 1; line_a == line_b; ++number) {
    const bool more_a = static_cast<bool>(std::getline(lines_a, line_a));
    const bool more_b = static_cast<bool>(std::getline(lines_b, line_b));
    if (!more_a && !more_b) return a == b ? "" : "only the line end";
    if (line_a != line_b || more_a != more_b) {
      return std::to_string(number) + ": " + line_a + " and " + line_b;
    }
  }
  return "";
}

/// The four files of a level as they are shipped. The settings of the picture are saved with them.
class ShippedLevel : public ::testing::TestWithParam<std::string> {
 protected:
  ShippedLevel() : m_world(LevelFiles(m_paths)) {
    g_game_obj_factory->LoadObjects(m_paths.objects);
    g_game_obj_factory->LoadObjects(m_paths.tiles);
    OutputOf([this] { m_map.Load(m_paths.tile_map); });
    JsonDocument level;
    level.Open(m_paths.level);
    level.Parse();
    ReadValue(level.Root(), "Background", &g_render_system->m_background_tex);
  }

  static Files LevelFiles(const LevelPaths& paths) {
    Files files;
    for (const std::string& path : {paths.level, paths.tile_map, paths.tiles, paths.objects}) {
      files[path] = ShippedFile(path);
    }
    return files;
  }

  void Save() {
    const std::string name = GetParam();
    EXPECT_TRUE(
        SaveTileMap({kLevelFolder + name + "/Map/", name, static_cast<std::int32_t>(m_map.m_width),
                     static_cast<std::int32_t>(m_map.m_height), m_map.m_tileSize}));
    EXPECT_TRUE(SaveUnits(name));
    EXPECT_TRUE(SaveLevelIndex(name));
  }

  void ExpectShippedBytes() {
    for (const auto& [path, text] : LevelFiles(m_paths)) {
      EXPECT_EQ(FirstDifference(m_world.Directory().Read(path), text), "") << path;
    }
  }

  const LevelPaths m_paths{GetParam()};
  World m_world;
  TileMap m_map;
};

TEST_P(ShippedLevel, LoadedAndSavedAgainIsTheSameToTheByte) {
  EXPECT_GT(m_map.m_width * m_map.m_height, 0u);
  for (const std::string& path :
       {m_paths.level, m_paths.tile_map, m_paths.tiles, m_paths.objects}) {
    m_world.Directory().Write(path, "to be replaced");
  }
  Save();
  ExpectShippedBytes();
}

TEST_P(ShippedLevel, SavedAfterItsPlacesWereDerivedItIsTheSameToTheByte) {
  g_physics_system->UpdateWorldTransforms();
  Save();
  ExpectShippedBytes();
}

INSTANTIATE_TEST_SUITE_P(All, ShippedLevel,
                         ::testing::Values("Level00", "Level01", "Level02", "Level03", "Level04"),
                         [](const auto& test) { return test.param; });

}  // namespace
}  // namespace ZOVEngine
