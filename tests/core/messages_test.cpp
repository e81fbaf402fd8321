#include "core/messages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <type_traits>

namespace ZOVEngine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const Vector3D kPlace(3.0f, 4.0f, 1.0f);

static_assert(std::has_virtual_destructor_v<Message>);
static_assert(std::is_same_v<decltype(Message::id), std::uint32_t>);
static_assert(std::is_same_v<decltype(KeyDown::key), std::uint64_t>);
static_assert(std::is_same_v<decltype(KeyUp::key), std::uint64_t>);

TEST(Messages, TheIdsAreAClosedList) {
  EXPECT_THAT(
      (std::vector<int>{
          kQuit,         kObjectOrder, kMouseButton,     kMouseMoving,      kPlayerDirectionKey,
          kKeyDown,      kKeyUp,       kMouseScroll,     kAddForceToObject, kAddTorqueToObject,
          kRotateObject, kScaleObject, kCollidedObjects, kSelectedUnit,     kMute,
          kVolume,       kLevelBG,     kDrawLine,        kDroppedFile,      kCurrGC,
          kCurrMC,       kSetCamera,   kGameLoseFocus}),
      ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 14, 15, 16, 18, 19, 24, 25, 26, 28,
                  29));
}

TEST(Messages, TheBaseClassAsksToQuit) {
  EXPECT_EQ(Message().id, 0u);
}

TEST(Messages, ObjectOrderIs1AndStartsEmpty) {
  ObjectOrder message;
  EXPECT_EQ(message.id, 1u);
  EXPECT_THAT(message.entries, IsEmpty());
  message.entries.push_back({0, 3});
  EXPECT_EQ(message.entries[0].creatorType, 0u);
  EXPECT_EQ(message.entries[0].count, 3u);
}

TEST(Messages, MouseButtonIs2WithButtonPressedAndPosition) {
  const MouseButton message(1, 0, kPlace);
  EXPECT_EQ(message.id, 2u);
  EXPECT_EQ(message.button, 1u);
  EXPECT_EQ(message.pressed, 0u);
  EXPECT_EQ(message.position, kPlace);
}

TEST(Messages, MouseMovingIs3WithPosition) {
  const MouseMoving message(kPlace);
  EXPECT_EQ(message.id, 3u);
  EXPECT_EQ(message.position, kPlace);
}

TEST(Messages, PlayerDirectionKeyIs4WithDirectionAndPressed) {
  const PlayerDirectionKey message(3, 1);
  EXPECT_EQ(message.id, 4u);
  EXPECT_EQ(message.direction, 3u);
  EXPECT_EQ(message.pressed, 1u);
}

TEST(Messages, KeysAre5And6WithA64BitKey) {
  const KeyDown down(0x1'0000'0074u);
  EXPECT_EQ(down.id, 5u);
  EXPECT_EQ(down.key, 0x1'0000'0074u);
  const KeyUp up(117);
  EXPECT_EQ(up.id, 6u);
  EXPECT_EQ(up.key, 117u);
}

TEST(Messages, MouseScrollIs7WithDirection) {
  const MouseScroll message(1);
  EXPECT_EQ(message.id, 7u);
  EXPECT_EQ(message.direction, 1u);
}

TEST(Messages, AddForceToObjectIs8WithAllItsFields) {
  const AddForceToObject message(7, kPlace, 2.0f, 0.5f);
  EXPECT_EQ(message.id, 8u);
  EXPECT_EQ(message.objectId, 7u);
  EXPECT_EQ(message.direction, kPlace);
  EXPECT_EQ(message.magnitude, 2.0f);
  EXPECT_EQ(message.duration, 0.5f);
}

TEST(Messages, AddTorqueToObjectIs9WithTorqueAndDuration) {
  const AddTorqueToObject message(7, 2.0f, 0.5f);
  EXPECT_EQ(message.id, 9u);
  EXPECT_EQ(message.objectId, 7u);
  EXPECT_EQ(message.torque, 2.0f);
  EXPECT_EQ(message.duration, 0.5f);
}

TEST(Messages, RotateObjectIs10WithDelta) {
  const RotateObject message(7, 45.0f);
  EXPECT_EQ(message.id, 10u);
  EXPECT_EQ(message.objectId, 7u);
  EXPECT_EQ(message.delta, 45.0f);
}

TEST(Messages, ScaleObjectIs11WithAVectorDelta) {
  const ScaleObject message(7, kPlace);
  EXPECT_EQ(message.id, 11u);
  EXPECT_EQ(message.objectId, 7u);
  EXPECT_EQ(message.delta, kPlace);
}

TEST(Messages, CollidedObjectsIs12AndStartsEmpty) {
  const CollidedObjects message;
  EXPECT_EQ(message.id, 12u);
  EXPECT_THAT(message.contacts, IsEmpty());
}

TEST(Messages, SelectedUnitIs14AndStartsAtObject0) {
  const SelectedUnit message;
  EXPECT_EQ(message.id, 14u);
  EXPECT_EQ(message.objectId, 0u);
}

TEST(Messages, MuteAndVolumeAre15And16WithAChannel) {
  const Mute mute(true, 2);
  EXPECT_EQ(mute.id, 15u);
  EXPECT_TRUE(mute.mute);
  EXPECT_EQ(mute.channel, 2u);
  const Volume volume(0.25f, 1);
  EXPECT_EQ(volume.id, 16u);
  EXPECT_EQ(volume.volume, 0.25f);
  EXPECT_EQ(volume.channel, 1u);
}

TEST(Messages, LevelBGIs18WithATextureName) {
  const LevelBG message("Background_Space");
  EXPECT_EQ(message.id, 18u);
  EXPECT_EQ(message.textureName, "Background_Space");
}

TEST(Messages, DrawLineIs19WithWidthAndFourColours) {
  const DrawLine message(kPlace, Vector3D(), 1.5f, 255.0f, 2.0f, 3.0f, 0.5f);
  EXPECT_EQ(message.id, 19u);
  EXPECT_EQ(message.start, kPlace);
  EXPECT_EQ(message.end, Vector3D());
  EXPECT_EQ(message.width, 1.5f);
  EXPECT_THAT(message.color, ElementsAre(255.0f, 2.0f, 3.0f, 0.5f));
}

TEST(Messages, DroppedFileIs24AndStartsEmpty) {
  const DroppedFile message;
  EXPECT_EQ(message.id, 24u);
  EXPECT_THAT(message.files, IsEmpty());
}

TEST(Messages, TheControllerQueriesAre25And26AndStartAtObject0) {
  const CurrGC game;
  EXPECT_EQ(game.id, 25u);
  EXPECT_EQ(game.objectId, 0u);
  const CurrMC menu;
  EXPECT_EQ(menu.id, 26u);
  EXPECT_EQ(menu.objectId, 0u);
}

TEST(Messages, SetCameraIs28WithAMode) {
  const SetCamera message(2);
  EXPECT_EQ(message.id, 28u);
  EXPECT_EQ(message.mode, 2u);
}

TEST(Messages, GameLoseFocusIs29AndAlwaysCarries1) {
  const GameLoseFocus message;
  EXPECT_EQ(message.id, 29u);
  EXPECT_EQ(message.lost, 1u);
}

}  // namespace
}  // namespace ZOVEngine
