#include <cstdlib>
#include <iostream>

#include "core/app/arguments.h"
#include "core/app/winmain.h"

int main(int argc, char** argv) {
  switch (ZOVEngine::ReadArguments({argv + 1, argv + argc}, std::cout, std::cerr)) {
    case ZOVEngine::StartRequest::kHelp:
      return EXIT_SUCCESS;
    case ZOVEngine::StartRequest::kWrong:
      return ZOVEngine::kWrongUse;
    case ZOVEngine::StartRequest::kPlay:
      break;
  }
  return ZOVEngine::WinMain();
}
