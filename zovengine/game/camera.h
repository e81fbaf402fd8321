#pragma once

#include "core/base/vector3d.h"
#include "objects/logiccomponent.h"

namespace ZOVEngine {

/// Gives the view its position: the renderer reads the object's world position and `m_offset`.
///
/// It keeps the view within the level's map and a margin of tiles, and it shakes; it follows
/// nothing: the object moves by its Transform. To start a shake, write the fields `m_shaking`,
/// `m_shake_duration` and `m_shakemag`, and 0 to `m_elapsed`. The children of the camera's object
/// are interface and are drawn over the world. A new camera is inactive; the view follows active
/// cameras only.
class Camera final : public LogicComponent {
  RTTR_ENABLE(LogicComponent)

 public:
  explicit Camera(GameObj* owner);

  ZOV_DECLARE_FIELDS()
  /// Says so on standard output and seeds the random numbers from the time of day.
  void Init() override;
  /// Limits the view, if the parent runs a level, and shakes it.
  void Update(float dt) override;
  /// Says so on standard output.
  void Destroy() override;
  void OnMessage(Message*) override {}

  float m_elapsed = 0.0f;  ///< of the shake (unit: seconds)
  Vector3D m_offset;       ///< of the view (unit: world units)
  bool m_shaking = false;
  float m_shake_duration = 0.0f;  ///< (unit: seconds)
  float m_shakemag = 1.0f;
  int m_xlimit = 1;  ///< tiles allowed beyond the map's half width
  int m_ylimit = 1;  ///< tiles allowed beyond the map's half height
  bool m_at_limit[4] = {false, false, false, false};  ///< right, top, left, bottom; of this step

 private:
  void Limit();
  void Shake(float dt);
};

}  // namespace ZOVEngine
