#include "autoplay/replay.h"

#include <fstream>

#include "autoplay/levelrun.h"
#include "autoplay/statehash.h"
#include "core/base/random.h"
#include "core/engine.h"

namespace ZOVEngine {

Replay::~Replay() {
  Stop();
}

bool Replay::Load(const std::string& file) {
  Stop();
  std::ifstream in(file);
  m_game = RecordedGame::Read(in);
  m_step = -1;
  if (m_game.level.empty()) return false;
  m_stage = Stage::kShowing;
  return true;
}

void Replay::Stop() {
  if (m_stage == Stage::kShowing) End(Stage::kEmpty);
}

void Replay::End(Stage stage) {
  m_stage = stage;
  ReleaseInput();
}

void Replay::Step() {
  if (m_stage != Stage::kShowing || g_engine->paused) return;
  if (m_step < 0) {
    // The recording's cursor rests in the corner until its first input.
    Apply({GameInput::Kind::kCursor, 0, 0});
  } else if (HasDeparted()) {
    End(Stage::kDeparted);
    return;
  } else if (m_step == m_game.steps) {
    End(Stage::kEnded);
    return;
  }
  // Before the level is entered and again after its first step, as EnterLevel does.
  if (m_step <= 0) SeedRand(m_game.seed);
  if (m_step >= 0) m_game.ApplyInputs(m_step);
  ++m_step;
}

bool Replay::HasDeparted() const {
  if (FindTurnController() == nullptr) return true;
  const auto places = m_game.places.find(m_step);
  if (places != m_game.places.end() && places->second != HashPlaces()) return true;
  return m_step == m_game.steps && AutoPlayer().Outcome() != m_game.outcome;
}

}  // namespace ZOVEngine
