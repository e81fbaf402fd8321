#pragma once

#include "jsonunserializer.h"

namespace ZOVEngine {

class RenderSystem;

inline constexpr const char* kGraphicsConfigPath = "Resources/Textures/graphics.json";

/// Reads the settings of `system` from the root of graphics.json. A missing key prints "Cant find
/// Key: " and the key and leaves the member; a value of another type ends the program with a
/// report.
void ReadGraphicsConfig(const Value& root, RenderSystem* system);

/// Writes the object that ReadGraphicsConfig reads, with all keys.
void WriteGraphicsConfig(Writer& writer, const RenderSystem& system);

}  // namespace ZOVEngine
