#include "render/animation.h"

#include "objects/reflection.h"

RTTR_REGISTRATION {
  using ZOVEngine::Animation;
  using ZOVEngine::FieldMetadata;
  rttr::registration::class_<Animation>("ZOVEngine::Animation")(
      rttr::metadata("isInspect", true), rttr::metadata("componentname", "Animation"))
      .property("m_spawn_frames",
                &Animation::m_spawn_frames)(FieldMetadata("unsigned", "Number of Frames (spawn)"))
      .property("m_death_frames",
                &Animation::m_death_frames)(FieldMetadata("unsigned", "Number of Frames (death)"))
      .property("m_once_frames",
                &Animation::m_once_frames)(FieldMetadata("unsigned", "Number of Frames(once)"))
      .property("m_loop_frames",
                &Animation::m_loop_frames)(FieldMetadata("unsigned", "Number of Frames(loop)"))
      .property("m_spawn", &Animation::m_spawn)(FieldMetadata("std::string", "Spawn Texture"))
      .property("m_death", &Animation::m_death)(FieldMetadata("std::string", "Death Texture"))
      .property("m_once", &Animation::m_once)(FieldMetadata("std::string", "Once Texture"))
      .property("m_loop", &Animation::m_loop)(FieldMetadata("std::string", "Loop Texture"))
      .property("m_time_per_frame",
                &Animation::m_time_per_frame)(FieldMetadata("float", "Time Per Frame"));
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
