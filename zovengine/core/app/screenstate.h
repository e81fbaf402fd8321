#pragma once

#include "core/statemachine.h"
#include "objects/tablewalk.h"

namespace ZOVEngine {

/// A state whose work is all in its Enter, and that hands broadcasts on to the components that its
/// screen cares about.
///
/// Receivers are called class by class in the order of the list, inactive ones too, and in table
/// order within a class. A state is made once the tables are registered. When a receiver clears all
/// objects, it is the last one.
template <class... Receiver>
class ScreenState : public State {
 public:
  void Update(float) override {}
  void Exit() override {}
  void SendMessage(Message* message) override {
    m_receivers.ForEach([message](auto* component) { component->OnMessage(message); });
  }

 private:
  TableWalks<Receiver...> m_receivers;
};

}  // namespace ZOVEngine
