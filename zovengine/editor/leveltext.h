#pragma once

#include <string>

#include "editor/levelrules.h"

namespace ZOVEngine {

class LevelDocument;
class LevelEditor;

/// The texts of the open level's files as a save would write them now, but for the twins of
/// hazards: so a problem's address is a path of the document.
LevelText OpenLevelText(const LevelEditor& editor);

/// The texts of the map and of the level file for `g_editor`'s open level, whose files have these
/// paths.
std::string OpenMapText();
std::string OpenIndexText(const std::string& map, const std::string& tiles,
                          const std::string& objects);
/// The tiles without the erased ones.
std::string LaidTilesText();

/// The problems of a document over which the program would end if its scene were built.
LevelProblems FatalProblems(const LevelDocument& document);

/// Takes out of the document every object over which the program would end; returns the problems.
LevelProblems LeaveOutFatalObjects(LevelDocument* document);

}  // namespace ZOVEngine
