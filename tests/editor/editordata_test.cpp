#include "editor/editordata.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ZOVEngine {
namespace {

using ::testing::ElementsAre;

TEST(EditorData, NothingIsOpenAtTheStart) {
  const EditorData data;
  EXPECT_EQ(data.m_editor_camera, nullptr);
  EXPECT_FALSE(data.m_level_open || data.m_dragging || data.m_ctrl_down || data.m_input_captured);
  EXPECT_EQ(data.m_edit_mode, EDIT_MOVE);
  EXPECT_EQ(data.m_level_name + data.m_asset_dir, "");
  EXPECT_EQ(data.m_viewport_offset_y, 0.0f);
}

TEST(EditorData, TheTileToolsAreInTheOrderOfTheMenuAndTheFirstIsChosen) {
  const TileMapInfo map;
  EXPECT_THAT(map.m_modes,
              ElementsAre("Draw Single", "Erase", "Draw Row", "Draw Column", "Rotate Tile"));
  EXPECT_EQ(map.m_mode, map.m_modes.front());
  EXPECT_EQ(map.m_tile_tex, "default");
  EXPECT_EQ(map.m_width + map.m_height + map.m_tile_size, 0);
  EXPECT_EQ(map.m_map_dir + map.m_map_name, "");
}

}  // namespace
}  // namespace ZOVEngine
