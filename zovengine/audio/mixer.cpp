#include "audio/mixer.h"

namespace ZOVEngine {

Mixer* g_mixer = nullptr;

}  // namespace ZOVEngine
