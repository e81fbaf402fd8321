#include "game/hazards/environmentrough.h"

#include "objects/reflection.h"

ZOV_REGISTRATION(EnvironmentRough) {
  ZOVEngine::ComponentRegistration<ZOVEngine::EnvironmentRough>("EnvironmentRough");
}
