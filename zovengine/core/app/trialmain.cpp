#include "core/app/trialmain.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <ostream>
#include <sstream>
#include <vector>

#include "autoplay/levelrun.h"
#include "autoplay/quiet.h"
#include "autoplay/recordedgame.h"
#include "core/app/headlessengine.h"
#include "game/turns/gamecontroller.h"
#include "objects/safefile.h"

namespace ZOVEngine {
namespace {

constexpr RecordedGame::Plan kPlan = {
    .marks = RecordedGame::Marks::kPlaces,
    .most_steps = 400000,  // bounds a game whose rounds are very long
    .most_rounds = 60,
};

/// The games of one request, one after another.
class TrialGames {
 public:
  TrialGames(const TrialRequest& request, std::ostream& out, std::ostream& errors)
      : m_request(request),
        m_out(out),
        m_errors(errors),
        m_level(std::filesystem::path(request.level_file).stem().string()) {}

  /// False after a fault, which is said.
  bool Play(std::uint32_t seed) {
    const HeadlessEngine engine;
    EnterLevel(m_request.level_file, seed);
    const GameController* controller = FindTurnController();
    if (controller == nullptr)
      return Complain("there is no turn controller in", m_request.level_file);
    const RecordedGame game = RecordedGame::Play(m_level, seed, kPlan);
    if (game.outcome == "won" && m_won++ == 0 && !WriteReplay(game)) return false;
    m_rounds.push_back(controller->m_round);
    m_out << "game " << m_rounds.size() << " seed " << seed << ' ' << game.outcome << ' '
          << m_rounds.back() << " rounds" << std::endl;
    return true;
  }

  void PrintSum() {
    const auto middle = m_rounds.begin() + static_cast<std::ptrdiff_t>(m_rounds.size() / 2);
    std::nth_element(m_rounds.begin(), middle, m_rounds.end());
    m_out << "won " << m_won << " of " << m_rounds.size() << ", rounds median " << *middle
          << std::endl;
  }

 private:
  bool WriteReplay(const RecordedGame& game) {
    if (m_request.replay_file.empty()) return true;
    std::ostringstream text;
    game.Write(text);
    if (ReplaceFile(m_request.replay_file, text.str())) return true;
    return Complain("cannot write the replay", m_request.replay_file);
  }

  bool Complain(const std::string& fault, const std::string& file) {
    m_errors << "carapace: " << fault << " \"" << file << "\"\n";
    return false;
  }

  const TrialRequest& m_request;
  std::ostream& m_out;
  std::ostream& m_errors;
  std::string m_level;  ///< its name
  int m_won = 0;
  std::vector<int> m_rounds;  ///< of each game
};

}  // namespace

int TrialMain(const TrialRequest& request, std::ostream& out, std::ostream& errors) {
  const Quiet quiet;
  TrialGames games(request, out, errors);
  for (int seed = 1; seed <= request.games; ++seed) {
    if (!games.Play(static_cast<std::uint32_t>(seed))) return EXIT_FAILURE;
  }
  games.PrintSum();
  return EXIT_SUCCESS;
}

}  // namespace ZOVEngine
