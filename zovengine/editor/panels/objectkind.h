#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace ZOVEngine {

/// What an object is for, as an author tells objects apart.
enum class ObjectKind { kPlayer, kEnemy, kShot, kHazard, kInterface, kLight, kLevel, kOther };

/// The kind of an object with components of these classes.
ObjectKind KindOfObject(const std::vector<std::string>& components);
/// A word for the kind, for the author; empty for kOther.
const char* KindWord(ObjectKind kind);
/// The colour of the kind in lists, as Dear ImGui packs it.
std::uint32_t KindColour(ObjectKind kind);

}  // namespace ZOVEngine
