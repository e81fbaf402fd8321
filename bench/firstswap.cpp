// A library to be loaded before SDL into a program that is measured. It stands in front of
// SDL_GL_SwapWindow and, when the first real swap has returned, writes one byte to the file
// descriptor whose number is in FIRST_SWAP_FD.
#include <dlfcn.h>
#include <unistd.h>

#include <cstdlib>

struct SDL_Window;

namespace {

using SwapFunction = void (*)(SDL_Window*);

void TellOnce() {
  static bool told = false;
  if (told) return;
  told = true;
  const char* descriptor = std::getenv("FIRST_SWAP_FD");
  if (descriptor == nullptr) return;
  // Nobody is left to tell when this fails; the measuring program then runs into its own limit.
  if (write(std::atoi(descriptor), "1", 1) != 1) std::abort();
}

}  // namespace

extern "C" void SDL_GL_SwapWindow(SDL_Window* window) {
  static const auto swap = reinterpret_cast<SwapFunction>(dlsym(RTLD_NEXT, "SDL_GL_SwapWindow"));
  swap(window);
  TellOnce();
}
