#include "platform/nativeheadless.h"

#include <iostream>

namespace ZOVEngine {

void HeadlessNative::MessageBox(const std::string& title, const std::string& text) {
  std::cerr << title << ": " << text << std::endl;
}

}  // namespace ZOVEngine
