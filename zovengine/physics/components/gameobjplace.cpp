// The one verb of GameObj that writes a component's fields; it stands above the components'
// headers.
#include "objects/componentmanager.h"
#include "physics/components/transform.h"

namespace ZOVEngine {

void GameObj::SetPosition(const Vector3D& position) {
  if (!HasComponent<Transform>()) return;
  Transform* transform = GetComponent<Transform>();
  transform->m_prev_pos = position;
  transform->m_local_pos = position;
}

}  // namespace ZOVEngine
