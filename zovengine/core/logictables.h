#pragma once

#include "game/aicomp.h"
#include "game/camera.h"
#include "game/deathfield.h"
#include "game/enemy.h"
#include "game/environmentblackhole.h"
#include "game/environmentdamage.h"
#include "game/environmentdestructible.h"
#include "game/environmentrough.h"
#include "game/gamecontroller.h"
#include "game/pathfinding.h"
#include "game/player.h"
#include "game/projectilebounce.h"
#include "game/projectiledefault.h"
#include "game/projectileexplosion.h"
#include "game/projectilepierce.h"
#include "game/projectilepush.h"
#include "game/projectileswap.h"
#include "game/projectilevacuum.h"
#include "game/waypoint.h"
#include "render/particlesystemc.h"
#include "ui/button.h"
#include "ui/mainmenucontroller.h"
#include "ui/splashcontroller.h"
#include "ui/uielement.h"

namespace ZOVEngine {

template <class... T>
struct TypeList {};

/// The logic component tables in the order in which a step walks them. This is the one place that
/// says so: the fetch at start, the walk and the tests are made from it.
using LogicTables =
    TypeList<ParticleSystemC, Waypoint, GameController, SplashController, MainMenuController,
             UIElement, Button, Camera, Pathfinding, EnvironmentBlackhole, EnvironmentRough,
             EnvironmentDamage, EnvironmentDestructible, DeathField, ProjectileDefault,
             ProjectilePush, ProjectileSwap, ProjectileBounce, ProjectileExplosion,
             ProjectileVacuum, ProjectilePierce, Enemy, Player, AIComp>;

/// What stays live in a pause, in the order of its walk.
using PausedLogicTables = TypeList<ParticleSystemC, UIElement, Button>;

}  // namespace ZOVEngine
