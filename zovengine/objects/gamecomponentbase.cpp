#include "objects/gamecomponentbase.h"

#include "objects/reflection.h"

RTTR_REGISTRATION {
  using ZOVEngine::GameComponentBase;
  rttr::registration::class_<GameComponentBase>("ZOVEngine::GameComponentBase")(
      rttr::metadata("isInspect", true), rttr::metadata("componentname", "GameComponentBase"))
      .property("m_active",
                &GameComponentBase::m_active)(ZOVEngine::FieldMetadata("bool", "Active"));
}
