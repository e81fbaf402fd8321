#include "game/movers/leg.h"

#include "core/engine.h"
#include "core/messages.h"
#include "objects/componentmanager.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"

namespace ZOVEngine {

LegStep FollowLeg(GameObj* object, const Leg& leg, float dt, float* time) {
  Transform& transform = *object->GetComponent<Transform>();
  const Vector3D offset = leg.goal - transform.m_world_pos;
  if (leg.snap_range > offset.Length()) {
    transform.m_world_pos = leg.goal;
    Halt(object);
    *time = 0.0f;
    return LegStep::kArrived;
  }
  if (*time >= leg.time_limit) {
    *time = 0.0f;
    return LegStep::kOutOfTime;
  }
  PushAlong(*object, offset, leg.force, leg.push_time);
  *time += dt;
  return LegStep::kPushed;
}

void PushAlong(const GameObj& object, const Vector3D& offset, float force, float push_time) {
  AddForceToObject push(object.id, offset.Normalized(), force, push_time);
  g_engine->Broadcast(&push);
}

void Halt(GameObj* object) {
  RigidBody& body = *object->GetComponent<RigidBody>();
  body.m_vel = body.m_prev_vel = Vector3D();
}

}  // namespace ZOVEngine
