#include "game/hazards/environmentdamage.h"

#include "game/objectquery.h"
#include "objects/reflection.h"

ZOV_REGISTRATION(EnvironmentDamage) {
  ZOVEngine::ComponentRegistration<ZOVEngine::EnvironmentDamage>("EnvironmentDamage");
}

namespace ZOVEngine {

void EnvironmentDamage::Init() {
  StatusZone::Init();
  SetState(m_owner, "loop");
}

}  // namespace ZOVEngine
