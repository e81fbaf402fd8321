#include "game/levels/tilemap.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/reports.h"
#include "support/tempdirectory.h"

namespace ZOVEngine {
namespace {

using carapace_test::OutputOf;
using carapace_test::ReportOf;
using carapace_test::TempDirectory;
using ::testing::AllOf;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;

constexpr const char* kFile = "Map/plan.json";

/// A map that was read from a text, and what reading it printed.
struct Loaded {
  explicit Loaded(const std::string& text) {
    directory.Write(kFile, text);
    output = OutputOf([this] { map.Load(kFile); });
  }

  TempDirectory directory;
  TileMap map;
  std::string output;
};

/// The report of reading a map from a text; empty when there was none.
std::string ReportOfLoading(const std::string& text) {
  const TempDirectory directory;
  directory.Write(kFile, text);
  TileMap map;
  std::string report;
  OutputOf([&] { report = ReportOf([&] { map.Load(kFile); }); });
  return report;
}

std::string SizesAnd(const std::string& rest) {
  return R"({"Width": 2, "Height": 3, "TileSize": 60, )" + rest + "}";
}

TEST(TileMap, ANewMapIsEmpty) {
  const TileMap map;
  EXPECT_EQ(map.m_width, 0u);
  EXPECT_EQ(map.m_height, 0u);
  EXPECT_EQ(map.m_tileSize, 0);
  EXPECT_THAT(map.m_grid, IsEmpty());
  EXPECT_THAT(map.m_tileObjects, IsEmpty());
}

TEST(TileMap, TheEditorsFormHasAnEmptyTableAndAGridOfZeros) {
  const Loaded loaded(R"({"Width": 2, "Height": 3, "TileSize": 60})");
  EXPECT_EQ(loaded.map.m_width, 2u);
  EXPECT_EQ(loaded.map.m_height, 3u);
  EXPECT_EQ(loaded.map.m_tileSize, 60);
  EXPECT_THAT(loaded.map.m_tileObjects, IsEmpty());
  EXPECT_THAT(loaded.map.m_grid, ElementsAre(ElementsAre(0, 0, 0), ElementsAre(0, 0, 0)));
}

TEST(TileMap, TheFilesOuterIndexIsTheRowTheGridsTheColumn) {
  const Loaded loaded(SizesAnd(R"("TileMap": [[1, 2], [3, 4], [5, -6]])"));
  EXPECT_THAT(loaded.map.m_grid, ElementsAre(ElementsAre(1, 3, 5), ElementsAre(2, 4, -6)));
}

TEST(TileMap, CellsThatTheRowsDoNotReachAreZero) {
  const Loaded loaded(SizesAnd(R"("TileMap": [[1], [], [5, 6]])"));
  EXPECT_THAT(loaded.map.m_grid, ElementsAre(ElementsAre(1, 0, 5), ElementsAre(0, 0, 6)));
}

TEST(TileMap, TileObjectsAreNamesByIndex) {
  const Loaded loaded(SizesAnd(R"("TileObjects": {"1": "wall", "-7": "", "12": "floor"})"));
  EXPECT_THAT(loaded.map.m_tileObjects,
              UnorderedElementsAre(Pair(1, "wall"), Pair(-7, ""), Pair(12, "floor")));
}

TEST(TileMap, TheIndexIsAsMuchOfTheKeyAsIsANumber) {
  const Loaded loaded(SizesAnd(R"("TileObjects": {"wall": "none", " 12x": "some"})"));
  EXPECT_THAT(loaded.map.m_tileObjects, UnorderedElementsAre(Pair(0, "none"), Pair(12, "some")));
}

TEST(TileMap, AnIndexBeyondAnIntIsNoFault) {
  const Loaded loaded(SizesAnd(R"("TileObjects": {"99999999999999999999999": "far"})"));
  EXPECT_THAT(loaded.map.m_tileObjects, SizeIs(1));
}

TEST(TileMap, OfOneIndexTheLastNameStays) {
  const Loaded loaded(SizesAnd(R"("TileObjects": {"1": "first", "01": "last"})"));
  EXPECT_THAT(loaded.map.m_tileObjects, UnorderedElementsAre(Pair(1, "last")));
}

TEST(TileMap, LoadingTracesTheGridRowByRowOnOneLine) {
  const Loaded loaded(SizesAnd(R"("TileMap": [[1, 2], [3, 4], [5, 6]])"));
  EXPECT_EQ(loaded.output, "1, 2, 3, 4, 5, 6, \n");
}

TEST(TileMap, TheOptionalKeysAreNotMissed) {
  EXPECT_EQ(Loaded(R"({"Width": 1, "Height": 1, "TileSize": 60})").output, "0, \n");
}

TEST(TileMap, AMissingSizePrintsItsLineAndIsZero) {
  const Loaded loaded("{}");
  EXPECT_EQ(loaded.output,
            "Cant find Key: Width\nCant find Key: Height\nCant find Key: TileSize\n\n");
  EXPECT_EQ(loaded.map.m_width, 0u);
  EXPECT_THAT(loaded.map.m_grid, IsEmpty());
}

TEST(TileMap, LoadingAnotherFileForgetsTheFirst) {
  Loaded loaded(SizesAnd(R"("TileObjects": {"1": "wall"}, "TileMap": [[1, 2], [3, 4]])"));
  loaded.directory.Write("second.json", R"({"Width": 1, "Height": 2, "TileSize": 10})");
  OutputOf([&] { loaded.map.Load("second.json"); });
  EXPECT_THAT(loaded.map.m_grid, ElementsAre(ElementsAre(0, 0)));
  EXPECT_THAT(loaded.map.m_tileObjects, IsEmpty());
}

TEST(TileMap, TheLargestMapsAreRead) {
  for (const char* sizes : {R"("Width": 65535, "Height": 1)", R"("Width": 1, "Height": 65535)",
                            R"("Width": 2048, "Height": 2048)", R"("Width": 65535, "Height": 0)"}) {
    const Loaded loaded(std::string("{") + sizes + R"(, "TileSize": 16384})");
    EXPECT_EQ(loaded.map.m_grid.size(), loaded.map.m_width) << sizes;
  }
}

// Files that are no maps

TEST(TileMap, AnAbsentFileEndsTheProgram) {
  const TempDirectory directory;
  TileMap map;
  EXPECT_REPORT_ENDS_PROGRAM(map.Load("Map/none.json"), "Map/none.jsonfile not found");
}

TEST(TileMap, AnEmptyACutAndAShapelessFileAreMapsWithoutCells) {
  for (const char* text : {"", "{\"Width\": 2, \"Hei", "[1, 2]", "17", "null"}) {
    const Loaded loaded(text);
    EXPECT_THAT(loaded.output, HasSubstr("Cant find Key: Width\n")) << text;
    EXPECT_THAT(loaded.map.m_grid, IsEmpty()) << text;
  }
}

TEST(TileMap, ARowBeyondTheHeightIsReportedWithFileAndKey) {
  EXPECT_THAT(ReportOfLoading(SizesAnd(R"("TileMap": [[], [], [], []])")),
              AllOf(HasSubstr(kFile), HasSubstr("key \"TileMap\""),
                    HasSubstr("the rows: 4 entries, but the map has room for 3")));
}

TEST(TileMap, AColumnBeyondTheWidthIsReportedWithFileKeyAndRow) {
  EXPECT_THAT(ReportOfLoading(SizesAnd(R"("TileMap": [[1, 2], [1, 2, 3]])")),
              AllOf(HasSubstr(kFile), HasSubstr("key \"TileMap\""),
                    HasSubstr("row 1: 3 entries, but the map has room for 2")));
}

struct BadMap {
  const char* text;
  const char* key;
};

TEST(TileMap, SizesOutOfBoundsAreReportedBeforeAnythingIsAllocated) {
  constexpr BadMap kBad[] = {
      {R"({"Width": -1, "Height": 0, "TileSize": 60})", "Width"},
      {R"({"Width": 4000000000, "Height": 0, "TileSize": 60})", "Width"},
      {R"({"Width": 65536, "Height": 1, "TileSize": 60})", "Width"},
      {R"({"Width": 0, "Height": -32, "TileSize": 60})", "Height"},
      {R"({"Width": 0, "Height": 4294967295, "TileSize": 60})", "Height"},
      {R"({"Width": 1, "Height": 65536, "TileSize": 60})", "Height"},
      {R"({"Width": 65535, "Height": 65535, "TileSize": 60})", "Height"},
      {R"({"Width": 2049, "Height": 2048, "TileSize": 60})", "Height"},
      {R"({"Width": 2, "Height": 2, "TileSize": -60})", "TileSize"},
      {R"({"Width": 2, "Height": 2, "TileSize": 16385})", "TileSize"},
      {R"({"Width": 2, "Height": 2, "TileSize": 2147483647})", "TileSize"},
      {R"({"Width": 2.3, "Height": 2, "TileSize": 60})", "Width"},
  };
  for (const BadMap& bad : kBad) {
    EXPECT_THAT(ReportOfLoading(bad.text),
                AllOf(HasSubstr(kFile), HasSubstr("key \"" + std::string(bad.key) + "\"")))
        << bad.text;
  }
}

TEST(TileMap, ValuesOfAnotherTypeAreReportedWithFileAndKey) {
  constexpr BadMap kBad[] = {
      {R"({"Width": "2"})", "Width"},
      {R"({"Width": 2, "Height": [3]})", "Height"},
      {R"({"Width": 2, "Height": 3, "TileSize": null})", "TileSize"},
      {R"({"Width": 2, "Height": 3, "TileSize": 60, "TileObjects": [1]})", "TileObjects"},
      {R"({"Width": 2, "Height": 3, "TileSize": 60, "TileObjects": {"1": 1}})", "TileObjects"},
      {R"({"Width": 2, "Height": 3, "TileSize": 60, "TileMap": {}})", "TileMap"},
      {R"({"Width": 2, "Height": 3, "TileSize": 60, "TileMap": [1, 2]})", "TileMap"},
      {R"({"Width": 2, "Height": 3, "TileSize": 60, "TileMap": [["1"]]})", "TileMap"},
      {R"({"Width": 2, "Height": 3, "TileSize": 60, "TileMap": [[true]]})", "TileMap"},
  };
  for (const BadMap& bad : kBad) {
    EXPECT_THAT(ReportOfLoading(bad.text),
                AllOf(HasSubstr(kFile), HasSubstr("key \"" + std::string(bad.key) + "\""),
                      HasSubstr("expected a")))
        << bad.text;
  }
}

TEST(TileMap, AnIndexThatIsAFractionIsReadByItsLowBits) {
  const Loaded loaded(SizesAnd(R"("TileMap": [[1.5, 4294967297]])"));
  EXPECT_EQ(loaded.map.m_grid[0][0], 0);
  EXPECT_EQ(loaded.map.m_grid[1][0], 1);
}

}  // namespace
}  // namespace ZOVEngine
