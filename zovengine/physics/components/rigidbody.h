#pragma once

#include <memory>
#include <vector>

#include "core/base/vector3d.h"
#include "objects/gamecomponentbase.h"

namespace ZOVEngine {

/// A force that acts on a body for a time. The direction is not normalised.
struct DirectionalForce {
  float age = 0.0f;       ///< (unit: seconds)
  float lifetime = 0.0f;  ///< (unit: seconds)
  bool active = true;
  Vector3D direction;
  float magnitude = 0.0f;
};

/// A torque that acts on a body for a time.
struct RotationalForce {
  float age = 0.0f;       ///< (unit: seconds)
  float lifetime = 0.0f;  ///< (unit: seconds)
  bool active = true;
  float torque = 0.0f;
};

/// What makes an object move: velocities, mass and the timed forces on it.
///
/// Linear values are in world units and seconds, angular ones in degrees and seconds. A mass of 0
/// or less makes the body immovable by forces, an inertia of 0 or less keeps it from turning. The
/// inverses are computed when the body is read from a file; a mass changed later does not update
/// them.
class RigidBody final : public GameComponentBase {
  RTTR_ENABLE(GameComponentBase)

 public:
  using GameComponentBase::GameComponentBase;

  ZOV_DECLARE_FIELDS()

  Vector3D m_prev_vel;  ///< m_vel before the last integration
  Vector3D m_vel;
  Vector3D m_accel;          ///< computed in the last step
  float m_rot_vel = 0.0f;    ///< (unit: degrees per second)
  float m_rot_accel = 0.0f;  ///< computed in the last step
  float m_mass = 1.0f;
  float m_inv_mass = 1.0f;
  float m_inertia = 1.0f;
  float m_inv_inertia = 1.0f;
  std::vector<std::shared_ptr<DirectionalForce>> m_forces;
  std::vector<std::shared_ptr<RotationalForce>> m_torques;
  Vector3D m_sleeper_vel;          ///< passes through files only
  float m_sleeper_rot_vel = 0.0f;  ///< passes through files only
  float m_drag = 0.0f;             ///< (unit: per second)
  float m_angular_drag = 0.0f;     ///< (unit: per second)
  float m_rest = 0.0f;             ///< restitution
};

}  // namespace ZOVEngine
