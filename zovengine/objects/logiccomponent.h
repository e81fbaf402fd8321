#pragma once

#include "objects/gamecomponentbase.h"

namespace ZOVEngine {

struct Message;
struct ContactInfo;

/// A component with behaviour of its own, stepped by the logic system.
///
/// No system calls Init: the first lines of every Update do it when `m_init` is false, and Init
/// begins by setting `m_init`. The logic system does not look at `m_active`; each Update decides
/// for itself how an inactive component behaves.
class LogicComponent : public GameComponentBase {
  RTTR_ENABLE(GameComponentBase)

 public:
  using GameComponentBase::GameComponentBase;

  virtual void Init() = 0;
  /// One step (unit: seconds).
  virtual void Update(float dt) = 0;
  /// Kept as part of the contract; no system calls it. Destroying an object runs its destructors
  /// only.
  virtual void Destroy() = 0;
  virtual void OnMessage(Message* message) = 0;
  /// A contact began, lasts, or ended. The contact is valid during the call.
  virtual void OnCollisionEnter(ContactInfo*) {}
  virtual void OnCollisionStay(ContactInfo*) {}
  virtual void OnCollisionExit(ContactInfo*) {}

  bool m_init = false;
};

/// Base of the logic components that hear no messages.
class QuietComponent : public LogicComponent {
  RTTR_ENABLE(LogicComponent)

 public:
  using LogicComponent::LogicComponent;

  void Destroy() override {}
  void OnMessage(Message*) override {}
};

/// A logic component with every slot empty: it takes its place in the order of tables and in files.
class EmptyLogicComponent : public QuietComponent {
  RTTR_ENABLE(QuietComponent)

 public:
  using QuietComponent::QuietComponent;

  void Unserialize(const Value&) override {}
  void Serialize(Writer&) override {}
  void Init() override { m_init = true; }
  void Update(float) override {}
};

}  // namespace ZOVEngine
