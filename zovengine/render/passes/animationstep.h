#pragma once

namespace ZOVEngine {

class Painter;
class Render;

/// Advances the animation of `render`'s object, which has an Animation and a StateC, by `dt` (unit:
/// seconds), binds the texture of its frame and uploads the quad that shows it; the caller then
/// draws.
///
/// "spawn" plays once. "death" plays once, then hides the object and switches it and its children
/// off. "once" plays once, after which a Player or an Enemy is back to its plain sprite and
/// anything else has vanished. "loop" goes on. All but "loop" end in the state "default". A state
/// that is none of these binds nothing, so the object shows the texture bound last.
void AnimationStep(Render& render, float dt, Painter& painter);

}  // namespace ZOVEngine
