#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/messages.h"
#include "jsonunserializer.h"
#include "objects/gameobjfactory.h"
#include "objects/logiccomponent.h"

namespace carapace_test {

/// What the probes of a test saw, in order: "label verb".
std::vector<std::string>& ProbeLog();

/// A logic component that writes down each of its calls, with a reaction that the test chooses.
///
/// Clones share the reaction. Its record has the one key "label". A test gives it a table by
/// RegisterProbes; Nth only tells the types apart.
class ProbeBase : public ZOVEngine::LogicComponent {
  RTTR_ENABLE(ZOVEngine::LogicComponent)

 public:
  using LogicComponent::LogicComponent;

  void Unserialize(const ZOVEngine::Value& value) override {
    ZOVEngine::ReadValue(value, "label", &label);
  }
  void Serialize(ZOVEngine::Writer& writer) override {
    ZOVEngine::WriteValue(writer, "label", label);
  }
  void Init() override {
    m_init = true;
    Log("Init");
  }
  void Update(float) override {
    if (!m_init) Init();
    Log("Update");
  }
  void Destroy() override { Log("Destroy"); }
  void OnMessage(ZOVEngine::Message* message) override {
    Log("OnMessage " + std::to_string(message->id));
    if (on_message) on_message(message);
  }
  void OnCollisionEnter(ZOVEngine::ContactInfo*) override { Log("OnCollisionEnter"); }
  void OnCollisionStay(ZOVEngine::ContactInfo*) override { Log("OnCollisionStay"); }
  void OnCollisionExit(ZOVEngine::ContactInfo*) override { Log("OnCollisionExit"); }

  std::string label = "probe";
  std::function<void(ZOVEngine::Message*)> on_message;

 private:
  void Log(const std::string& verb) const { ProbeLog().push_back(label + " " + verb); }
};

class ProbeA final : public ProbeBase {
  RTTR_ENABLE(ProbeBase)

 public:
  using ProbeBase::ProbeBase;
};

class ProbeB final : public ProbeBase {
  RTTR_ENABLE(ProbeBase)

 public:
  using ProbeBase::ProbeBase;
};

/// A component without behaviour that counts how many of its kind are alive.
class CountedData final : public ZOVEngine::GameComponentBase {
  RTTR_ENABLE(ZOVEngine::GameComponentBase)

 public:
  explicit CountedData(ZOVEngine::GameObj* owner) : GameComponentBase(owner) { ++alive; }
  CountedData(const CountedData& other) : GameComponentBase(other), number(other.number) {
    ++alive;
  }
  CountedData& operator=(const CountedData&) = delete;
  ~CountedData() override { --alive; }

  void Unserialize(const ZOVEngine::Value& value) override {
    ZOVEngine::ReadValue(value, "number", &number);
  }
  void Serialize(ZOVEngine::Writer& writer) override {
    ZOVEngine::WriteValue(writer, "number", number);
  }

  int number = 0;
  inline static int alive = 0;
};

/// Gives ProbeA, ProbeB and CountedData a table in the running engine's factory, and empties the
/// log.
void RegisterProbes();

}  // namespace carapace_test
