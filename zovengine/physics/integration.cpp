#include "physics/integration.h"

#include <cmath>
#include <memory>
#include <vector>

namespace ZOVEngine {
namespace {

/// Ages what is active, drops what ended in the step before, and ends what is old enough.
template <class Force>
void AgeForces(std::vector<std::shared_ptr<Force>>* forces, float dt) {
  if (forces->empty()) return;
  for (const auto& force : *forces) {
    if (force->active) force->age += dt;
  }
  std::erase_if(*forces, [](const auto& force) { return !force->active; });
  for (const auto& force : *forces) {
    if (force->lifetime <= force->age) force->active = false;
  }
}

void AdvanceVelocity(RigidBody* body, float dt) {
  if (dt * body->m_drag > 1.0f) {
    body->m_accel = Vector3D();
    body->m_vel = Vector3D();
    return;
  }
  Vector3D sum;
  for (const auto& force : body->m_forces) {
    if (force->active) sum += force->direction * force->magnitude;
  }
  body->m_accel = sum * body->m_inv_mass;
  body->m_vel += body->m_accel * dt;
  body->m_vel *= 1.0f - dt * body->m_drag;
}

void AdvanceRotation(RigidBody* body, float dt) {
  if (dt * body->m_angular_drag > 1.0f) {
    body->m_rot_accel = 0.0f;
    body->m_rot_vel = 0.0f;
    return;
  }
  float sum = 0.0f;
  for (const auto& torque : body->m_torques) {
    if (torque->active) sum += torque->torque;
  }
  body->m_rot_accel = sum * body->m_inv_inertia;
  body->m_rot_vel += dt * body->m_rot_accel;
  const float loss = body->m_rot_vel * dt * body->m_angular_drag;
  if (std::abs(body->m_rot_vel) < std::abs(loss)) {
    body->m_rot_vel = 0.0f;
    body->m_rot_accel = 0.0f;
  } else {
    body->m_rot_vel -= loss;
  }
}

}  // namespace

void IntegrateBody(RigidBody* body, Transform* transform, float dt) {
  AgeForces(&body->m_forces, dt);
  AgeForces(&body->m_torques, dt);
  transform->m_prev_pos = transform->m_local_pos;
  transform->m_prev_rotate = transform->m_local_rotate;
  body->m_prev_vel = body->m_vel;
  AdvanceVelocity(body, dt);
  AdvanceRotation(body, dt);
  transform->m_local_rotate += dt * body->m_rot_vel;
  transform->m_local_pos += body->m_vel * dt;
}

}  // namespace ZOVEngine
