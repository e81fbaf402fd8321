#include "platform/xpointer.h"

#include <SDL.h>
#include <SDL_syswm.h>

namespace ZOVEngine {

#if defined(SDL_VIDEO_DRIVER_X11)

std::optional<XPointer> QueryXPointer(SDL_Window* window) {
  SDL_SysWMinfo info;
  SDL_VERSION(&info.version);
  if (window == nullptr || SDL_GetWindowWMInfo(window, &info) != SDL_TRUE) return std::nullopt;
  if (info.subsystem != SDL_SYSWM_X11) return std::nullopt;
  Window root = 0;
  Window child = 0;
  int root_x = 0;
  int root_y = 0;
  unsigned buttons = 0;
  XPointer pointer;
  const int same_screen =
      XQueryPointer(info.info.x11.display, info.info.x11.window, &root, &child, &root_x, &root_y,
                    &pointer.place.x, &pointer.place.y, &buttons);
  if (same_screen == 0) return std::nullopt;
  pointer.left = (buttons & Button1Mask) != 0;
  pointer.right = (buttons & Button3Mask) != 0;
  return pointer;
}

#else

std::optional<XPointer> QueryXPointer(SDL_Window*) {
  return std::nullopt;
}

#endif

}  // namespace ZOVEngine
