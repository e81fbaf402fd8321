#include "core/engine.h"

#include "core/base/profile.h"

namespace ZOVEngine {

Engine* g_engine = nullptr;

void Engine::Broadcast(Message* message) {
  if (message->id == kQuit) {
    running = false;
    return;
  }
  for (System* system : systems) system->SendMessage(message);
}

void RunStep(Engine& engine, const std::function<void()>& head_of_step) {
  head_of_step();
  engine.step_paused = engine.paused;
  for (System* system : engine.systems) {
    if (engine.step_paused) {
      system->PausedUpdate(kStep);
    } else {
      system->Update(kStep);
    }
  }
}

namespace {

constexpr float kNanosecondsPerSecond = 1e9f;

void RecordStepRate(std::int64_t nanoseconds) {
  RecordProfile("FPS", 1.0f / (static_cast<float>(nanoseconds) / kNanosecondsPerSecond), false);
}

/// Runs steps until the accumulator holds no more than one step. `running` is not looked at here,
/// so a quit lets the rest of the burst run.
void RunBurst(Engine& engine, const Clock& clock, const std::function<void()>& head_of_step,
              float* accumulator) {
  do {
    const std::int64_t step_start = clock();
    RunStep(engine, head_of_step);
    *accumulator += -kStep;
    RecordStepRate(clock() - step_start);
  } while (*accumulator > kStep);
}

/// How long it takes until the accumulator is above one step (unit: nanoseconds).
std::int64_t TimeToNextStep(float accumulator) {
  return static_cast<std::int64_t>((kStep - accumulator) * kNanosecondsPerSecond) + 1;
}

}  // namespace

void MainLoop(Engine& engine, const Clock& clock, const Rest& rest,
              const std::function<void()>& head_of_step) {
  float accumulator = 0.0f;
  std::int64_t last = clock();
  while (engine.running) {
    const std::int64_t now = clock();
    accumulator += static_cast<float>(now - last) / kNanosecondsPerSecond;
    last = now;
    if (accumulator > kCatchUpLimit) {
      accumulator = kCatchUpLimit;
    } else if (accumulator <= kStep) {
      rest(TimeToNextStep(accumulator));
      continue;
    }
    RunBurst(engine, clock, head_of_step, &accumulator);
  }
}

}  // namespace ZOVEngine
