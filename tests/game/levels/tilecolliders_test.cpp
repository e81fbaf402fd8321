#include "game/levels/tilecolliders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "core/base/random.h"
#include "game/levels/tileworld.h"
#include "physicssystem.h"

namespace ZOVEngine {
namespace {

using carapace_test::BoundsOf;
using carapace_test::BoxOf;
using carapace_test::Built;
using carapace_test::ColliderArchetype;
using carapace_test::Files;
using carapace_test::PlainLevel;
using carapace_test::Record;
using carapace_test::Rectangle;
using carapace_test::TileAt;
using carapace_test::TileWorld;
using carapace_test::TransformOf;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::SizeIs;

std::vector<Rectangle> BuiltMap(const std::vector<std::string>& rows, int size = 60) {
  return Built(PlainLevel(rows, size));
}

TEST(TileColliders, ARowOfTilesIsOneBoxAsWideAsTheyAre) {
  EXPECT_THAT(BuiltMap({"xxxxx"}), ElementsAre(Rectangle{-150, -30, 150, 30}));
}

TEST(TileColliders, AGrownBoxIsTheSameInItsTransformAndInItsShape) {
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

TEST(TileColliders, ABoxGrownDownwardIsTheSameInItsTransformAndInItsShape) {
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

TEST(TileColliders, TwoRowsOfTwoAreTwoBoxesNotOne) {
  EXPECT_THAT(BuiltMap({"xx", "xx"}),
              ElementsAre(Rectangle{-60, 0, 60, 60}, Rectangle{-60, -60, 60, 0}));
}

TEST(TileColliders, AColumnIsOneTallBox) {
  EXPECT_THAT(BuiltMap({"x", "x", "x", "x"}), ElementsAre(Rectangle{-30, -120, 30, 120}));
}

TEST(TileColliders, ABoxThatGrewToTheRightDoesNotGrowDown) {
  EXPECT_THAT(BuiltMap({"xx", "x."}),
              ElementsAre(Rectangle{-60, 0, 60, 60}, Rectangle{-60, -60, 0, 0}));
}

TEST(TileColliders, ABoxThatGrewDownDoesNotGrowToTheRight) {
  EXPECT_THAT(BuiltMap({"x.", "x.", "xx"}),
              ElementsAre(Rectangle{-60, -90, 0, 90}, Rectangle{0, -90, 60, -30}));
}

TEST(TileColliders, AGapEndsABox) {
  EXPECT_THAT(BuiltMap({"x.x"}),
              ElementsAre(Rectangle{-90, -30, -30, 30}, Rectangle{30, -30, 90, 30}));
}

TEST(TileColliders, OneTileCanGrowTwoBoxes) {
  // The tile in the corner ends the right column and the bottom row.
  EXPECT_THAT(BuiltMap({"..x", "..x", ".xx"}),
              ElementsAre(Rectangle{30, -90, 90, 90}, Rectangle{-30, -90, 90, -30}));
}

TEST(TileColliders, AFrameOfTilesIsFourBoxes) {
  EXPECT_THAT(BuiltMap({"xxxx", "x..x", "xxxx"}),
              ElementsAre(Rectangle{-120, 30, 120, 90}, Rectangle{-120, -90, -60, 30},
                          Rectangle{60, -90, 120, 30}, Rectangle{-60, -90, 120, -30}));
}

TEST(TileColliders, TilesOfOddSizeAreNotMerged) {
  EXPECT_THAT(BuiltMap({"xx", "xx"}, 15), SizeIs(4));
}

TEST(TileColliders, ANewBoxIsAsLargeAsItsArchetypeNotAsItsTile) {
  Files files = PlainLevel({"x.x"}, 60);
  files["Resources/Archetypes/GameObjects/tilecollider.json"] = ColliderArchetype(20);
  EXPECT_THAT(Built(files), ElementsAre(Rectangle{-70, -10, -50, 10}, Rectangle{50, -10, 70, 10}));
}

TEST(TileColliders, GrowthChangesTheLocalFieldsAndTheShapeAndTheWorldFollows) {
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

TEST(TileColliders, ABoxThatGrewToTheRightDoesNotGrowDownByATileAsWideAsItself) {
  // The wide tile lies on the first cell of the second row; edge for edge it continues the box.
  const auto tile = [](float x, float y, float width, float cell) {
    std::ostringstream out;
    out << R"({"m_pos": [)" << x << ", " << y << R"(, 1], "m_scale": [)" << width
        << R"(, 60, 1], "m_world_pos": [)" << cell << ", " << y << ", 1]}";
    return Record("tile", {{"Transform", out.str()}, {"Render", R"({"m_tile": true})"}});
  };
  EXPECT_THAT(
      Built(PlainLevel({tile(-30, 30, 60, -30), tile(30, 30, 60, 30), tile(0, -30, 120, -30)}, 2, 2,
                       60)),
      ElementsAre(Rectangle{-60, 0, 60, 60}, Rectangle{-30, -60, 30, 0}));
  EXPECT_THAT(Built(PlainLevel({tile(-30, 30, 60, -30), tile(-30, -30, 60, -30)}, 2, 2, 60)),
              ElementsAre(Rectangle{-60, -60, 0, 60}))
      << "one that did not grow does";
}

TEST(TileColliders, TheRotationOfTheArchetypeIsThatOfTheNewObjectInTheWorld) {
  Files files = PlainLevel({"x"});
  std::string& archetype = files["Resources/Archetypes/GameObjects/tilecollider.json"];
  const std::string straight = "\"m_rotate\": 0";
  ASSERT_NE(archetype.find(straight), std::string::npos);
  archetype.replace(archetype.find(straight), straight.size(), "\"m_rotate\": 90");
  TileWorld world(files);
  world.Build();
  ASSERT_THAT(world.Colliders(), SizeIs(1));
  EXPECT_EQ(TransformOf(world.Colliders().front()).m_local_rotate, 90.0f);
  EXPECT_EQ(TransformOf(world.Colliders().front()).m_world_rotate, 90.0f);
}

TEST(TileColliders, ABoxIsMadeAtTheTilesPlaceWithItsDepth) {
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

TEST(TileColliders, RandomMapsAreMergedAsAPlainReadingMergesThem) {
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

TEST(TileColliders, ATileOfAnySizeInTheFileIsNoFault) {
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
      TileColliders colliders;
      for (int times = 0; times < 3; ++times) colliders.Merge(world.Named("tile").front());
    }
  }
}

// Archetypes that are no boxes

TEST(TileColliders, AnArchetypeOfAnotherShapeIsReportedByName) {
  for (const char* shape : {"Circle", "Polygon"}) {
    Files files = PlainLevel({"xx"});
    files["Resources/Archetypes/GameObjects/tilecollider.json"] = ColliderArchetype(60, shape);
    EXPECT_THAT(TileWorld(files).ReportOfBuilding(),
                AllOf(HasSubstr("tilecollider.json"), HasSubstr("must be a Box")))
        << shape;
  }
}

TEST(TileColliders, AnArchetypeWithoutItsComponentsIsReportedByName) {
  for (const char* components : {R"(["Transform"], "Transform": {})", "[]"}) {
    Files files = PlainLevel({"xx"});
    files["Resources/Archetypes/GameObjects/tilecollider.json"] =
        R"({"name": "tile_collider", "Childs": [], "components": )" + std::string(components) + "}";
    EXPECT_THAT(TileWorld(files).ReportOfBuilding(),
                AllOf(HasSubstr("tilecollider.json"), HasSubstr("have a Transform")))
        << components;
  }
}

TEST(TileColliders, WithoutTheArchetypeTheReportNamesIt) {
  Files files = PlainLevel({"x"});
  files["Resources/Archetypes/GameObjects/tilecollider.json"] = "";
  EXPECT_THAT(TileWorld(files).ReportOfBuilding(), HasSubstr("no archetype \"tilecollider\""));
}

}  // namespace
}  // namespace ZOVEngine
