#include "render/components/animation.h"

#include "jsonunserializer.h"
#include "objects/reflection.h"

RTTR_REGISTRATION {
  using ZOVEngine::Animation;
  ZOVEngine::ComponentRegistration<Animation>("Animation")
      .Field("m_spawn_frames", &Animation::m_spawn_frames, "unsigned", "Number of Frames (spawn)")
      .Field("m_death_frames", &Animation::m_death_frames, "unsigned", "Number of Frames (death)")
      .Field("m_once_frames", &Animation::m_once_frames, "unsigned", "Number of Frames(once)")
      .Field("m_loop_frames", &Animation::m_loop_frames, "unsigned", "Number of Frames(loop)")
      .Field("m_spawn", &Animation::m_spawn, "std::string", "Spawn Texture")
      .Field("m_death", &Animation::m_death, "std::string", "Death Texture")
      .Field("m_once", &Animation::m_once, "std::string", "Once Texture")
      .Field("m_loop", &Animation::m_loop, "std::string", "Loop Texture")
      .Field("m_time_per_frame", &Animation::m_time_per_frame, "float", "Time Per Frame");
}

namespace ZOVEngine {

void Animation::Unserialize(const Value& value) {
  ReadValue(value, "m_timer", &m_timer);
  ReadValue(value, "m_currStep", &m_currStep);
  ReadValue(value, "m_spawn_frames", &m_spawn_frames);
  ReadValue(value, "m_death_frames", &m_death_frames);
  ReadValue(value, "m_once_frames", &m_once_frames);
  ReadValue(value, "m_loop_frames", &m_loop_frames);
  ReadValue(value, "m_spawn", &m_spawn);
  ReadValue(value, "m_death", &m_death);
  ReadValue(value, "m_once", &m_once);
  ReadValue(value, "m_loop", &m_loop);
  ReadValue(value, "m_time_per_frame", &m_time_per_frame);
}

void Animation::Serialize(Writer& writer) {
  WriteValue(writer, "m_timer", m_timer);
  WriteValue(writer, "m_currStep", m_currStep);
  WriteValue(writer, "m_spawn_frames", m_spawn_frames);
  WriteValue(writer, "m_death_frames", m_death_frames);
  WriteValue(writer, "m_once_frames", m_once_frames);
  WriteValue(writer, "m_loop_frames", m_loop_frames);
  WriteValue(writer, "m_spawn", m_spawn);
  WriteValue(writer, "m_death", m_death);
  WriteValue(writer, "m_once", m_once);
  WriteValue(writer, "m_loop", m_loop);
  WriteValue(writer, "m_time_per_frame", m_time_per_frame);
}

}  // namespace ZOVEngine
