#pragma once

#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// Gives the view its position: the renderer reads the object's world position and `m_offset`.
///
/// What hangs on the camera's object is interface and is drawn over the world. A new camera is
/// inactive; the view follows active cameras only.
class Camera final : public LogicComponent {
  RTTR_ENABLE(LogicComponent)

 public:
  explicit Camera(GameObj* owner);

  void Unserialize(const Value& value) override;
  void Serialize(Writer& writer) override;
  void Init() override { m_init = true; }
  void Update(float dt) override;
  void Destroy() override {}
  void OnMessage(Message*) override {}

  float m_elapsed = 0.0f;  ///< of the shake (unit: seconds)
  Vector3D m_offset;       ///< of the view (unit: world units)
  bool m_shaking = false;
  float m_shake_duration = 0.0f;  ///< (unit: seconds)
  float m_shakemag = 1.0f;
  int m_xlimit = 1;  ///< tiles allowed beyond the map's half width
  int m_ylimit = 1;  ///< tiles allowed beyond the map's half height
  bool m_at_limit[4] = {false, false, false, false};  ///< right, top, left, bottom
};

}  // namespace ZOVEngine
