#include "objects/gamecomponentbase.h"

#include "objects/reflection.h"

ZOV_REGISTRATION(GameComponentBase) {
  using ZOVEngine::GameComponentBase;
  ZOVEngine::ComponentRegistration<GameComponentBase>("GameComponentBase")
      .Field("m_active", &GameComponentBase::m_active, "bool", "Active");
}
