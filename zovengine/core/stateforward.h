#pragma once

#include "core/messages.h"
#include "objects/tablewalk.h"

namespace ZOVEngine {

/// Hands `message` to OnMessage of every T, in table order. Ends when a receiver clears all
/// objects.
template <class T>
void ForwardTo(Message* message) {
  TableWalk<T>(FetchTable<T>()).ForEach([message](T* component) { component->OnMessage(message); });
}

}  // namespace ZOVEngine
