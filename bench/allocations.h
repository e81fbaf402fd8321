#pragma once

#include <cstddef>

namespace carapace_bench {

/// How often operator new was called in this program so far. Counts in programs that are linked
/// with allocations.cpp, which replaces it.
std::size_t AllocationCount();

}  // namespace carapace_bench
