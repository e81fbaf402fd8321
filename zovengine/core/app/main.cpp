#include <iostream>
#include <string>
#include <vector>

#include "core/app/winmain.h"
#include "core/statemachine.h"

namespace {

constexpr int kWrongUse = 2;

/// Takes the program's arguments. False, with a line on how they go, when they are not understood.
bool TakeArguments(const std::vector<std::string>& arguments) {
  if (arguments.empty()) return true;
  if (arguments.size() == 2 && arguments[0] == "--level") {
    ZOVEngine::g_start_state = ZOVEngine::kDefaultState;
    ZOVEngine::g_current_level_path = arguments[1];
    return true;
  }
  std::cerr << "usage: carapace [--level FILE]\n"
               "  --level FILE   starts in a level, such as "
               "\"Level Editor/Levels/Level01/Level01.json\"\n";
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  if (!TakeArguments({argv + 1, argv + argc})) return kWrongUse;
  return ZOVEngine::WinMain();
}
