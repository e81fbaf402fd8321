#pragma once

#include <string>

#include "objects/jsonforward.h"

namespace ZOVEngine {

class LevelDocument;

// The files of a level have an invisible twin before each hazard with a looping animation, without
// which the whole sheet would flash when the loop starts over. A twin is its hazard but for a few
// fields, so the editor's documents are without twins and files get them anew: whatever is done to
// a hazard, its twin follows.

/// Takes the twins out of a list of records and of the lists of their children. A twin is the
/// record before a hazard with a looping animation whose name is the hazard's and "Twin".
void FoldTwins(Value* records);
/// The document's text with a twin before each hazard that has a looping animation.
std::string TextWithTwins(const LevelDocument& document);

}  // namespace ZOVEngine
