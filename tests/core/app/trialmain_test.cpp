#include "core/app/trialmain.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <sstream>
#include <string>

#include "core/engine.h"
#include "support/levelgame.h"
#include "support/recordedgames.h"
#include "support/tempdirectory.h"

namespace ZOVEngine {
namespace {

using carapace_test::TempDirectory;
using ::testing::MatchesRegex;

constexpr const char* kLevel01 = "Level Editor/Levels/Level01/Level01.json";

/// The shipped data in the working directory, and a place for replays beside.
class TrialMainTest : public ::testing::Test {
 protected:
  TrialMainTest() { std::filesystem::current_path(CARAPACE_SOURCE_DIR); }

  int Run(const TrialRequest& request) { return TrialMain(request, m_out, m_errors); }
  std::string ReplayFile() const { return m_directory.Path() / "replay.txt"; }

  std::ostringstream m_out;
  std::ostringstream m_errors;

 private:
  TempDirectory m_directory;
};

TEST_F(TrialMainTest, TwoGamesOfTheFirstLevelAreReportedAndTheFirstWonCanBeWatched) {
  EXPECT_EQ(Run({kLevel01, 2, ReplayFile()}), EXIT_SUCCESS);
  EXPECT_THAT(m_out.str(), MatchesRegex("game 1 seed 1 won [0-9]+ rounds\n"
                                        "game 2 seed 2 won [0-9]+ rounds\n"
                                        "won 2 of 2, rounds median [0-9]+\n"));
  EXPECT_EQ(m_errors.str(), "");
  const RecordedGame game = carapace_test::ReadGame(ReplayFile());
  EXPECT_EQ(game.level, "Level01");
  EXPECT_EQ(game.seed, 1u);
  EXPECT_EQ(game.outcome, "won");
  EXPECT_GT(game.places.size(), 4u);
  EXPECT_EQ(carapace_test::PlayAgain(game), "");
}

/// A small level in a working directory of its own; without units it is over at once.
class SmallTrialTest : public ::testing::Test {
 protected:
  /// Runs one game of a level with these object records.
  int Run(const std::string& records, const std::string& replay_file = "") {
    carapace_test::Files files = carapace_test::World::ShippedFiles();
    files["level.json"] = R"({"TileMap": "map.json", "Tiles": "tiles.json",
                              "Objects": "objects.json", "Background": ""})";
    files["map.json"] = R"({"Width": 0, "Height": 0, "TileSize": 60})";
    files["tiles.json"] = R"({"GameObjFactory": []})";
    files["objects.json"] = "{\"GameObjFactory\": [" + records + "]}";
    for (const auto& [path, text] : files) m_directory.Write(path, text);
    return TrialMain({"level.json", 1, replay_file}, m_out, m_errors);
  }

  static std::string Controller() {
    return carapace_test::Record(
        "level",
        {{"Transform", carapace_test::TransformAt(0, 0)},
         {"AudioSource", R"({"sounds": [], "loop": [], "is_3D": [], "start_play": [],
                                      "volume": [], "sound_type": []})"},
         {"GameController", R"({"m_level_theme": "x.ogg", "m_level_map": "level.json"})"}});
  }

  TempDirectory m_directory;
  std::ostringstream m_out;
  std::ostringstream m_errors;
};

TEST_F(SmallTrialTest, WithoutUnitsTheGameIsLostAtOnce) {
  EXPECT_EQ(Run(Controller(), "replay.txt"), EXIT_SUCCESS);
  EXPECT_EQ(m_out.str(), "game 1 seed 1 lost 0 rounds\nwon 0 of 1, rounds median 0\n");
  EXPECT_FALSE(m_directory.Has("replay.txt"));
}

TEST_F(SmallTrialTest, TheEnginesOwnLinesAreDropped) {
  ::testing::internal::CaptureStdout();
  Run(Controller());
  std::cout << "afterwards" << std::endl;
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "afterwards\n");
}

TEST_F(SmallTrialTest, ALevelWithoutATurnControllerIsRefused) {
  EXPECT_EQ(Run(""), EXIT_FAILURE);
  EXPECT_EQ(m_out.str(), "");
  EXPECT_EQ(m_errors.str(), "carapace: there is no turn controller in \"level.json\"\n");
  EXPECT_EQ(g_engine, nullptr);
}

}  // namespace
}  // namespace ZOVEngine
