#pragma once

#include <AL/al.h>
#include <AL/alc.h>

#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "audio/mixer.h"
#include "core/base/noncopyable.h"

namespace ZOVEngine {

/// Receives the samples that a silent device renders: a step of stereo frames, left and right in
/// turn, 1 at full scale.
using SampleListener = std::function<void(std::span<const float> samples)>;

/// Frames a second of a silent device.
inline constexpr int kSilentRate = 44100;
/// Frames that a silent device renders in a step of 1/60 second.
inline constexpr int kSilentStep = kSilentRate / 60;

/// The OpenAL device and its context, which is current from FinishOpen to the end of this object.
///
/// Where there is no sound device, OpenAL's loopback device stands in, whose samples are rendered
/// in each step and dropped, so that sounds last as long as they would be heard. One at a time.
/// Opening takes tens of milliseconds, so a thread does it; nothing else runs on that thread.
class OpenALDevice : private NonCopyable {
 public:
  OpenALDevice() = default;
  /// Waits for an opening that is going on.
  ~OpenALDevice();

  /// Begins to open the system's default device or, failing that or when `silent`, the loopback
  /// one. A process that ends meanwhile waits for the opening.
  void BeginOpen(int max_sources, bool silent);
  /// Waits until the device is open. Nothing else may be called between the two. Without a
  /// BeginOpen there is nothing to wait for.
  std::optional<MixerFailure> FinishOpen();
  /// Lets a step pass on the loopback device and hands its samples to `listener`, if there is one.
  /// A real device has its own time.
  void Step(const SampleListener& listener);

 private:
  std::optional<MixerFailure> Open(int max_sources, bool silent);
  bool OpenReal(int max_sources);
  std::optional<MixerFailure> OpenLoopback(int max_sources);
  bool MakeContext(const ALCint* attributes);
  void Close();

  ALCdevice* m_device = nullptr;
  ALCcontext* m_context = nullptr;
  std::vector<float> m_step;              ///< room for a step's samples; empty on a real device
  std::optional<MixerFailure> m_failure;  ///< of the opening
};

}  // namespace ZOVEngine
