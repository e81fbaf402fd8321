#pragma once

#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"

namespace ZOVEngine {

/// Advances a body and its Transform by one step (unit of `dt`: seconds): ages the timed forces,
/// then takes the new velocity from them and the new position from the new velocity (semi-implicit
/// Euler). A force acts while its lifetime is above its age.
void IntegrateBody(RigidBody* body, Transform* transform, float dt);

}  // namespace ZOVEngine
