#include "platform/gldriver.h"

#include <SDL.h>
#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace ZOVEngine {

void PrepareGLDriver() {
  constexpr int kKeepWhatIsSet = 0;
  SDL_setenv("mesa_glthread", "true", kKeepWhatIsSet);
#if defined(__GLIBC__)
  constexpr int kKeptBytes = 256 << 20;
  constexpr int kLargestOnHeap = 32 << 20;  // the most that the C library takes
  mallopt(M_TRIM_THRESHOLD, kKeptBytes);
  mallopt(M_MMAP_THRESHOLD, kLargestOnHeap);
#endif
}

}  // namespace ZOVEngine
