#include "core/app/winmain.h"

#include <cstddef>
#include <iostream>
#include <memory>
#include <vector>

#include "audio/audiosystem.h"
#include "audio/mixer.h"
#include "core/app/loadscreen.h"
#include "core/app/logicsystem.h"
#include "core/statemachine.h"
#include "editor/shell/editorsystem.h"
#include "objects/gameobjfactory.h"
#include "physics/collidersystem.h"
#include "physicssystem.h"
#include "platform/inputsystem.h"
#include "platform/native.h"
#include "platform/windowsystem.h"
#include "render/gldevice.h"
#include "render/rendersystem.h"

namespace ZOVEngine {
namespace {

void ListCollisionTree(std::vector<TreeRectangle>* out) {
  g_collider_system->Tree().ForEachNode([out](const Vector3D& min, const Vector3D& max) {
    out->push_back({min, max});
  });
}

constexpr std::size_t kGameSystems = 8;

/// Tools stand behind the systems of the game and use what those own, such as the context of the
/// window.
void DestroyTools() {
  while (g_engine->systems.size() > kGameSystems) {
    delete g_engine->systems.back();
    g_engine->systems.pop_back();
  }
}

}  // namespace

void CreateEngine() {
  g_engine = new Engine;
  // One by one: a constructor may rely on the systems before it.
  g_engine->systems.push_back(new GameObjFactory);
  g_engine->systems.push_back(new WindowSystem);
  g_engine->systems.push_back(new InputSystem);
  g_engine->systems.push_back(new LogicSystem);
  g_engine->systems.push_back(new PhysicsSystem);
  g_engine->systems.push_back(new ColliderSystem);
  g_engine->systems.push_back(new RenderSystem);
  g_engine->systems.push_back(new AudioSystem);
  g_render_system->m_tree_lister = ListCollisionTree;
}

void InitSystems() {
  g_render_system->BeginTextures();
  for (System* system : g_engine->systems) system->Init();
}

void DestroyEngine() {
  DestroyTools();
  for (System* system : g_engine->systems) delete system;
  delete g_engine;
  g_engine = nullptr;
}

void BeginStep() {
  g_physics_system->UpdateWorldTransforms();
}

void RestStep(std::int64_t nanoseconds) {
  g_render_system->Rest(nanoseconds);
}

int WinMain() {
  // Each line at once: the lines before an end by an exception or a signal must not be lost.
  std::cout << std::unitbuf;
  const std::unique_ptr<Native> native = MakeSdlNative();
  const std::unique_ptr<GLDevice> device = MakeGLDevice(
      [] { g_native->SwapBuffers(); }, [](int interval) { g_native->SetSwapInterval(interval); });
  std::unique_ptr<Mixer> mixer = MakeOpenALMixer();
  g_native = native.get();
  g_gl_device = device.get();
  g_mixer = mixer.get();
  CreateEngine();
  InitSystems();
  if (g_window_system->m_imguiActive) g_engine->systems.push_back(new EditorSystem);
  // A level keeps the background of the screen before it; at the start there is none.
  if (g_start_state == kDefaultState) ShowBackground(g_current_level_path);
  MainLoop(*g_engine, NowNanoseconds, RestStep, BeginStep);
  DestroyEngine();
  g_mixer = nullptr;
  mixer.reset();
  g_gl_device = nullptr;
  g_native = nullptr;
  std::cout << "Program Ending" << std::endl;
  return 0;
}

}  // namespace ZOVEngine
