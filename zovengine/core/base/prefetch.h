#pragma once

namespace ZOVEngine {

/// Has the processor begin to load the memory at `address`, which need not be valid, for a loop
/// that will want it a few rounds later.
inline void Prefetch(const void* address) {
  __builtin_prefetch(address);
}

}  // namespace ZOVEngine
