#pragma once

#include <string>

#include "objects/jsonforward.h"

namespace ZOVEngine {

class LevelDocument;

// The files of a level have an invisible twin before a sprite with a looping animation, without
// which the whole sheet would flash when the loop starts over. A twin is its sprite but for a few
// fields, so the editor's documents are without twins and files get them anew: whatever is done to
// a hazard or to a part of a unit, its twin follows. A sprite that stands behind another with the
// same loop, as a boss's explosions do, has that one for a twin, unless it is a hazard.

/// Takes the twins out of a list of records and of the lists of their children. A twin is the
/// record before one with a looping animation whose name is that one's and "Twin".
void FoldTwins(Value* records);
/// The document's text with a twin before each sprite that needs one. Of the interface none does.
std::string TextWithTwins(const LevelDocument& document);

}  // namespace ZOVEngine
