#include "platform/nativeheadless.h"

#include <gtest/gtest.h>

namespace ZOVEngine {
namespace {

TEST(HeadlessNative, TheWindowOpensWithoutADesktopAndIsNeverSeen) {
  HeadlessNative native;
  EXPECT_EQ(native.OpenWindow({"class", "title", {1280, 720}}), "");
  EXPECT_EQ(native.CreateContext(), "");
  native.ShowWindow();
  EXPECT_TRUE(native.IsMinimised());
  EXPECT_EQ(native.WindowHandle(), nullptr);
  EXPECT_EQ(native.ContextHandle(), nullptr);
}

TEST(HeadlessNative, NobodyIsAtItsKeys) {
  HeadlessNative native;
  NativeEvent event;
  EXPECT_FALSE(native.PumpEvent(&event));
  EXPECT_FALSE(native.HasFocus());
  for (std::uint32_t key = 0; key < 256; ++key) EXPECT_FALSE(native.IsKeyDown(key)) << key;
  EXPECT_EQ(native.CursorPosition().x, 0);
  EXPECT_EQ(native.CursorPosition().y, 0);
}

TEST(HeadlessNative, AMessageBoxIsItsTextOnStandardError) {
  HeadlessNative native;
  ::testing::internal::CaptureStderr();
  native.MessageBox("Title", "Text");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Title: Text\n");
}

}  // namespace
}  // namespace ZOVEngine
