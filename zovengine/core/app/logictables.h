#pragma once

#include "game/camera.h"
#include "game/hazards/deathfield.h"
#include "game/hazards/environmentblackhole.h"
#include "game/hazards/environmentdamage.h"
#include "game/hazards/environmentdestructible.h"
#include "game/hazards/environmentrough.h"
#include "game/movers/pathfinding.h"
#include "game/movers/waypoint.h"
#include "game/shots/projectilebounce.h"
#include "game/shots/projectiledefault.h"
#include "game/shots/projectileexplosion.h"
#include "game/shots/projectilepierce.h"
#include "game/shots/projectilepush.h"
#include "game/shots/projectileswap.h"
#include "game/shots/projectilevacuum.h"
#include "game/turns/gamecontroller.h"
#include "game/units/aicomp.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "objects/typelist.h"
#include "render/components/particlesystemc.h"
#include "ui/buttons/button.h"
#include "ui/elements/uielement.h"
#include "ui/screens/mainmenucontroller.h"
#include "ui/screens/splashcontroller.h"

namespace ZOVEngine {

/// The logic components in the order in which a step walks their tables. This is the one list of
/// them: their tables are registered, fetched and walked by it, under the names of the classes.
using LogicTables =
    TypeList<ParticleSystemC, Waypoint, GameController, SplashController, MainMenuController,
             UIElement, Button, Camera, Pathfinding, EnvironmentBlackhole, EnvironmentRough,
             EnvironmentDamage, EnvironmentDestructible, DeathField, ProjectileDefault,
             ProjectilePush, ProjectileSwap, ProjectileBounce, ProjectileExplosion,
             ProjectileVacuum, ProjectilePierce, Enemy, Player, AIComp>;

/// The logic components that stay live in a pause, in the order of their walk.
using PausedLogicTables = TypeList<ParticleSystemC, UIElement, Button>;

}  // namespace ZOVEngine
