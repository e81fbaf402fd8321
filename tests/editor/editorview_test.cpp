#include "editor/editorview.h"

#include <gtest/gtest.h>

#include "editor/editordata.h"
#include "support/imguiframe.h"

namespace ZOVEngine {
namespace {

using carapace_test::ImGuiContextForTest;

class EditorViewTest : public ::testing::Test {
 protected:
  EditorViewTest() { g_editor = EditorData(); }

  static Vector3D At(float x, float y) {
    ImGuiContextForTest::MoveMouse(x, y);
    return EditorMousePosition();
  }

  ImGuiContextForTest context;
};

TEST_F(EditorViewTest, ThePicturesMiddleLiesSeventyPixelsLeftAndAtTheTop) {
  const Vector3D middle = At(960.0f - 70.0f, 540.0f - 180.0f);
  EXPECT_FLOAT_EQ(middle.x, 0.0f);
  EXPECT_FLOAT_EQ(middle.y, 0.0f);
  EXPECT_FLOAT_EQ(middle.z, 1.5f);
}

TEST_F(EditorViewTest, APixelIsOneAndAHalfUnitsAndYGoesUp) {
  const Vector3D place = At(890.0f + 100.0f, 360.0f + 10.0f);
  EXPECT_FLOAT_EQ(place.x, 150.0f);
  EXPECT_FLOAT_EQ(place.y, -15.0f);
}

TEST_F(EditorViewTest, TheOffsetOfTheLayoutMovesThePictureDown) {
  g_editor.m_viewport_offset_y = 30.0f;
  EXPECT_FLOAT_EQ(At(890.0f, 390.0f).y, 0.0f);
}

TEST_F(EditorViewTest, TheScaleIsTheSameInEveryDisplay) {
  ImGui::GetIO().DisplaySize = ImVec2(1280.0f, 720.0f);
  const Vector3D middle = At(640.0f - 70.0f, 360.0f);
  EXPECT_FLOAT_EQ(middle.x, 0.0f);
  EXPECT_FLOAT_EQ(middle.y, 0.0f);
  EXPECT_FLOAT_EQ(middle.z, 1.5f);
}

TEST_F(EditorViewTest, TheRimOfThePictureBelongsToIt) {
  const auto inside = [](float x, float y) {
    ImGuiContextForTest::MoveMouse(x, y);
    return MouseInViewport();
  };
  EXPECT_TRUE(inside(890.0f - 640.0f, 0.0f));
  EXPECT_TRUE(inside(890.0f + 640.0f, 720.0f));
  EXPECT_FALSE(inside(890.0f - 641.0f, 360.0f));
  EXPECT_FALSE(inside(890.0f + 641.0f, 360.0f));
  EXPECT_FALSE(inside(890.0f, -1.0f));
  EXPECT_FALSE(inside(890.0f, 721.0f));
}

}  // namespace
}  // namespace ZOVEngine
