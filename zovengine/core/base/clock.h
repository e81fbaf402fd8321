#pragma once

#include <cstdint>
#include <functional>

namespace ZOVEngine {

/// A monotonic time source: each call returns the time since some fixed start (unit: nanoseconds).
/// The main loop takes one as an argument, so that a test can hand it any course of time.
using Clock = std::function<std::int64_t()>;

/// Lets the thread sleep for about this long, never much shorter (unit: nanoseconds).
using Rest = std::function<void(std::int64_t nanoseconds)>;

/// Sleeps by the machine's timer; returns at once if `nanoseconds` is not above 0.
void SleepNanoseconds(std::int64_t nanoseconds);

/// The machine's monotonic high-resolution counter (unit: nanoseconds).
std::int64_t NowNanoseconds();

/// Converts a reading of a counter to nanoseconds without overflow: whole seconds and the remainder
/// are scaled apart. `frequency` is in counts per second and must be above 0.
std::int64_t CounterToNanoseconds(std::int64_t counter, std::int64_t frequency);

}  // namespace ZOVEngine
