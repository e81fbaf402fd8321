#include "editor/panels/assetspanel.h"

#include <imgui.h>

#include "editor/leveleditor.h"

namespace ZOVEngine {

void AssetsPanel::Show(LevelEditor&) {}

}  // namespace ZOVEngine
