#include "editor/editordata.h"

namespace ZOVEngine {

EditorData g_editor;

}  // namespace ZOVEngine
