#pragma once

#include <string>

namespace ZOVEngine {

class Painter;

/// Draws the texture of the key `texture` five times each way over a lit field that is fixed in the
/// world, round the origin.
void BackgroundPass(const std::string& texture, Painter& painter);

}  // namespace ZOVEngine
