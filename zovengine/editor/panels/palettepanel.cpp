#include "editor/panels/palettepanel.h"

#include <imgui.h>

#include "editor/leveleditor.h"

namespace ZOVEngine {

void PalettePanel::Show(LevelEditor&) {}

}  // namespace ZOVEngine
