#include "game/shots/areashot.h"

#include "game/radialforce.h"
#include "objects/fields.h"
#include "objects/gameobjfactory.h"

namespace ZOVEngine {

ZOV_COMPONENT_FILE(AreaShot)

void AreaShot::Init() {
  FetchTables();
  Shot::Init();
}

void AreaShot::FetchTables() {
  m_bodies = FetchTable<RigidBody>();
}

void AreaShot::RequireTables() {
  if (m_bodies == nullptr) FetchTables();
}

bool AreaShot::Reaches(GameObj* object) const {
  return DistanceBetween(m_owner, object) <= m_aoe;
}

}  // namespace ZOVEngine
