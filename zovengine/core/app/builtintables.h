#pragma once

#include "audio/audiosource.h"
#include "game/movers/waypoint.h"
#include "objects/statec.h"
#include "objects/typelist.h"
#include "render/components/imodel.h"
#include "render/components/light.h"
#include "render/components/particle.h"
#include "render/components/particlesystemc.h"

namespace ZOVEngine {

/// The components whose tables belong to no other system. The factory registers them in its Init,
/// the logic components among them too.
using BuiltInTables =
    TypeList<iModel, StateC, Particle, ParticleSystemC, Waypoint, Light, AudioSource>;

}  // namespace ZOVEngine
