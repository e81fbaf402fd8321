#include "render/components/animation.h"

#include "objects/fields.h"

namespace ZOVEngine {

template <class Visitor>
void Animation::Fields(Visitor& visit) {
  visit("m_timer", &Animation::m_timer);
  visit("m_currStep", &Animation::m_currStep);
  visit("m_spawn_frames", &Animation::m_spawn_frames, "Number of Frames (spawn)",
        FieldBounds{0.0, 10.0});
  visit("m_death_frames", &Animation::m_death_frames, "Number of Frames (death)",
        FieldBounds{0.0, 10.0});
  visit("m_once_frames", &Animation::m_once_frames, "Number of Frames(once)",
        FieldBounds{0.0, 10.0});
  visit("m_loop_frames", &Animation::m_loop_frames, "Number of Frames(loop)",
        FieldBounds{0.0, 10.0});
  visit("m_spawn", &Animation::m_spawn, "Spawn Texture");
  visit("m_death", &Animation::m_death, "Death Texture");
  visit("m_once", &Animation::m_once, "Once Texture");
  visit("m_loop", &Animation::m_loop, "Loop Texture");
  visit("m_time_per_frame", &Animation::m_time_per_frame, "Time Per Frame", FieldBounds{0.0, 1.0});
}
ZOV_COMPONENT_FIELDS(Animation)

}  // namespace ZOVEngine
