#pragma once

#include <rttr/rttr_enable.h>

#include "core/base/noncopyable.h"

namespace ZOVEngine {

struct Message;

/// One service of the engine, held by Engine in a fixed order.
///
/// Every system gets exactly one of Update and PausedUpdate in each fixed step, in the engine's
/// order, and every broadcast through SendMessage. Init runs once, after all systems were
/// constructed, and may use any system constructed before or after it, but must not broadcast.
/// Times are in seconds.
class System : private NonCopyable {
  RTTR_ENABLE()

 public:
  System() = default;

  /// One step while the engine is not paused; `dt` is always the fixed step (unit: seconds).
  virtual void Update(float dt) = 0;
  /// One step while the engine is paused; does nothing unless a system says otherwise.
  virtual void PausedUpdate(float dt);
  /// One-time start, called in the engine's order.
  virtual void Init() = 0;
  /// Delivers a broadcast. The message lives on the sender's stack.
  virtual void SendMessage(Message* message) = 0;
  virtual ~System() = default;
};

/// A system that does the same work paused and unpaused.
class UnpausedSystem : public System {
  RTTR_ENABLE(System)

 public:
  /// Forwards to Update by a virtual call.
  void PausedUpdate(float dt) override { Update(dt); }
};

}  // namespace ZOVEngine
