#pragma once

namespace ZOVEngine {

class GameObjFactory;

/// Registers the tables that belong to no other system, in their fixed order: iModel, StateC,
/// Particle, ParticleSystemC, Waypoint, Light, AudioSource.
void RegisterBuiltInTables(GameObjFactory* factory);

}  // namespace ZOVEngine
