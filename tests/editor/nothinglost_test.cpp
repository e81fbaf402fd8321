#include "editor/editorsave.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <thread>

#include "core/base/wholefile.h"
#include "editor/editortest.h"
#include "editor/leveltext.h"
#include "editor/recovery.h"

namespace ZOVEngine {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// What keeps the files of a level's folder from being a level that can be opened; empty if nothing
/// does.
std::string FaultOfLevelFolder(const fs::path& folder, const std::string& name) {
  for (const char* file : {"Map/tiles.json", "Entity/Units.json"}) {
    LevelDocument document;
    if (!document.SetText(ReadWholeFile(folder / file).value_or(""))) return file;
    if (!FatalProblems(document).empty()) return std::string(file) + " ends the program";
  }
  for (const std::string& file : {name + ".json", "Map/" + name + ".json"}) {
    rapidjson::Document json;
    ParseExactly(&json, ReadWholeFile(folder / file).value_or(""));
    if (json.HasParseError()) return file;
  }
  return "";
}

/// The first level, open and changed.
class LostNothing : public carapace_test::EditorTest {
 protected:
  LostNothing() {
    EXPECT_TRUE(editor->Open("Level01"));
    ChangeLevel();
  }

  void ChangeLevel() { Move(PathTo(world.Find("player1")), 30.0f, 0.0f); }

  void ExpectSaveFails() {
    EXPECT_FALSE(editor->Save());
    EXPECT_THAT(editor->log.Lines().back().text, HasSubstr("could not be saved"));
    EXPECT_TRUE(editor->log.Lines().back().fault);
    EXPECT_TRUE(editor->IsOpen());
    EXPECT_TRUE(editor->IsChanged());
  }

  void ExpectAllLoads() {
    EXPECT_THAT(FaultOfLevelFolder(fs::path(kLevelsFolder) / "Level01", "Level01"), IsEmpty());
    for (const std::string& backup : Backups("Level01")) {
      EXPECT_THAT(FaultOfLevelFolder(backup, "Level01"), IsEmpty()) << backup;
    }
  }
};

/// A process that saves again and again until it is killed, when this goes.
class SavingProcess {
 public:
  template <class Save>
  explicit SavingProcess(const Save& save) : m_child(fork()) {
    if (m_child != 0) return;
    for (;;) save();
  }
  ~SavingProcess() {
    kill(m_child, SIGKILL);
    waitpid(m_child, nullptr, 0);
  }
  SavingProcess(const SavingProcess&) = delete;
  SavingProcess& operator=(const SavingProcess&) = delete;

 private:
  pid_t m_child;
};

int Kills() {
  const char* wanted = std::getenv("CARAPACE_KILLS");
  return wanted != nullptr ? std::atoi(wanted) : 20;
}

TEST_F(LostNothing, WheneverASaveIsKilledTheLevelAndItsBackupsLoad) {
  std::mt19937 random{20261122};
  std::uniform_int_distribution<int> wait(0, 300);
  for (int i = 0; i < Kills() && !HasFailure(); ++i) {
    {
      const SavingProcess saving([this] {
        ChangeLevel();
        editor->Save();
      });
      std::this_thread::sleep_for(std::chrono::milliseconds(wait(random)));
    }
    ExpectAllLoads();
  }
  EXPECT_THAT(Backups("Level01"), ::testing::Not(IsEmpty())) << "no save got that far";
  EXPECT_TRUE(editor->Save()) << "what the killed ones left is in nobody's way";
  ExpectAllLoads();
}

/// A disk on which no file can grow beyond a size.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &m_before);
    const rlimit full{bytes, m_before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &full);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &m_before);
    std::signal(SIGXFSZ, m_handler);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit m_before{};
  void (*m_handler)(int);
};

TEST_F(LostNothing, OnAFullDiskASaveFailsAndTheFilesStayAsTheyWere) {
  {
    const FullDisk disk(0);
    ExpectSaveFails();
  }
  EXPECT_EQ(Now(), files);
  EXPECT_THAT(Backups("Level01"), IsEmpty()) << "a part of a backup is none";
  EXPECT_TRUE(editor->Save());
  EXPECT_FALSE(editor->IsChanged());
  EXPECT_EQ(Backups("Level01").size(), 1u);
}

TEST_F(LostNothing, OnADiskThatFillsUpTheLevelStillLoads) {
  for (const rlim_t bytes : {100u, 5000u, 50000u}) {
    const FullDisk disk(bytes);
    ExpectSaveFails();
  }
  ExpectAllLoads();
}

TEST_F(LostNothing, AFolderThatTakesNoFilesMakesASaveFail) {
  const fs::path folder = fs::path(kLevelsFolder) / "Level01/Entity", aside = folder.string() + "2";
  fs::rename(folder, aside);
  std::ofstream(folder) << "a file where the folder was";
  ExpectSaveFails();
  fs::remove(folder);
  fs::rename(aside, folder);
  EXPECT_TRUE(editor->Save());
}

TEST_F(LostNothing, WithoutRoomForBackupsASaveIsDoneAndSaysSo) {
  std::ofstream("Level Editor/Backups") << "a file where the folder would be";
  EXPECT_TRUE(editor->Save());
  std::vector<std::string> lines;
  for (const EditorLog::Line& line : editor->log.Lines()) lines.push_back(line.text);
  EXPECT_THAT(lines, ::testing::Contains(HasSubstr("backup")));
}

}  // namespace
}  // namespace ZOVEngine
