#include "game/hazards/environmentrough.h"

#include "objects/reflection.h"

RTTR_REGISTRATION {
  ZOVEngine::ComponentRegistration<ZOVEngine::EnvironmentRough>("EnvironmentRough");
}
