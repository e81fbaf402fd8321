#include "editor/panels/historypanel.h"

#include <imgui.h>

#include "editor/leveleditor.h"

namespace ZOVEngine {

void HistoryPanel::Show(LevelEditor&) {}

}  // namespace ZOVEngine
