#pragma once

#include <string>

namespace ZOVEngine {

class Painter;

/// Draws the texture of the key `texture` five times in each direction over a lit field, fixed in
/// the world, round the origin.
void BackgroundPass(const std::string& texture, Painter& painter);

}  // namespace ZOVEngine
