#include <cstdlib>
#include <iostream>

#include "core/app/arguments.h"
#include "core/app/trialmain.h"
#include "core/app/winmain.h"

int main(int argc, char** argv) {
  const ZOVEngine::Arguments arguments =
      ZOVEngine::ReadArguments({argv + 1, argv + argc}, std::cout, std::cerr);
  // The engine's lines go to std::cout and are dropped in a trial; its results keep the buffer.
  std::ostream results(std::cout.rdbuf());
  switch (arguments.request) {
    case ZOVEngine::StartRequest::kHelp:
      return EXIT_SUCCESS;
    case ZOVEngine::StartRequest::kWrong:
      return ZOVEngine::kWrongUse;
    case ZOVEngine::StartRequest::kTrial:
      return ZOVEngine::TrialMain(arguments.trial, results, std::cerr);
    case ZOVEngine::StartRequest::kPlay:
      break;
  }
  return ZOVEngine::WinMain();
}
