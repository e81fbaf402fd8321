#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/base/vector3d.h"
#include "core/contactinfo.h"

namespace ZOVEngine {

/// The closed list of message ids. Each id belongs to exactly one class below; a receiver tests the
/// id first and then casts. 13, 17, 20 to 23 and 27 are not used.
enum MessageId : std::uint32_t {
  kQuit = 0,
  kObjectOrder = 1,
  kMouseButton = 2,
  kMouseMoving = 3,
  kPlayerDirectionKey = 4,
  kKeyDown = 5,
  kKeyUp = 6,
  kMouseScroll = 7,
  kAddForceToObject = 8,
  kAddTorqueToObject = 9,
  kRotateObject = 10,
  kScaleObject = 11,
  kCollidedObjects = 12,
  kSelectedUnit = 14,
  kMute = 15,
  kVolume = 16,
  kLevelBG = 18,
  kDrawLine = 19,
  kDroppedFile = 24,
  kCurrGC = 25,
  kCurrMC = 26,
  kSetCamera = 28,
  kGameLoseFocus = 29,
};

/// An event or a query between systems and components.
///
/// A message is a value on its sender's stack and is delivered at once: when the send returns,
/// every receiver is done. Receivers may send further messages, which nest. Positions of mouse
/// messages are client pixels with z = 1. The base class itself, with id 0, asks the engine to
/// quit.
struct Message {
  explicit Message(std::uint32_t id_ = kQuit) : id(id_) {}
  Message(const Message&) = default;
  Message& operator=(const Message&) = default;
  virtual ~Message() = default;

  std::uint32_t id;
};

/// Builds `count` objects with the creator of each entry.
struct ObjectOrder : Message {
  struct Entry {
    std::uint32_t creatorType;
    std::uint32_t count;
  };
  ObjectOrder() : Message(kObjectOrder) {}
  std::vector<Entry> entries;
};

/// A mouse button is held, or was released since the last step.
struct MouseButton : Message {
  MouseButton(std::uint32_t button_, std::uint32_t pressed_, const Vector3D& position_)
      : Message(kMouseButton), button(button_), pressed(pressed_), position(position_) {}
  std::uint32_t button;   ///< 0 left, 1 right
  std::uint32_t pressed;  ///< 1 down, 0 released
  Vector3D position;      ///< (unit: client pixels)
};

/// The cursor moved over the window.
struct MouseMoving : Message {
  explicit MouseMoving(const Vector3D& position_) : Message(kMouseMoving), position(position_) {}
  Vector3D position;  ///< (unit: client pixels)
};

/// A movement key is held, or was released since the last step.
struct PlayerDirectionKey : Message {
  PlayerDirectionKey(std::uint32_t direction_, std::uint32_t pressed_)
      : Message(kPlayerDirectionKey), direction(direction_), pressed(pressed_) {}
  std::uint32_t direction;  ///< 0 up, 1 down, 2 left, 3 right
  std::uint32_t pressed;    ///< 1 down, 0 released
};

/// A key went down in the window's event queue, with the platform's auto-repeat.
struct KeyDown : Message {
  explicit KeyDown(std::uint64_t key_) : Message(kKeyDown), key(key_) {}
  std::uint64_t key;  ///< virtual-key code; for mouse buttons the mask of buttons held
};

/// A key went up in the window's event queue.
struct KeyUp : Message {
  explicit KeyUp(std::uint64_t key_) : Message(kKeyUp), key(key_) {}
  std::uint64_t key;  ///< virtual-key code; for mouse buttons the mask of buttons held
};

/// The wheel turned by one event.
struct MouseScroll : Message {
  explicit MouseScroll(std::uint32_t direction_) : Message(kMouseScroll), direction(direction_) {}
  std::uint32_t direction;  ///< 0 up, 1 down
};

/// Adds a timed force to a body; a short duration stands for an impulse.
struct AddForceToObject : Message {
  AddForceToObject(std::uint32_t objectId_, const Vector3D& direction_, float magnitude_,
                   float duration_)
      : Message(kAddForceToObject),
        objectId(objectId_),
        direction(direction_),
        magnitude(magnitude_),
        duration(duration_) {}
  std::uint32_t objectId;
  Vector3D direction;  ///< not normalised by the receiver
  float magnitude;
  float duration;  ///< (unit: seconds)
};

/// Adds a timed torque to a body.
struct AddTorqueToObject : Message {
  AddTorqueToObject(std::uint32_t objectId_, float torque_, float duration_)
      : Message(kAddTorqueToObject), objectId(objectId_), torque(torque_), duration(duration_) {}
  std::uint32_t objectId;
  float torque;
  float duration;  ///< (unit: seconds)
};

/// Turns an object by an angle.
struct RotateObject : Message {
  RotateObject(std::uint32_t objectId_, float delta_)
      : Message(kRotateObject), objectId(objectId_), delta(delta_) {}
  std::uint32_t objectId;
  float delta;  ///< (unit: degrees)
};

/// Adds to the scale of an object.
struct ScaleObject : Message {
  ScaleObject(std::uint32_t objectId_, const Vector3D& delta_)
      : Message(kScaleObject), objectId(objectId_), delta(delta_) {}
  std::uint32_t objectId;
  Vector3D delta;
};

/// All contacts of one step, in the order in which the collider system met them.
struct CollidedObjects : Message {
  CollidedObjects() : Message(kCollidedObjects) {}
  std::vector<ContactInfo> contacts;
};

/// Sent empty by the turn controller, which fills in the selected unit before the render system
/// receives the message.
struct SelectedUnit : Message {
  SelectedUnit() : Message(kSelectedUnit) {}
  std::uint32_t objectId = 0;
};

/// Mutes or unmutes a channel group.
struct Mute : Message {
  Mute(bool mute_, std::uint32_t channel_) : Message(kMute), mute(mute_), channel(channel_) {}
  bool mute;
  std::uint32_t channel;  ///< 0 effects, 1 music, 2 master
};

/// Sets the volume of a channel group.
struct Volume : Message {
  Volume(float volume_, std::uint32_t channel_)
      : Message(kVolume), volume(volume_), channel(channel_) {}
  float volume;           ///< 0 to 1
  std::uint32_t channel;  ///< 0 effects, 1 music, 2 master
};

/// Sets the texture of the background.
struct LevelBG : Message {
  explicit LevelBG(std::string textureName_)
      : Message(kLevelBG), textureName(std::move(textureName_)) {}
  std::string textureName;
};

/// Asks for a line in the next frame.
struct DrawLine : Message {
  DrawLine(const Vector3D& start_, const Vector3D& end_, float width_, float r, float g, float b,
           float a)
      : Message(kDrawLine), start(start_), end(end_), width(width_), color{r, g, b, a} {}
  Vector3D start;
  Vector3D end;
  float width;     ///< (unit: world units)
  float color[4];  ///< r, g, b up to 255, then alpha; reaches the shader unchanged
};

/// Files were dropped on the window.
struct DroppedFile : Message {
  DroppedFile() : Message(kDroppedFile) {}
  std::vector<std::string> files;
};

/// Query for the turn controller of the sender's hierarchy, which writes its object id. An answer
/// of 0 cannot be told from no answer.
struct CurrGC : Message {
  CurrGC() : Message(kCurrGC) {}
  std::uint32_t objectId = 0;
};

/// Query for the menu controller of the sender's hierarchy, which writes its object id.
struct CurrMC : Message {
  CurrMC() : Message(kCurrMC) {}
  std::uint32_t objectId = 0;
};

/// Stores a camera mode in the render system.
struct SetCamera : Message {
  explicit SetCamera(std::uint32_t mode_) : Message(kSetCamera), mode(mode_) {}
  std::uint32_t mode;
};

/// The window lost the focus.
struct GameLoseFocus : Message {
  GameLoseFocus() : Message(kGameLoseFocus) {}
  std::uint32_t lost = 1;
};

}  // namespace ZOVEngine
