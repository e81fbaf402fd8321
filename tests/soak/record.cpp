// Lets the automatic player play a game and prints it in the form of tests/game/games.
//   carapace_record LEVEL SEED [skip]
#include <cstdlib>
#include <iostream>
#include <string>

#include "autoplay/quiet.h"
#include "support/recordedgames.h"

namespace {

ZOVEngine::RecordedGame Record(const std::string& level, int seed, bool skips) {
  using ZOVEngine::AutoPlayer;
  const ZOVEngine::Quiet quiet;
  return carapace_test::RecordGame(
      level, static_cast<std::uint32_t>(seed),
      {.style = skips ? AutoPlayer::Style::kSkip : AutoPlayer::Style::kFight});
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::cerr << "usage: carapace_record LEVEL SEED [skip]\n";
    return 2;
  }
  const bool skips = argc > 3 && std::string(argv[3]) == "skip";
  Record(argv[1], std::atoi(argv[2]), skips).Write(std::cout);
}
