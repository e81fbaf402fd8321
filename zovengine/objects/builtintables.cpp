#include "objects/builtintables.h"

#include "audio/audiosource.h"
#include "game/waypoint.h"
#include "objects/gameobjfactory.h"
#include "objects/statec.h"
#include "render/imodel.h"
#include "render/light.h"
#include "render/particle.h"
#include "render/particlesystemc.h"

namespace ZOVEngine {

void RegisterBuiltInTables(GameObjFactory* factory) {
  factory->RegisterComponent<iModel>("iModel");
  factory->RegisterComponent<StateC>("StateC");
  factory->RegisterComponent<Particle>("Particle");
  factory->RegisterComponent<ParticleSystemC>("ParticleSystemC");
  factory->RegisterComponent<Waypoint>("Waypoint");
  factory->RegisterComponent<Light>("Light");
  factory->RegisterComponent<AudioSource>("AudioSource");
}

}  // namespace ZOVEngine
