#include "core/winmain.h"

int main() {
  return ZOVEngine::WinMain();
}
