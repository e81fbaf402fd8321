#pragma once

namespace ZOVEngine {

/// Sets the process up for its OpenGL driver; to be called before the first window is opened.
///
/// Mesa's drivers are asked to take commands on a thread of their own, so that a frame costs the
/// game's thread the handing over alone: with the software rasteriser, 20,000 particles took 14 ms
/// of it and take 4. A user's own "mesa_glthread" in the environment stands; other drivers do not
/// look at it. Mesa would announce the option on standard error at each start; "MESA_DEBUG" keeps
/// it silent unless the user has set that variable. And the process keeps the memory that it frees:
/// a software rasteriser allocates its scene anew each frame, and memory that went back to the
/// system costs a page fault for every 4 KiB when it is wanted again.
void PrepareGLDriver();

}  // namespace ZOVEngine
