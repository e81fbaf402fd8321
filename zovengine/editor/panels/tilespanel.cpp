#include "editor/panels/tilespanel.h"

#include <imgui.h>

#include "editor/leveleditor.h"

namespace ZOVEngine {

void TilesPanel::Show(LevelEditor&) {}

}  // namespace ZOVEngine
