#include "core/system.h"

namespace ZOVEngine {

void System::PausedUpdate(float) {}

}  // namespace ZOVEngine
