#include "editor/panels/logpanel.h"

#include <imgui.h>

#include "editor/leveleditor.h"

namespace ZOVEngine {

void LogPanel::Show(LevelEditor&) {}

}  // namespace ZOVEngine
