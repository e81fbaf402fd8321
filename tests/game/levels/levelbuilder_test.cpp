#include "game/levels/levelbuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "game/levels/tileworld.h"
#include "render/components/render.h"

namespace ZOVEngine {
namespace {

using carapace_test::Built;
using carapace_test::Files;
using carapace_test::kPlainLevel;
using carapace_test::kPlainMap;
using carapace_test::kPlainTiles;
using carapace_test::MapFile;
using carapace_test::ObjectsFile;
using carapace_test::PlacedAt;
using carapace_test::PlainLevel;
using carapace_test::Record;
using carapace_test::Rectangle;
using carapace_test::TileAt;
using carapace_test::TileWorld;
using carapace_test::TransformOf;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

// The grid

TEST(LevelBuilder, TheFirstCellOfAThreeByThreeMapOfSizeTenIsAtMinusTenTen) {
  Files files = PlainLevel({TileAt(-10, 10, 10)}, 3, 3, 10);
  EXPECT_THAT(Built(files), ElementsAre(Rectangle{-15, 5, -5, 15}));
  for (const float x : {-11.0f, -9.0f}) {
    files[kPlainTiles] = ObjectsFile({TileAt(x, 10, 10)});
    EXPECT_THAT(Built(files), IsEmpty()) << x;
  }
}

TEST(LevelBuilder, CellsOfOddSizesLieWhereIntegersPutThem) {
  // 15 / 2 - 15 * 2 / 2 is -8, and 15 / 2 + 15 * 1 / 2 - 15 is -1.
  EXPECT_THAT(Built(PlainLevel({TileAt(-8, -1, 15)}, 2, 1, 15)), SizeIs(1));
  EXPECT_THAT(Built(PlainLevel({TileAt(7, -1, 15)}, 2, 1, 15)), SizeIs(1));
  EXPECT_THAT(Built(PlainLevel({TileAt(-8, 0, 15)}, 2, 1, 15)), IsEmpty());
}

TEST(LevelBuilder, ATilesPlaceIsTruncatedTowardsZero) {
  for (const float off : {-0.9f, 0.9f}) {
    EXPECT_THAT(Built(PlainLevel({TileAt(off, -off)}, 1, 1, 60)), SizeIs(1)) << off;
  }
  EXPECT_THAT(Built(PlainLevel({TileAt(1.0f, 0)}, 1, 1, 60)), IsEmpty());
  EXPECT_THAT(Built(PlainLevel({TileAt(-30.5f, 0)}, 2, 1, 60)), SizeIs(1));
}

TEST(LevelBuilder, ATileBesideTheGridIsLoadedAndHasNoCollider) {
  TileWorld world(PlainLevel({TileAt(90, 0), TileAt(0, 7)}, 1, 1, 60));
  world.Build();
  EXPECT_THAT(world.Colliders(), IsEmpty());
  EXPECT_THAT(world.Named("tile"), SizeIs(2));
  EXPECT_THAT(world.Controller().m_tile_objects, SizeIs(2));
}

TEST(LevelBuilder, OfTwoTilesOnOneCellTheFirstIsMerged) {
  TileWorld world(PlainLevel({TileAt(0, 0, 60, 3), TileAt(0, 0, 60, 4)}, 1, 1, 60));
  world.Build();
  ASSERT_THAT(world.Colliders(), SizeIs(1));
  EXPECT_EQ(TransformOf(world.Colliders().front()).m_local_pos.z, 3.0f);
}

TEST(LevelBuilder, PlacesBeyondAnIntAreOnNoCell) {
  const auto tile_at = [](const std::string& x) {
    return Record("tile", {{"Transform", R"({"m_pos": [0, 0, 1], "m_scale": [60, 60, 1],
                              "m_world_pos": [)" +
                                             x + R"(, 0, 1]})"},
                           {"Render", R"({"m_tile": true})"}});
  };
  EXPECT_THAT(Built(PlainLevel({tile_at("1e30"), tile_at("-1e300"), tile_at("2147483648"),
                                tile_at("-2147483648")},
                               1, 1, 60)),
              IsEmpty());
  EXPECT_THAT(Built(PlainLevel({tile_at("0.5")}, 1, 1, 60)), SizeIs(1));
}

TEST(LevelBuilder, ATileSizeOfZeroPutsEveryCellIntoTheMiddle) {
  Files files = PlainLevel({TileAt(0, 0)}, 1, 1, 60);
  files[kPlainMap] = MapFile(2, 2, 0);
  EXPECT_THAT(Built(files), SizeIs(4));
}

TEST(LevelBuilder, TheLargestMapIsWalked) {
  Files files = PlainLevel({TileAt(0, 0)}, 1, 1, 60);
  for (const auto& [width, height] : {std::pair(65535u, 1u), std::pair(1u, 65535u)}) {
    files[kPlainMap] = MapFile(width, height, 16384);
    EXPECT_THAT(Built(files), SizeIs(1)) << "the cell in the middle";
  }
}

// The level's files

TEST(LevelBuilder, TheMapIsLoadedIntoTheController) {
  TileWorld world(PlainLevel({"x.", "xx", "xx"}));
  EXPECT_EQ(world.Build(), "0, 0, 0, 0, 0, 0, \n");
  EXPECT_EQ(world.Controller().m_tile_map.m_width, 2u);
  EXPECT_EQ(world.Controller().m_tile_map.m_height, 3u);
  EXPECT_EQ(world.Controller().m_tile_map.m_tileSize, 60);
  EXPECT_EQ(world.Controller().m_tile_objects, world.Named("tile"));
  EXPECT_THAT(world.Controller().m_tile_objects, SizeIs(5));
}

TEST(LevelBuilder, TilesAreTheObjectsWithTheFlagWhateverTheirNames) {
  Files files = PlainLevel({"x"});
  files[kPlainTiles] = ObjectsFile(
      {Record("a", {{"Transform", PlacedAt(0, 0)}, {"Render", R"({"m_tile": true})"}}),
       Record("tile", {{"Transform", PlacedAt(0, 0)}, {"Render", R"({"m_tile": false})"}}),
       Record("b", {{"Transform", PlacedAt(0, 0)}},
              {Record("c", {{"Transform", PlacedAt(0, 0)}, {"Render", R"({"m_tile": true})"}})})});
  TileWorld world(files);
  world.Build();
  EXPECT_EQ(world.Controller().m_tile_objects,
            (std::vector<GameObj*>{world.world.Find("a"), world.world.Find("c")}));
}

TEST(LevelBuilder, TilesKeepTheirRenderAndHaveIdsAboveTheUnits) {
  TileWorld world(PlainLevel({"xx"}));
  const std::size_t units = g_game_obj_factory->m_objects.size();
  world.Build();
  for (GameObj* tile : world.Named("tile")) {
    EXPECT_GE(tile->id, units);
    EXPECT_TRUE(tile->GetComponent<Render>()->m_tile);
    EXPECT_TRUE(tile->GetComponent<Render>()->m_visible);
    EXPECT_FALSE(tile->HasComponent<ColliderHolder>());
    EXPECT_LT(tile->id, world.Colliders().front()->id);
  }
}

TEST(LevelBuilder, ASecondBuildFindsItsTilesAndBuildsNothing) {
  TileWorld world(PlainLevel({"xx", ".x"}));
  world.Build();
  const std::vector<GameObj*> objects = g_game_obj_factory->m_objects;
  world.Controller().m_tile_map.m_width = 77;
  EXPECT_EQ(world.Build(), "");
  EXPECT_EQ(g_game_obj_factory->m_objects, objects);
  EXPECT_EQ(world.Controller().m_tile_map.m_width, 77u);
  EXPECT_THAT(world.Controller().m_tile_objects, SizeIs(3));
}

TEST(LevelBuilder, ATileAmongTheUnitsKeepsTheTilesAway) {
  TileWorld world(PlainLevel({"xx"}));
  world.world.LoadObjects(TileAt(0, 0));
  EXPECT_EQ(world.Build(), "");
  EXPECT_THAT(world.Named("tile"), SizeIs(1));
  EXPECT_THAT(world.Colliders(), IsEmpty());
}

TEST(LevelBuilder, ALevelWhoseTilesFileIsAbsentHasNoTiles) {
  Files files = PlainLevel({"x"});
  files[kPlainTiles] = "";
  files[kPlainMap] = "";
  TileWorld world(files);
  EXPECT_EQ(world.Build(), "");
  EXPECT_EQ(world.ReportOfBuilding(), "");
  EXPECT_THAT(world.Controller().m_tile_objects, IsEmpty());
  EXPECT_EQ(world.Controller().m_tile_map.m_width, 0u);
}

TEST(LevelBuilder, AMissingKeyForTheTilesPrintsItsLineAndHasNoTiles) {
  Files files = PlainLevel({"x"});
  for (const char* text : {"{}", "", "{\"Tiles\": ", "[]"}) {
    files["broken.json"] = text[0] == '\0' ? " " : text;
    TileWorld world(files);
    EXPECT_EQ(world.Build("broken.json"), "Cant find Key: Tiles\n") << text;
    EXPECT_THAT(world.Named("tile"), IsEmpty());
  }
}

TEST(LevelBuilder, TheMusicOfTheLevelFileIsReadByNobody) {
  Files files = PlainLevel({"xx"});
  const std::vector<Rectangle> expected = Built(files);
  for (const char* music : {R"("loud.ogg")", "17", "null"}) {
    files[kPlainLevel] = R"({"TileMap": ")" + std::string(kPlainMap) + R"(", "Tiles": ")" +
                         kPlainTiles + R"(", "BGM": )" + music + "}";
    EXPECT_EQ(Built(files), expected) << music;
  }
}

// Files that are no levels

TEST(LevelBuilder, AnAbsentLevelFileEndsTheProgram) {
  EXPECT_THAT(TileWorld(PlainLevel({"x"})).ReportOfBuilding("none.json"),
              HasSubstr("none.jsonfile not found"));
  EXPECT_THAT(TileWorld(PlainLevel({"x"})).ReportOfBuilding(""), HasSubstr("file not found"));
}

TEST(LevelBuilder, TilesWithoutAMapEndTheProgram) {
  Files files = PlainLevel({"x"});
  files[kPlainMap] = "";
  EXPECT_THAT(TileWorld(files).ReportOfBuilding(),
              HasSubstr(std::string(kPlainMap) + "file not found"));
  files[kPlainLevel] = R"({"Tiles": ")" + std::string(kPlainTiles) + "\"}";
  TileWorld world(files);
  std::string output;
  std::string report;
  output = carapace_test::OutputOf([&] {
    report = carapace_test::ReportOf([&] { world.Controller().BuildLevel(kPlainLevel); });
  });
  EXPECT_EQ(output, "Cant find Key: TileMap\n");
  EXPECT_THAT(report, HasSubstr("file not found"));
}

TEST(LevelBuilder, PathsOfAnotherTypeAreReportedWithFileAndKey) {
  Files files = PlainLevel({"x"});
  files[kPlainLevel] = R"({"Tiles": 5})";
  EXPECT_THAT(TileWorld(files).ReportOfBuilding(),
              AllOf(HasSubstr(kPlainLevel), HasSubstr("key \"Tiles\"")));
  files[kPlainLevel] = R"({"TileMap": [], "Tiles": ")" + std::string(kPlainTiles) + "\"}";
  EXPECT_THAT(TileWorld(files).ReportOfBuilding(),
              AllOf(HasSubstr(kPlainLevel), HasSubstr("key \"TileMap\"")));
}

TEST(LevelBuilder, ATilesFileThatIsNoObjectLoadsNothing) {
  Files files = PlainLevel({"x"});
  files[kPlainTiles] = "{\"GameObjFactory\": [";
  TileWorld world(files);
  EXPECT_THAT(world.Build(), HasSubstr(std::string(kPlainTiles) + " Not Object\n"));
  EXPECT_THAT(world.Named("tile"), IsEmpty());
}

TEST(LevelBuilder, ATileWithoutATransformIsReportedWithFileAndObject) {
  Files files = PlainLevel({"x"});
  files[kPlainTiles] = ObjectsFile({Record("lost", {{"Render", R"({"m_tile": true})"}})});
  EXPECT_THAT(TileWorld(files).ReportOfBuilding(),
              AllOf(HasSubstr(kPlainTiles), HasSubstr("object \"lost\""),
                    HasSubstr("a tile needs a Transform")));
}

}  // namespace
}  // namespace ZOVEngine
