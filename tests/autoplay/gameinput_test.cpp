#include "autoplay/gameinput.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/inputsystem.h"
#include "platform/platformfixture.h"

namespace ZOVEngine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Kind = GameInput::Kind;

class GameInputTest : public PlatformTest {
 protected:
  void SetUp() override {
    PlatformTest::SetUp();
    Start();
  }
};

TEST_F(GameInputTest, EachKindIsTheMessageOfTheInputSystem) {
  Apply({Kind::kDirection, 2, 0});
  Apply({Kind::kKey, 'F', 0});
  Apply({Kind::kClick, 0, 0});
  EXPECT_THAT(recorder.heard,
              ElementsAre("PlayerDirectionKey 2 1", "KeyUp 70", "MouseButton 0 1 (0, 0, 1)"));
}

TEST_F(GameInputTest, ACursorIsThatOfAWindowOf1280By720WhateverTheWindow) {
  native.cursor = {740, 460};
  const Vector3D position = GetCursorScreenPosition();
  native.cursor = {0, 0};
  SetDisplayMode(false, 555, 333);
  Apply({Kind::kCursor, 740, 460});
  EXPECT_EQ(GetCursorScreenPosition(), position);
  EXPECT_EQ(GetCursorScreenPosition(), PlayedCursor(740, 460));
  EXPECT_THAT(recorder.heard, IsEmpty());
}

TEST_F(GameInputTest, ReleasedInputIsTheUsers) {
  native.cursor = {640, 360};
  Apply({Kind::kCursor, 1, 1});
  ReleaseInput();
  EXPECT_EQ(GetCursorScreenPosition(), Vector3D(0.0f, 0.0f, 1.0f));
}

TEST(ReleaseInput, WithoutAnEngineDoesNothing) {
  ASSERT_EQ(g_input_system, nullptr);
  ReleaseInput();
}

}  // namespace
}  // namespace ZOVEngine
