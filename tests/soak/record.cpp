// Lets the automatic player play a game and prints it in the form of tests/game/games.
//   carapace_record LEVEL SEED [skip]
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>

#include "support/recordedgame.h"

int main(int argc, char** argv) {
  using namespace carapace_test;
  constexpr int kMostSteps = 40000;
  if (argc < 3) {
    std::cerr << "usage: carapace_record LEVEL SEED [skip]\n";
    return 2;
  }
  const bool skips = argc > 3 && std::string(argv[3]) == "skip";
  std::streambuf* out = std::cout.rdbuf(nullptr);  // what the engine prints is not for here
  const RecordedGame game =
      RecordedGame::Play(argv[1], static_cast<std::uint32_t>(std::atoi(argv[2])),
                         skips ? AutoPlayer::Style::kSkip : AutoPlayer::Style::kFight, kMostSteps);
  std::cout.rdbuf(out);
  game.Write(std::cout);
}
