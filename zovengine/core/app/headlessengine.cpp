#include "core/app/headlessengine.h"

#include "core/app/winmain.h"
#include "platform/windowsystem.h"
#include "render/gldevice.h"

namespace ZOVEngine {

HeadlessEngine::HeadlessEngine() {
  g_native = &m_native;
  g_gl_device = nullptr;
  g_mixer = &m_mixer;
  g_window_state = WindowState();
  CreateEngine();
  InitSystems();
}

HeadlessEngine::~HeadlessEngine() {
  DestroyEngine();
  g_mixer = nullptr;
  g_native = nullptr;
}

}  // namespace ZOVEngine
