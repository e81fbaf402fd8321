#pragma once

#include <vector>

#include "objects/componentarray.h"
#include "render/frame.h"

namespace ZOVEngine {

class Light;

/// Appends the active ones of `lights` to `out`, with their positions in the world. A light whose
/// object has a hidden sprite is off.
void LightPass(ComponentArray<Light> lights, std::vector<LightRecord>* out);

}  // namespace ZOVEngine
