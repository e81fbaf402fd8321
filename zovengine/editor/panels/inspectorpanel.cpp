#include "editor/panels/inspectorpanel.h"

#include <imgui.h>

#include "editor/leveleditor.h"

namespace ZOVEngine {

void InspectorPanel::Show(LevelEditor&) {}

}  // namespace ZOVEngine
