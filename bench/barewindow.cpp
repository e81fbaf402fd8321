// The least program that shows a frame: an SDL window with an OpenGL context. The peer of the game
// in startup_bench. Prints a line after its first swap and stays until it is told to end.
#include <SDL.h>
#include <SDL_opengl.h>

#include <cstdio>

namespace {

void RunUntilQuit() {
  SDL_Event event;
  while (SDL_WaitEvent(&event) == 1) {
    if (event.type == SDL_QUIT) return;
  }
}

}  // namespace

int main(int, char**) {
  if (SDL_Init(SDL_INIT_VIDEO) != 0) return 1;
  SDL_Window* window = SDL_CreateWindow("Bare window", 0, 0, 1280, 720, SDL_WINDOW_OPENGL);
  SDL_GLContext context = window != nullptr ? SDL_GL_CreateContext(window) : nullptr;
  if (context == nullptr) {
    std::fprintf(stderr, "%s\n", SDL_GetError());
    return 1;
  }
  glClear(GL_COLOR_BUFFER_BIT);
  SDL_GL_SwapWindow(window);
  std::puts("first frame");
  std::fflush(stdout);
  RunUntilQuit();
  SDL_GL_DeleteContext(context);
  SDL_DestroyWindow(window);
  SDL_Quit();
  return 0;
}
