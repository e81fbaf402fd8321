#define AL_ALEXT_PROTOTYPES
#include "audio/openal/openaldevice.h"

#include <AL/alext.h>
#include <dlfcn.h>

#include <array>
#include <cstdlib>
#include <thread>

#include "core/base/noncopyable.h"

namespace ZOVEngine {

namespace {

/// Keeps ALSA quiet while it lives: a machine without a sound device is no fault, and ALSA writes a
/// page about it. Standard error itself stays as it is, since other threads may write to it.
class QuietAlsa : private NonCopyable {
 public:
  QuietAlsa() { SetHandler(Ignore); }
  ~QuietAlsa() { SetHandler(nullptr); }  // its own again

 private:
  using Handler = void (*)(const char* file, int line, const char* function, int code,
                           const char* format, ...);

  static void Ignore(const char*, int, const char*, int, const char*, ...) {}

  /// Does nothing on a system without ALSA. The library stays loaded, as OpenAL leaves it.
  static void SetHandler(Handler handler) {
    void* alsa = dlopen("libasound.so.2", RTLD_NOW | RTLD_LOCAL);
    if (alsa == nullptr) return;
    using SetErrorHandler = int (*)(Handler);
    const auto set = reinterpret_cast<SetErrorHandler>(dlsym(alsa, "snd_lib_error_set_handler"));
    if (set != nullptr) set(handler);
  }
};

/// OpenAL reads its environment when it is called for the first time. What is set stays.
void QuietOpenAL() {
  constexpr int kKeepWhatIsSet = 0;
  setenv("ALSOFT_LOGLEVEL", "0", kKeepWhatIsSet);
}

/// The thread that opens the device. A process that ends early, for instance without a display,
/// joins it here, before OpenAL is unloaded under it.
std::jthread& OpeningThread() {
  static std::jthread thread;
  return thread;
}

MixerFailure LastFailure(ALCdevice* device) {
  const ALCenum code = alcGetError(device);
  const ALCchar* text = alcGetString(device, code);
  return {code, text == nullptr ? "" : text};
}

}  // namespace

OpenALDevice::~OpenALDevice() {
  FinishOpen();
  Close();
}

void OpenALDevice::BeginOpen(int max_sources, bool silent) {
  QuietOpenAL();
  OpeningThread() =
      std::jthread([this, max_sources, silent] { m_failure = Open(max_sources, silent); });
}

std::optional<MixerFailure> OpenALDevice::FinishOpen() {
  if (OpeningThread().joinable()) OpeningThread().join();
  return m_failure;
}

std::optional<MixerFailure> OpenALDevice::Open(int max_sources, bool silent) {
  if (!silent && OpenReal(max_sources)) return std::nullopt;
  return OpenLoopback(max_sources);
}

bool OpenALDevice::OpenReal(int max_sources) {
  const QuietAlsa quiet;
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
