#include "render/frame.h"

#include <gtest/gtest.h>

namespace carapace_test {
namespace {

using namespace ZOVEngine;

TEST(FrameTest, ClearedItsListsAreEmptyAndKeepTheirMemory) {
  Frame frame;
  frame.lights.resize(3);
  frame.commands.resize(30);
  frame.vertices.resize(4);
  frame.indices.resize(6);
  frame.glyphs.resize(5);
  frame.instances.resize(7);
  const DrawCommand* commands = frame.commands.data();
  frame.Clear();
  EXPECT_TRUE(frame.lights.empty());
  EXPECT_TRUE(frame.commands.empty());
  EXPECT_TRUE(frame.vertices.empty());
  EXPECT_TRUE(frame.indices.empty());
  EXPECT_TRUE(frame.glyphs.empty());
  EXPECT_TRUE(frame.instances.empty());
  frame.commands.resize(30);
  EXPECT_EQ(frame.commands.data(), commands);
}

TEST(FrameTest, ClearingKeepsTheView) {
  Frame frame;
  frame.view_pos = Vector3D(1.0f, 2.0f, 3.0f);
  frame.view = Matrix4x4::Translation(4.0f, 5.0f);
  frame.Clear();
  EXPECT_EQ(frame.view_pos, Vector3D(1.0f, 2.0f, 3.0f));
  EXPECT_EQ(frame.view.m[3], 4.0f);
}

TEST(FrameTest, ANewCommandIsAWholeWhiteQuadAtTheOrigin) {
  const DrawCommand command;
  EXPECT_EQ(command.kind, DrawCommand::Kind::kQuad);
  EXPECT_EQ(command.placement.scale, Vector3D(1.0f, 1.0f, 1.0f));
  EXPECT_EQ(command.window.u_right, 1.0f);
  EXPECT_EQ(command.window.v_bottom, 1.0f);
  for (const float channel : command.colour) EXPECT_EQ(channel, 1.0f);
}

}  // namespace
}  // namespace carapace_test
