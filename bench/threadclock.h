#pragma once

#include <time.h>

namespace carapace_bench {

/// The processor time that the calling thread has taken so far (unit: microseconds): what other
/// programs take does not count.
inline double ThreadMicroseconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) * 1e-3;
}

}  // namespace carapace_bench
