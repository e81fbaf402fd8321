#include "editor/shell/stilldevice.h"

#include <gtest/gtest.h>

#include "support/fakedevice.h"

namespace ZOVEngine {
namespace {

class StillDeviceTest : public ::testing::Test {
 protected:
  StillDeviceTest() {
    still.SetViewport(0, 0, 40, 30);
    frame.commands.emplace_back();
    frame.lights.emplace_back();
    still.Execute(frame);
  }

  /// Whether a frame was drawn anew, and kept; only then it is new.
  bool IsDrawn(const Frame& next) {
    const int executed = fake.executed, before = kept;
    const bool was_new = still.IsNew();
    still.Execute(next);
    const bool drawn = fake.executed == executed + 1;
    EXPECT_EQ(kept, before + (drawn ? 1 : 0));
    EXPECT_EQ(still.IsNew(), drawn || was_new);
    EXPECT_TRUE(still.IsReady());
    still.Show();
    EXPECT_FALSE(still.IsNew());
    return drawn;
  }

  carapace_test::FakeDevice fake;
  int kept = 0, shown = 0;
  StillDevice still{&fake, {[this] { ++kept; }, [this] { ++shown; }}};
  Frame frame;
};

TEST_F(StillDeviceTest, DrawsAFrameOnceAndShowsItAgain) {
  EXPECT_EQ(fake.executed, 1);
  EXPECT_FALSE(IsDrawn(frame));
  EXPECT_FALSE(IsDrawn(frame));
  EXPECT_EQ(shown, 2);
}

TEST_F(StillDeviceTest, AnImageThatTheFrameDoesNotUseMakesNoNewFrame) {
  still.Show();
  still.UploadTexture(7, Image());
  EXPECT_TRUE(still.IsNew()) << "a panel may show it";
  EXPECT_FALSE(IsDrawn(frame));
  frame.commands[0].texture = 7;
  EXPECT_TRUE(IsDrawn(frame));
  still.UploadTexture(7, Image());
  EXPECT_FALSE(still.IsReady());
  EXPECT_TRUE(IsDrawn(frame));
}

TEST_F(StillDeviceTest, AFrameAtAnotherPlaceIsNewButNotDrawn) {
  still.Show();
  still.SetViewport(0, 0, 40, 30);
  EXPECT_FALSE(still.IsNew());
  still.SetViewport(0, 1, 40, 30);
  EXPECT_TRUE(still.IsNew());
  EXPECT_FALSE(IsDrawn(frame));
}

TEST_F(StillDeviceTest, DrawsAFrameThatDiffersInAnyPart) {
  Frame next = frame;
  next.commands[0].placement.translate.x = 1.0f;
  EXPECT_TRUE(IsDrawn(next));
  next.commands[0].colour[3] = 0.5f;
  EXPECT_TRUE(IsDrawn(next));
  next.commands[0].window.u_left = 0.25f;
  EXPECT_TRUE(IsDrawn(next));
  next.commands[0].texture = 7;
  EXPECT_TRUE(IsDrawn(next));
  next.commands.emplace_back();
  EXPECT_TRUE(IsDrawn(next));
  next.lights[0].diffuse.x = 1.0f;
  EXPECT_TRUE(IsDrawn(next));
  next.vertices.emplace_back();
  EXPECT_TRUE(IsDrawn(next));
  next.indices.push_back(1);
  EXPECT_TRUE(IsDrawn(next));
  next.glyphs.emplace_back();
  EXPECT_TRUE(IsDrawn(next));
  next.instances.emplace_back();
  EXPECT_TRUE(IsDrawn(next));
  next.view.m[3] = 1.0f;
  EXPECT_TRUE(IsDrawn(next));
  next.view_pos.z = 1.0f;
  EXPECT_TRUE(IsDrawn(next));
  EXPECT_FALSE(IsDrawn(next));
}

TEST_F(StillDeviceTest, DrawsAnewAfterWhatChangesThePicture) {
  still.UploadTexture(frame.commands[0].texture, Image());
  EXPECT_TRUE(IsDrawn(frame));
  still.UploadGlyph(0, 0, nullptr);
  EXPECT_TRUE(IsDrawn(frame));
  still.CompileProgram(Program::kDefault, "", "");
  EXPECT_TRUE(IsDrawn(frame));
  still.ResetViewport(40, 30, 1.0);
  EXPECT_TRUE(IsDrawn(frame));
  still.SetViewport(0, 0, 41, 30);
  EXPECT_TRUE(IsDrawn(frame));
  still.SetViewport(5, 6, 41, 30);
  EXPECT_FALSE(IsDrawn(frame)) << "a picture can be shown elsewhere";
}

TEST_F(StillDeviceTest, HandsEverythingOn) {
  still.Present();
  EXPECT_EQ(fake.presented, 1);
  still.FinishTexture(5);
  EXPECT_EQ(fake.finished.count(5), 1u);
  still.SetSwapInterval(true);
  EXPECT_TRUE(fake.vsync);
  EXPECT_EQ(fake.viewport.width, 40);
  still.Release();
  EXPECT_EQ(fake.released, 1);
  EXPECT_TRUE(IsDrawn(frame)) << "with its device the picture is gone";
}

}  // namespace
}  // namespace ZOVEngine
