#include "platform/gldriver.h"

#include <SDL.h>
#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace ZOVEngine {

namespace {

void AskForThread() {
  constexpr const char* kThread = "mesa_glthread";
  constexpr int kKeepWhatIsSet = 0;
  if (SDL_getenv(kThread) != nullptr) return;
  SDL_setenv(kThread, "true", kKeepWhatIsSet);
  // Otherwise Mesa writes to standard error that an option was set in the environment.
  SDL_setenv("MESA_DEBUG", "silent", kKeepWhatIsSet);
}

}  // namespace

void PrepareGLDriver() {
  AskForThread();
#if defined(__GLIBC__)
  constexpr int kKeptBytes = 256 << 20;
  constexpr int kLargestOnHeap = 32 << 20;  // the most that the C library takes
  mallopt(M_TRIM_THRESHOLD, kKeptBytes);
  mallopt(M_MMAP_THRESHOLD, kLargestOnHeap);
#endif
}

}  // namespace ZOVEngine
