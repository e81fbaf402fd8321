#include "editor/panels/tilespanel.h"

#include <gtest/gtest.h>

#include "editor/editordata.h"
#include "render/rendersystem.h"
#include "support/paneltest.h"

namespace ZOVEngine {
namespace {

constexpr const char* kPlates[] = {"Cover", "Glass", "Grate",     "Halves",   "Hatch", "Hex",
                                   "Lane",  "Pipes", "PipesDown", "Quarters", "Warn",  "WarnDown"};

class TilesPanelTest : public carapace_test::PanelTest {
 protected:
  TilesPanelTest() : PanelTest(765.0f, 270.0f) {
    std::uint32_t number = 0;
    const auto add = [&number](const std::string& key) {
      g_render_system->m_textures[key] = ++number;
    };
    for (const char* plate : kPlates) add(std::string("Tile_Floor_") + plate);
    add("Tile_Floor");
    add("Tile_Wall");
    Show(2);
  }
  void ShowPanel() override { panel.Show(*editor); }

  TilesPanel panel;
};

TEST_F(TilesPanelTest, ShowsEveryTextureWithinThePanel) {
  EXPECT_TRUE(Sees("Floor"));
  EXPECT_TRUE(Sees("Wall"));
  for (const char* plate : kPlates) {
    const ImVec2 at = FindText(std::string(plate).substr(0, 4));
    EXPECT_GE(at.x, 0.0f) << plate;
    EXPECT_LT(at.x, size.x - 40.0f) << plate;
  }
}

TEST_F(TilesPanelTest, TheFloorAndTheWallComeFirst) {
  EXPECT_EQ(g_editor.m_tile_map.m_tile_tex, "Tile_Floor") << "until one is chosen";
  EXPECT_LT(FindText("Wall").x, FindText("Cove").x);
  Click(ImVec2(At("Wall").x, At("Wall").y - 40.0f));
  EXPECT_EQ(g_editor.m_tile_map.m_tile_tex, "Tile_Wall");
}

TEST_F(TilesPanelTest, AToolIsChosen) {
  ClickText("Erase");
  EXPECT_EQ(g_editor.m_tile_map.m_mode, "Erase");
  EXPECT_TRUE(editor->tiles_in_hand);
}

}  // namespace
}  // namespace ZOVEngine
