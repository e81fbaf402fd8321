#pragma once

#include <cstdint>
#include <string>

#include "objects/gamecomponentbase.h"

namespace ZOVEngine {

/// Four sprite sheets, one for each of the states "spawn", "death", "once" and "loop".
///
/// A sheet is one texture with its frames side by side in a row. The object's StateC selects the
/// sheet and the drawing passes advance it, so an animation runs only while its object is drawn. A
/// state written in the middle of another one starts at the step that was reached.
class Animation final : public GameComponentBase {
  RTTR_ENABLE(GameComponentBase)

 public:
  using GameComponentBase::GameComponentBase;

  ZOV_DECLARE_FIELDS()

  float m_timer = 0.0f;     ///< in the current frame (unit: seconds)
  float m_currStep = 0.0f;  ///< left edge of the current frame, in u
  std::uint32_t m_spawn_frames = 0;
  std::uint32_t m_death_frames = 0;
  std::uint32_t m_once_frames = 0;
  std::uint32_t m_loop_frames = 0;
  std::string m_spawn;  ///< texture keys
  std::string m_death;
  std::string m_once;
  std::string m_loop;
  /// Unless null, the texture key of a sheet shown in place of `m_once`, with as many frames. It is
  /// not kept in files.
  const char* m_once_instead = nullptr;
  float m_time_per_frame = 0.05f;  ///< (unit: seconds)
};

}  // namespace ZOVEngine
