#include "editor/canvas/canvas.h"

#include <imgui.h>

#include "editor/leveleditor.h"

namespace ZOVEngine {

void Canvas::Show(LevelEditor&) {}

}  // namespace ZOVEngine
