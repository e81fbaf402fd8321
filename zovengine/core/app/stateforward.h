#pragma once

#include <tuple>

#include "core/messages.h"
#include "objects/tablewalk.h"

namespace ZOVEngine {

/// Hands broadcasts on to the components that a screen cares about.
///
/// A state owns one; it is made once the tables are registered. Receivers are called type by type
/// in the order of the list, and in table order within a type. When a receiver clears all objects,
/// the tables that follow are empty.
template <class... T>
class Forwarder {
 public:
  Forwarder() : m_walks(TableWalk<T>(FetchTable<T>())...) {}

  /// Calls OnMessage of every component of the list.
  void Send(Message* message) {
    (std::get<TableWalk<T>>(m_walks).ForEach(
         [message](T* component) { component->OnMessage(message); }),
     ...);
  }

 private:
  std::tuple<TableWalk<T>...> m_walks;
};

}  // namespace ZOVEngine
