#include "editor/panels/assetlist.h"

#include <gmock/gmock.h>

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

}  // namespace
}  // namespace ZOVEngine
