#pragma once

#include <vector>

#include "render/painter.h"
#include "render/spritelists.h"

namespace ZOVEngine {

class RenderSystem;

// The passes of a frame. Each appends its draws to the painter's frame; the order in which they are
// called is the stacking order of the picture.

/// The view's distance from the world while the camera's z is 0 (unit: world units).
inline constexpr float kViewDistance = 1303.5f;

/// Moves the view to the last active Camera of the table; with none it stays.
void CameraPass(RenderSystem& system);

/// Collects the active lights whose object is not hidden.
void LightPass(RenderSystem& system);

/// The background texture, five times each way, lit, fixed in the world.
void BackgroundPass(RenderSystem& system);

/// The tiles: the shared quad with the plain texture; they have neither highlight nor animation.
void TilePass(RenderSystem& system);

/// The particles, all in one draw with the first one's texture and colour. More than kMaxInstances
/// end the program.
void InstancedPass(RenderSystem& system);

/// The hazards.
void HazardPass(RenderSystem& system);

/// All other sprites of the world.
void WorldPass(RenderSystem& system);

/// The rectangles of the collision tree, when debug drawing is on.
void TreePass(RenderSystem& system);

/// The lines that were asked for since the last frame.
void LinePass(RenderSystem& system);

/// The sprites that hang on a camera; the camera's z does not move them.
void InterfacePass(RenderSystem& system);

/// Ages the timed lines, drops those whose time is over and draws the others.
void TimedLinePass(RenderSystem& system);

/// The texts of the active Font components.
void TextPass(RenderSystem& system);

/// The crosshair at the cursor, in place of the system's cursor.
void CrosshairPass(RenderSystem& system);

}  // namespace ZOVEngine
