#include "allocations.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t g_allocations = 0;

}  // namespace

namespace carapace_bench {

std::size_t AllocationCount() {
  return g_allocations;
}

}  // namespace carapace_bench

void* operator new(std::size_t bytes) {
  ++g_allocations;
  if (void* memory = std::malloc(bytes)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
