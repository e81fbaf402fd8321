#define AL_ALEXT_PROTOTYPES
#include "audio/openal/openaldevice.h"

#include <AL/alext.h>
#include <fcntl.h>
#include <unistd.h>

#include <array>

#include "core/base/noncopyable.h"

namespace ZOVEngine {

namespace {

/// Discards standard error while it lives: a machine without a sound device is no fault, and the
/// system's sound libraries write a page about it.
class QuietStandardError : private NonCopyable {
 public:
  QuietStandardError() : m_saved(dup(STDERR_FILENO)) {
    const int nothing = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (m_saved >= 0 && nothing >= 0) dup2(nothing, STDERR_FILENO);
    if (nothing >= 0) close(nothing);
  }
  ~QuietStandardError() {
    if (m_saved < 0) return;
    dup2(m_saved, STDERR_FILENO);
    close(m_saved);
  }

 private:
  int m_saved;
};

MixerFailure LastFailure(ALCdevice* device) {
  const ALCenum code = alcGetError(device);
  const ALCchar* text = alcGetString(device, code);
  return {code, text == nullptr ? "" : text};
}

}  // namespace

OpenALDevice::~OpenALDevice() {
  Close();
}

std::optional<MixerFailure> OpenALDevice::Open(int max_sources, bool silent) {
  if (!silent && OpenReal(max_sources)) return std::nullopt;
  return OpenLoopback(max_sources);
}

bool OpenALDevice::OpenReal(int max_sources) {
  const QuietStandardError quiet;
  m_device = alcOpenDevice(nullptr);
  if (m_device == nullptr) return false;
  const std::array<ALCint, 5> attributes = {ALC_MONO_SOURCES, max_sources, ALC_STEREO_SOURCES, 0,
                                            0};
  if (MakeContext(attributes.data())) return true;
  Close();
  return false;
}

std::optional<MixerFailure> OpenALDevice::OpenLoopback(int max_sources) {
  m_device = alcLoopbackOpenDeviceSOFT(nullptr);
  if (m_device == nullptr) return LastFailure(nullptr);
  const std::array<ALCint, 15> attributes = {ALC_FORMAT_CHANNELS_SOFT,
                                             ALC_STEREO_SOFT,
                                             ALC_FORMAT_TYPE_SOFT,
                                             ALC_FLOAT_SOFT,
                                             ALC_FREQUENCY,
                                             kSilentRate,
                                             ALC_HRTF_SOFT,
                                             ALC_FALSE,
                                             ALC_OUTPUT_LIMITER_SOFT,
                                             ALC_FALSE,
                                             ALC_MONO_SOURCES,
                                             max_sources,
                                             ALC_STEREO_SOURCES,
                                             0,
                                             0};
  if (!MakeContext(attributes.data())) return LastFailure(m_device);
  m_step.resize(2 * std::size_t{kSilentStep});
  return std::nullopt;
}

bool OpenALDevice::MakeContext(const ALCint* attributes) {
  m_context = alcCreateContext(m_device, attributes);
  return m_context != nullptr && alcMakeContextCurrent(m_context) == ALC_TRUE;
}

void OpenALDevice::Close() {
  if (m_context != nullptr) {
    alcMakeContextCurrent(nullptr);
    alcDestroyContext(m_context);
    m_context = nullptr;
  }
  if (m_device != nullptr) alcCloseDevice(m_device);
  m_device = nullptr;
}

void OpenALDevice::Step(const SampleListener& listener) {
  if (m_step.empty()) return;
  alcRenderSamplesSOFT(m_device, m_step.data(), kSilentStep);
  if (listener) listener(m_step);
}

}  // namespace ZOVEngine
