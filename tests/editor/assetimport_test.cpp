#include "editor/assetimport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "render/rendersystem.h"
#include "support/reports.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::OutputOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

TEST(ClassifyFile, GoesByTheExactEnding) {
  const std::pair<const char*, const char*> rows[] = {
      {"a.json", "json"},     {"a.object", "object"},     {"a.dds", "image"},
      {"a.png", "image"},     {"a.jpg", "image"},         {"a.JPG", "image"},
      {"a.ogg", "sound"},     {"a.mp3", "sound"},         {"a.wav", "sound"},
      {"a.PNG", "Invalid"},   {"a.txt", "Invalid"},       {"a.png.exe", "Invalid"},
      {"a.tar.png", "image"}, {"png", "Invalid"},         {"", "Invalid"},
      {"a.", "Invalid"},      {"C:\\a.b\\png", "Invalid"}};
  for (const auto& [path, kind] : rows) EXPECT_EQ(ClassifyFile(path), kind) << path;
}

TEST(DroppedName, IsWhatFollowsTheLastSeparator) {
  EXPECT_EQ(DroppedName("C:\\art\\beetle.png"), "beetle.png");
  EXPECT_EQ(DroppedName("/home/author/beetle.png"), "beetle.png");
  EXPECT_EQ(DroppedName("beetle.png"), "beetle.png");
  EXPECT_EQ(DroppedName("C:\\art\\"), "");
  EXPECT_EQ(DroppedName(""), "");
}

TEST(DroppedName, IsCutAtTheCodeOfThePathsLastCharacter) {
  const std::string name = std::string(200, 'a') + ".png";
  EXPECT_EQ(DroppedName("C:\\" + name), name.substr(0, 'g'));
  const std::string sound = std::string(200, 'a') + ".wav";
  EXPECT_EQ(DroppedName("C:\\" + sound), sound.substr(0, 'v'));
}

/// A folder "assets" to drop into, and a folder "desk" with files.
class ImportTest : public ::testing::Test {
 protected:
  ImportTest() { world.Directory().Write("assets/old.png", "old"); }

  std::string Drop(const std::vector<std::string>& files) {
    return OutputOf([&] { ImportDroppedFiles("assets", files); });
  }

  std::string OnDesk(const std::string& name) {
    world.Directory().Write("desk/" + name, "new " + name);
    return (world.Directory().Path() / "desk" / name).string();
  }

  bool Has(const std::string& name) { return world.Directory().Has("assets/" + name); }

  carapace_test::World world;
  std::vector<std::string>& textures = g_render_system->m_texture_paths;
};

TEST_F(ImportTest, AnImageIsCopiedAndJoinsTheTexturesByItsBareName) {
  const std::string output = Drop({OnDesk("beetle.png")});
  EXPECT_EQ(world.Directory().Read("assets/beetle.png"), "new beetle.png");
  EXPECT_THAT(textures, ElementsAre("beetle.png"));
  EXPECT_THAT(output, HasSubstr("ERROR: Failed to load texture."));
}

TEST_F(ImportTest, ASoundIsCopiedAndNothingMore) {
  EXPECT_EQ(Drop({OnDesk("boom.ogg")}), "");
  EXPECT_TRUE(Has("boom.ogg"));
  EXPECT_THAT(textures, IsEmpty());
}

TEST_F(ImportTest, AFileThatExistsIsLeftAlone) {
  EXPECT_EQ(Drop({OnDesk("old.png")}), "File Exist!\n");
  EXPECT_EQ(world.Directory().Read("assets/old.png"), "old");
  EXPECT_THAT(textures, IsEmpty());
}

TEST_F(ImportTest, OfSeveralFilesEachIsHandledInOrder) {
  Drop({OnDesk("one.png"), OnDesk("note.txt"), OnDesk("old.png"), OnDesk("two.jpg"),
        OnDesk("level.json")});
  EXPECT_THAT(textures, ElementsAre("one.png", "two.jpg"));
  EXPECT_FALSE(Has("note.txt"));
  EXPECT_FALSE(Has("level.json"));
}

TEST_F(ImportTest, TheSameFileTwiceInOneDropComesOnce) {
  const std::string file = OnDesk("one.png");
  EXPECT_THAT(Drop({file, file}), HasSubstr("File Exist!\n"));
  EXPECT_THAT(textures, ElementsAre("one.png"));
}

TEST_F(ImportTest, WhatCannotBeCopiedIsPassedOver) {
  std::filesystem::create_directories(world.Directory().Path() / "desk/folder.png");
  EXPECT_THAT(Drop({"desk/folder.png", "desk/missing.png", OnDesk("one.png")}),
              Not(HasSubstr("Exist")));
  EXPECT_THAT(textures, ElementsAre("one.png"));
  EXPECT_FALSE(Has("folder.png"));
}

TEST_F(ImportTest, IntoAFolderThatIsNotThereNothingIsImported) {
  EXPECT_EQ(OutputOf([&] { ImportDroppedFiles("nowhere", {OnDesk("one.png")}); }), "");
  EXPECT_THAT(textures, IsEmpty());
}

}  // namespace
}  // namespace ZOVEngine
