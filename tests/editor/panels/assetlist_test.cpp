#include "editor/panels/assetlist.h"

#include <gmock/gmock.h>

#include "render/rendersystem.h"
#include "support/imguiframe.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

TEST(AssetList, FilesOfAFolderAreListedByNameWithTheirSizes) {
  const carapace_test::World world(
      {{"Assets/b.ogg", "12345"}, {"Assets/a.ogg", "1"}, {"Assets/c.txt", "1"}});
  const std::vector<AssetFile> files = AssetFiles("Assets", {".ogg"});
  ASSERT_EQ(files.size(), 2u);
  EXPECT_EQ(files[0].path, "Assets/a.ogg");
  EXPECT_EQ(files[1].name, "b.ogg");
  EXPECT_EQ(files[1].size, 5u);
  EXPECT_TRUE(AssetFiles("Nowhere", {".ogg"}).empty());
}

TEST(AssetList, SoundsAreNamedByTheirFiles) {
  const carapace_test::World world({{"Resources/Sound/BGM/song.ogg", "1"}});
  EXPECT_THAT(SoundNames("BGM"), ::testing::Contains("song.ogg"));
}

TEST(AssetList, AKeyThatIsNoTextureHasOneFrameAndNoSize) {
  const carapace_test::World world;
  EXPECT_EQ(FrameCount("Sheet_Nothing"), 1);
  EXPECT_EQ(ImageSizeText("Nothing"), "");
}

/// A world whose renderer has two textures, and the empty key that a sprite without an image drew.
void ListTextures() {
  g_render_system->m_texture_paths = {"Resources/Textures/default.png",
                                      "Resources/Textures/Rock.png"};
  g_render_system->m_textures = {{"", 0}, {"default", 0}, {"Rock", 1}, {"unknown", 0}};
}

TEST(AssetList, OnlyTexturesOfTheListAreOffered) {
  const carapace_test::World world;
  ListTextures();
  EXPECT_THAT(TextureKeys(), ::testing::ElementsAre("Rock", "default"));
}

TEST(AssetList, APickerOpensThoughASpriteHasNoImage) {
  const carapace_test::World world;
  ListTextures();
  carapace_test::ImGuiContextForTest context{400.0f, 400.0f};
  std::string key = "Rock";
  ImVec2 at;
  const auto frame = [&] {
    context.Frame([&] {
      PickTexture("texture", &key);
      PickName("name", &key, {"", "Rock"});
      at = ImGui::GetItemRectMin();
    });
  };
  frame();
  for (const ImVec2 place : {ImVec2(60.0f, 18.0f), ImVec2(at.x + 5.0f, at.y + 5.0f)}) {
    carapace_test::ImGuiContextForTest::MoveMouse(place.x, place.y);
    frame();
    for (const bool down : {true, false, false}) {
      carapace_test::ImGuiContextForTest::HoldMouse(down);
      frame();
    }
    EXPECT_TRUE(ImGui::IsPopupOpen(nullptr, ImGuiPopupFlags_AnyPopupId));
    carapace_test::ImGuiContextForTest::MoveMouse(395.0f, 395.0f);
    for (const bool down : {true, false}) {
      carapace_test::ImGuiContextForTest::HoldMouse(down);
      frame();
    }
  }
}

}  // namespace
}  // namespace ZOVEngine
