#include "core/app/logicsystem.h"

#include <filesystem>

#include "core/app/builtintables.h"
#include "core/app/defaultstate.h"
#include "core/app/leveleditorstate.h"
#include "core/app/logictables.h"
#include "core/app/mainmenustate.h"
#include "core/app/splashstate.h"
#include "core/base/profile.h"
#include "objects/reflection.h"
#include "objects/tablewalk.h"
#include "platform/windowsystem.h"

ZOV_REGISTRATION(LogicSystem) {
  using ZOVEngine::LogicSystem;
  ZOVEngine::SystemRegistration<LogicSystem>("LogicSystem");
}

namespace ZOVEngine {

LogicSystem* g_logic_system = nullptr;

namespace {

constexpr const char* kArchetypeDirectory = "Resources/Archetypes/GameObjects";

/// Registers the listed tables, but for those that the factory registers itself.
template <class... T>
void RegisterTables(GameObjFactory& factory, TypeList<T...>) {
  const auto register_own = [&]<class Class>(TypeList<Class> own) {
    if constexpr (!BuiltInTables::Contains<Class>()) factory.RegisterComponents(own);
  };
  (register_own(TypeList<T>()), ...);
}

constexpr auto Updating(float dt) {
  return [dt](auto* component) { component->Update(dt); };
}

}  // namespace

struct LogicSystem::Walks : LogicTables::Apply<TableWalks> {};

LogicSystem::LogicSystem() {
  g_logic_system = this;
  g_state_machine = &m_machine;
  RegisterTables(*g_game_obj_factory, LogicTables());
}

LogicSystem::~LogicSystem() {
  g_state_machine = nullptr;
  g_logic_system = nullptr;
}

void LogicSystem::Init() {
  m_walks = std::make_unique<Walks>();
  LoadArchetypes(kArchetypeDirectory);
  auto& states = m_machine.m_states;
  states[kSplashState] = std::make_unique<SplashState>();
  states[kDefaultState] = std::make_unique<DefaultState>();
  states[kLevelEditorState] = std::make_unique<LevelEditorState>();
  states[kMainMenuState] = std::make_unique<MainMenuState>();
  if (g_window_system != nullptr && g_window_system->m_imguiActive) {
    g_start_state = kLevelEditorState;
  }
  m_machine.m_current = g_start_state;
  m_machine.m_next = g_start_state;
  m_machine.At(g_start_state).Enter();
  m_machine.m_levelPath.clear();
}

void LogicSystem::LoadArchetypes(const std::string& directory) {
  std::error_code failed;
  const std::filesystem::directory_iterator files(directory, failed);
  ZOV_ASSERT(!failed, directory + "file not found");
  for (const std::filesystem::directory_entry& entry : files) {
    const std::string file = entry.path().filename().string();
    const std::size_t dot = file.find('.');
    if (dot == std::string::npos || file.substr(dot + 1) != "json") continue;
    g_game_obj_factory->LoadArchetype(file.substr(0, dot), entry.path().string());
  }
}

void LogicSystem::Update(float dt) {
  const std::int64_t start = NowNanoseconds();
  m_machine.Step(dt);
  m_walks->ForEach(Updating(dt));
  RecordElapsed("Logic", start);
}

void LogicSystem::PausedUpdate(float dt) {
  const std::int64_t start = NowNanoseconds();
  m_machine.Step(dt);
  m_walks->ForEach(TypeList<GameController>(), [](GameController* controller) {
    if (!controller->m_init) controller->Init();
  });
  m_walks->ForEach(PausedLogicTables(), Updating(dt));
  RecordElapsed("Logic", start);
}

void LogicSystem::SendMessage(Message* message) {
  const auto state = m_machine.m_states.find(m_machine.m_current);
  if (state != m_machine.m_states.end()) state->second->SendMessage(message);
}

}  // namespace ZOVEngine
