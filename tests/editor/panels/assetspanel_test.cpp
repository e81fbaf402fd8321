#include "editor/panels/assetspanel.h"

#include <gmock/gmock.h>

#include <utility>

#include "editor/editordata.h"
#include "support/paneltest.h"

namespace ZOVEngine {
namespace {

using carapace_test::PanelTest;
using ::testing::HasSubstr;

class AssetsPanelTest : public PanelTest {
 protected:
  AssetsPanelTest() : PanelTest(765.0f, 290.0f) {
    world.Directory().Write("Resources/Textures/Rock.png", "not really");
    world.Directory().Write("Resources/Sound/SFX/boom.ogg", std::string(3000, 'x'));
    world.Directory().Write("Resources/Sound/BGM/song.ogg", "y");
    Show(2);
  }
  void ShowPanel() override { panel.Show(*editor); }

  AssetsPanel panel;
};

TEST_F(AssetsPanelTest, ShowsImagesAndSounds) {
  EXPECT_TRUE(Sees("Rock.png"));
  EXPECT_FALSE(Sees("boom.ogg"));
  ClickText("Sounds");
  EXPECT_TRUE(Sees("boom.ogg"));
  EXPECT_TRUE(Sees("song.ogg"));
  EXPECT_TRUE(Sees("3 KB"));
}

TEST_F(AssetsPanelTest, AClickPlaysASound) {
  ClickText("Sounds");
  ClickText("boom.ogg");
  EXPECT_EQ(world.mixer.CountPlays("Resources/Sound/SFX/boom.ogg"), 1);
}

TEST_F(AssetsPanelTest, TheFolderOfDroppedFilesIsChosen) {
  ClickText("Effects");
  EXPECT_EQ(g_editor.m_asset_dir, "Resources/Sound/SFX");
  ClickText("Music");
  EXPECT_EQ(g_editor.m_asset_dir, "Resources/Sound/BGM");
}

TEST_F(AssetsPanelTest, AFolderOutsideTheAssetsIsRefused) {
  const std::string before = g_editor.m_asset_dir;
  world.Directory().Write("Elsewhere/file.txt", "z");
  for (const char* folder :
       {"Elsewhere", "Resources/../Elsewhere", "/tmp", "", "Resources/None", "ResourcesElse"}) {
    EXPECT_FALSE(ChooseAssetFolder(*editor, folder)) << folder;
    EXPECT_EQ(g_editor.m_asset_dir, before);
    EXPECT_THAT(LastLine(), HasSubstr("no folder within Resources"));
  }
}

TEST_F(AssetsPanelTest, AFileIsImportedByItsPath) {
  ChooseAssetFolder(*editor, "Resources/Sound/SFX");
  world.Directory().Write("Elsewhere/clank.ogg", "clank");
  Click(At("Path of an image"));
  Type("Elsewhere/clank.ogg");
  Press(ImGuiKey_Enter);
  EXPECT_EQ(world.Directory().Read("Resources/Sound/SFX/clank.ogg"), "clank");
  EXPECT_THAT(LastLine(), HasSubstr("Copied clank.ogg to Resources/Sound/SFX"));
}

TEST_F(AssetsPanelTest, AFileThatCannotBeImportedSaysWhy) {
  ChooseAssetFolder(*editor, "Resources/Sound/SFX");
  world.Directory().Write("Elsewhere/notes.txt", "z");
  world.Directory().Write("Elsewhere/boom.ogg", "another");
  for (const auto& [path, fault] :
       {std::pair("Elsewhere/notes.txt", "is no image"),
        {"Elsewhere/none.png", "cannot be found"},
        {"", "is no image"},
        {"Elsewhere/boom.ogg", "there is a file Resources/Sound/SFX/boom.ogg"}}) {
    EXPECT_FALSE(ImportFile(*editor, path)) << path;
    EXPECT_THAT(LastLine(), HasSubstr(fault));
  }
  EXPECT_EQ(world.Directory().Read("Resources/Sound/SFX/boom.ogg"), std::string(3000, 'x'));
}

TEST_F(AssetsPanelTest, AFileThatCameLaterIsMarkedAsNew) {
  world.Directory().Write("Resources/Textures/Later.png", "also not");
  Show(70);
  EXPECT_TRUE(Sees("NEW  Later.png"));
  EXPECT_FALSE(Sees("NEW  Rock.png"));
}

TEST_F(AssetsPanelTest, TheSearchLeavesWhatFits) {
  Click(At("Search"));
  Type("nothing");
  EXPECT_FALSE(Sees("Rock.png"));
  EXPECT_TRUE(Sees("No image is called that"));
}

}  // namespace
}  // namespace ZOVEngine
