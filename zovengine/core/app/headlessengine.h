#pragma once

#include "audio/silentmixer.h"
#include "core/base/noncopyable.h"
#include "platform/nativeheadless.h"

namespace ZOVEngine {

/// The whole engine without window, picture and sound, from construction to destruction.
///
/// Sets the three seams and g_engine, which must be null before, and starts the engine in its first
/// screen; its steps are the caller's (StepEngine). The data are those of the working directory.
class HeadlessEngine : private NonCopyable {
 public:
  HeadlessEngine();
  ~HeadlessEngine();

 private:
  HeadlessNative m_native;
  SilentMixer m_mixer;
};

}  // namespace ZOVEngine
