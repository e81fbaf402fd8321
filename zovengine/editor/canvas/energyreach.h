#pragma once

namespace ZOVEngine {

class Player;
class RigidBody;

/// How far a player unit drives in a turn on free ground: a key is held from standstill until the
/// energy is spent, and then the unit rolls out (unit: world units).
///
/// Steps a copy of the body as the game does. A body without drag never stands still; the distance
/// after ten seconds of rolling counts then.
float EnergyReach(const Player& player, const RigidBody& body);

}  // namespace ZOVEngine
