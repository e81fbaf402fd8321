#include "editor/panels/hierarchypanel.h"

#include <imgui.h>

#include "editor/leveleditor.h"

namespace ZOVEngine {

void HierarchyPanel::Show(LevelEditor&) {}

}  // namespace ZOVEngine
