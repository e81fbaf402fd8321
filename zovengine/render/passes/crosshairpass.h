#pragma once

namespace ZOVEngine {

class Painter;

/// The key of its texture.
inline constexpr const char* kCrosshairTexture = "Crosshair";

/// Draws the crosshair at the cursor, turned a little further in each frame, and hides the system's
/// cursor.
void CrosshairPass(Painter& painter);

/// Shows the system's cursor in place of the crosshair; never set, a switch for the editor's
/// panels.
extern bool g_show_system_cursor;

}  // namespace ZOVEngine
