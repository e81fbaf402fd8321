#include "game/levels/levelbuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "core/base/random.h"
#include "game/levels/tileworld.h"
#include "physicssystem.h"
#include "render/components/render.h"

namespace ZOVEngine {
namespace {

using carapace_test::BoxOf;
using carapace_test::ColliderArchetype;
using carapace_test::Files;
using carapace_test::kPlainLevel;
using carapace_test::kPlainMap;
using carapace_test::kPlainTiles;
using carapace_test::MapFile;
using carapace_test::ObjectsFile;
using carapace_test::PlacedAt;
using carapace_test::PlainLevel;
using carapace_test::Record;
using carapace_test::TileAt;
using carapace_test::TilesOf;
using carapace_test::TileWorld;
using carapace_test::TransformOf;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// The rectangle of a merged box: left, bottom, right, top.
using Rectangle = std::vector<float>;

Rectangle BoundsOf(GameObj* collider) {
  const BoxCollider& box = BoxOf(collider);
  return {box.m_min.x, box.m_min.y, box.m_max.x, box.m_max.y};
}

std::vector<Rectangle> Built(const Files& files) {
  TileWorld world(files);
  world.Build();
  std::vector<Rectangle> bounds;
  for (GameObj* collider : world.Colliders()) bounds.push_back(BoundsOf(collider));
  return bounds;
}

std::vector<Rectangle> BuiltMap(const std::vector<std::string>& rows, int size = 60) {
  return Built(PlainLevel(rows, size));
}

// Merging

TEST(LevelBuilder, ARowOfTilesIsOneBoxAsWideAsTheyAre) {
  EXPECT_THAT(BuiltMap({"xxxxx"}), ElementsAre(Rectangle{-150, -30, 150, 30}));
}

TEST(LevelBuilder, AGrownBoxIsTheSameInItsTransformAndInItsShape) {
  TileWorld world(PlainLevel({".xxx"}));
  world.Build();
  ASSERT_THAT(world.Colliders(), SizeIs(1));
  const Transform& transform = TransformOf(world.Colliders().front());
  EXPECT_EQ(transform.m_local_scale, Vector3D(180, 60, 1));
  EXPECT_EQ(transform.m_local_pos, Vector3D(30, 0, 1));
  EXPECT_EQ(transform.m_prev_pos, Vector3D(30, 0, 1));
  const BoxCollider& box = BoxOf(world.Colliders().front());
  EXPECT_EQ(box.m_center.x, 30);
  EXPECT_EQ(box.m_center.y, 0);
  const float corners[4][2] = {{-60, 30}, {120, 30}, {120, -30}, {-60, -30}};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(box.m_world_vertices[i].x, corners[i][0]) << i;
    EXPECT_EQ(box.m_world_vertices[i].y, corners[i][1]) << i;
  }
}

TEST(LevelBuilder, ABoxGrownDownwardIsTheSameInItsTransformAndInItsShape) {
  TileWorld world(PlainLevel({".", "x", "x"}));
  world.Build();
  ASSERT_THAT(world.Colliders(), SizeIs(1));
  const Transform& transform = TransformOf(world.Colliders().front());
  EXPECT_EQ(transform.m_local_scale, Vector3D(60, 120, 1));
  EXPECT_EQ(transform.m_local_pos, Vector3D(0, -30, 1));
  EXPECT_EQ(transform.m_prev_pos, Vector3D(0, -30, 1));
  const BoxCollider& box = BoxOf(world.Colliders().front());
  const float corners[4][2] = {{-30, 30}, {30, 30}, {30, -90}, {-30, -90}};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(box.m_world_vertices[i].x, corners[i][0]) << i;
    EXPECT_EQ(box.m_world_vertices[i].y, corners[i][1]) << i;
  }
}

TEST(LevelBuilder, TwoRowsOfTwoAreTwoBoxesNotOne) {
  EXPECT_THAT(BuiltMap({"xx", "xx"}),
              ElementsAre(Rectangle{-60, 0, 60, 60}, Rectangle{-60, -60, 60, 0}));
}

TEST(LevelBuilder, AColumnIsOneTallBox) {
  EXPECT_THAT(BuiltMap({"x", "x", "x", "x"}), ElementsAre(Rectangle{-30, -120, 30, 120}));
}

TEST(LevelBuilder, ABoxThatGrewToTheRightDoesNotGrowDown) {
  EXPECT_THAT(BuiltMap({"xx", "x."}),
              ElementsAre(Rectangle{-60, 0, 60, 60}, Rectangle{-60, -60, 0, 0}));
}

TEST(LevelBuilder, ABoxThatGrewDownDoesNotGrowToTheRight) {
  EXPECT_THAT(BuiltMap({"x.", "x.", "xx"}),
              ElementsAre(Rectangle{-60, -90, 0, 90}, Rectangle{0, -90, 60, -30}));
}

TEST(LevelBuilder, AGapEndsABox) {
  EXPECT_THAT(BuiltMap({"x.x"}),
              ElementsAre(Rectangle{-90, -30, -30, 30}, Rectangle{30, -30, 90, 30}));
}

TEST(LevelBuilder, OneTileCanGrowTwoBoxes) {
  // The tile in the corner ends the right column and the bottom row.
  EXPECT_THAT(BuiltMap({"..x", "..x", ".xx"}),
              ElementsAre(Rectangle{30, -90, 90, 90}, Rectangle{-30, -90, 90, -30}));
}

TEST(LevelBuilder, AFrameOfTilesIsFourBoxes) {
  EXPECT_THAT(BuiltMap({"xxxx", "x..x", "xxxx"}),
              ElementsAre(Rectangle{-120, 30, 120, 90}, Rectangle{-120, -90, -60, 30},
                          Rectangle{60, -90, 120, 30}, Rectangle{-60, -90, 120, -30}));
}

TEST(LevelBuilder, TilesOfOddSizeAreNotMerged) {
  EXPECT_THAT(BuiltMap({"xx", "xx"}, 15), SizeIs(4));
}

TEST(LevelBuilder, ANewBoxIsAsLargeAsItsArchetypeNotAsItsTile) {
  Files files = PlainLevel({"x.x"}, 60);
  files["Resources/Archetypes/GameObjects/tilecollider.json"] = ColliderArchetype(20);
  EXPECT_THAT(Built(files), ElementsAre(Rectangle{-70, -10, -50, 10}, Rectangle{50, -10, 70, 10}));
}

TEST(LevelBuilder, GrowthChangesTheLocalFieldsAndTheShapeAndTheWorldFollows) {
  TileWorld world(PlainLevel({"xx"}));
  world.Build();
  const Transform& transform = TransformOf(world.Colliders().front());
  EXPECT_EQ(transform.m_world_pos, Vector3D(-30, 0, 1));
  EXPECT_EQ(transform.m_world_scale, Vector3D(60, 60, 1));
  g_physics_system->UpdateWorldTransforms();
  EXPECT_EQ(transform.m_world_pos, Vector3D(0, 0, 1));
  EXPECT_EQ(transform.m_world_scale, Vector3D(120, 60, 1));
  BoxOf(world.Colliders().front()).UpdateCollider(transform);
  EXPECT_EQ(BoundsOf(world.Colliders().front()), (Rectangle{-60, -30, 60, 30}));
}

TEST(LevelBuilder, ABoxIsMadeAtTheTilesPlaceWithItsDepth) {
  TileWorld world(PlainLevel({TileAt(0, 0, 60, 7)}, 1, 1, 60));
  world.Build();
  GameObj* collider = world.Colliders().front();
  EXPECT_TRUE(collider->active);
  EXPECT_EQ(collider->parent, nullptr);
  const Transform& transform = TransformOf(collider);
  EXPECT_EQ(transform.m_local_pos, Vector3D(0, 0, 7));
  EXPECT_EQ(transform.m_prev_pos, Vector3D(0, 0, 7));
  EXPECT_EQ(transform.m_world_pos, Vector3D(0, 0, 7));
  EXPECT_EQ(transform.m_world_scale, Vector3D(60, 60, 1));
}

/// Merging as it is written down, on plain rectangles, to compare the real one with.
struct PlainBox {
  Rectangle at;
  bool grown_x = false;
  bool grown_y = false;
};

void MergePlainly(const Rectangle& tile, float size, std::vector<PlainBox>* boxes) {
  bool merged = false;
  for (PlainBox& box : *boxes) {
    if (std::trunc(tile[0]) == std::trunc(box.at[2]) &&
        std::trunc(tile[3]) == std::trunc(box.at[3]) && tile[1] == std::trunc(box.at[1]) &&
        !box.grown_y) {
      box.grown_x = merged = true;
      box.at[2] = tile[2];
    }
    if (tile[3] == box.at[1] && std::trunc(tile[2]) == std::trunc(box.at[2]) &&
        tile[0] == std::trunc(box.at[0]) && !box.grown_x) {
      box.grown_y = merged = true;
      box.at[1] = tile[1];
    }
  }
  if (merged) return;
  const float x = (tile[0] + tile[2]) / 2;
  const float y = (tile[1] + tile[3]) / 2;
  boxes->push_back({{x - size / 2, y - size / 2, x + size / 2, y + size / 2}});
}

std::vector<Rectangle> BuiltPlainly(const std::vector<std::string>& rows, int size) {
  std::vector<PlainBox> boxes;
  const int columns = static_cast<int>(rows.front().size());
  const int count = static_cast<int>(rows.size());
  const auto edge = static_cast<float>(size);
  for (int r = 0; r < count; ++r) {
    for (int c = 0; c < columns; ++c) {
      if (rows[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)] != 'x') continue;
      const auto x = static_cast<float>(size / 2 - size * columns / 2 + c * size);
      const auto y = static_cast<float>(size / 2 + size * count / 2 - (r + 1) * size);
      MergePlainly({x - edge / 2, y - edge / 2, x + edge / 2, y + edge / 2}, edge, &boxes);
    }
  }
  std::vector<Rectangle> bounds;
  for (const PlainBox& box : boxes) bounds.push_back(box.at);
  return bounds;
}

TEST(LevelBuilder, RandomMapsAreMergedAsAPlainReadingMergesThem) {
  SeedRand(24);
  for (int round = 0; round < 30; ++round) {
    const int size = round % 3 == 2 ? 7 : 10 * (1 + round % 3);
    std::vector<std::string> rows(static_cast<std::size_t>(2 + Rand() % 6));
    const auto columns = static_cast<std::size_t>(2 + Rand() % 7);
    for (std::string& row : rows) {
      for (std::size_t c = 0; c < columns; ++c) row += Rand() % 4 == 0 ? '.' : 'x';
    }
    EXPECT_EQ(BuiltMap(rows, size), BuiltPlainly(rows, size)) << round;
  }
}

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

TEST(LevelBuilder, ATileOfAnySizeInTheFileIsNoFault) {
  const auto tile_of = [](const std::string& pos, const std::string& scale) {
    return Record("tile", {{"Transform", R"({"m_pos": [)" + pos + R"(, 0, 1], "m_scale": [)" +
                                             scale + R"(, 60, 1], "m_world_pos": [0, 0, 1]})"},
                           {"Render", R"({"m_tile": true})"}});
  };
  for (const char* scale : {"1e300", "-1e300", "1e38", "-60", "0"}) {
    for (const char* pos : {"1e300", "-1e300", "3e38", "0"}) {
      TileWorld world(PlainLevel({tile_of(pos, scale)}, 1, 1, 60));
      world.Build();
      EXPECT_THAT(world.Colliders(), SizeIs(1)) << pos << " " << scale;
      std::vector<TileCollider> colliders = {
          {world.Colliders().front()->GetComponent<ColliderHolder>()}};
      MergeTileCollider(world.Named("tile").front(), &colliders);
    }
  }
}

TEST(LevelBuilder, ATileSizeOfZeroPutsEveryCellIntoTheMiddle) {
  Files files = PlainLevel({TileAt(0, 0)}, 1, 1, 60);
  files[kPlainMap] = MapFile(2, 2, 0);
  EXPECT_THAT(Built(files), SizeIs(4));
}

TEST(LevelBuilder, TheLargestMapIsWalked) {
  Files files = PlainLevel({TileAt(0, 0)}, 1, 1, 60);
  for (const auto& [width, height] : {std::pair(65536u, 1u), std::pair(1u, 65536u)}) {
    files[kPlainMap] = MapFile(width, height, 16384);
    EXPECT_THAT(Built(files), IsEmpty()) << "an even count has no cell in the middle";
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

TEST(LevelBuilder, AnArchetypeOfAnotherShapeIsReportedByName) {
  for (const char* shape : {"Circle", "Polygon"}) {
    Files files = PlainLevel({"xx"});
    files["Resources/Archetypes/GameObjects/tilecollider.json"] = ColliderArchetype(60, shape);
    EXPECT_THAT(TileWorld(files).ReportOfBuilding(),
                AllOf(HasSubstr("tilecollider.json"), HasSubstr("must be a Box")))
        << shape;
  }
}

TEST(LevelBuilder, AnArchetypeWithoutItsComponentsIsReportedByName) {
  for (const char* components : {R"(["Transform"], "Transform": {})", "[]"}) {
    Files files = PlainLevel({"xx"});
    files["Resources/Archetypes/GameObjects/tilecollider.json"] =
        R"({"name": "tile_collider", "Childs": [], "components": )" + std::string(components) + "}";
    EXPECT_THAT(TileWorld(files).ReportOfBuilding(),
                AllOf(HasSubstr("tilecollider.json"), HasSubstr("have a Transform")))
        << components;
  }
}

TEST(LevelBuilder, WithoutTheArchetypeTheReportNamesIt) {
  Files files = PlainLevel({"x"});
  files["Resources/Archetypes/GameObjects/tilecollider.json"] = "";
  EXPECT_THAT(TileWorld(files).ReportOfBuilding(), HasSubstr("no archetype \"tilecollider\""));
}

}  // namespace
}  // namespace ZOVEngine
