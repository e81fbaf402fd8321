#include "platform/native.h"

namespace ZOVEngine {

Native* g_native = nullptr;

}  // namespace ZOVEngine
