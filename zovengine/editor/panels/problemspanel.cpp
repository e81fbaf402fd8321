#include "editor/panels/problemspanel.h"

#include <imgui.h>

#include "editor/leveleditor.h"

namespace ZOVEngine {

void ProblemsPanel::Show(LevelEditor&) {}

}  // namespace ZOVEngine
