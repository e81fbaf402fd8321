#include "objects/builtintables.h"

#include "audio/audiosource.h"
#include "game/movers/waypoint.h"
#include "objects/gameobjfactory.h"
#include "objects/statec.h"
#include "render/components/imodel.h"
#include "render/components/light.h"
#include "render/components/particle.h"
#include "render/components/particlesystemc.h"

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
