#include "editor/panels/trialpanel.h"

#include <imgui.h>

#include "editor/leveleditor.h"

namespace ZOVEngine {

void TrialPanel::Show(LevelEditor&) {}

}  // namespace ZOVEngine
