#include "core/app/logictables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

#include "objects/gameobjfactory.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using ::testing::ElementsAre;

template <class... T>
std::vector<std::string> NamesOf(TypeList<T...>) {
  return {g_game_obj_factory->TypeName(&typeid(T))...};
}

TEST(LogicTables, AStepWalksTheTablesInOneFixedOrder) {
  const carapace_test::World world;
  EXPECT_THAT(
      NamesOf(LogicTables()),
      ElementsAre("ParticleSystemC", "Waypoint", "GameController", "SplashController",
                  "MainMenuController", "UIElement", "Button", "Camera", "Pathfinding",
                  "EnvironmentBlackhole", "EnvironmentRough", "EnvironmentDamage",
                  "EnvironmentDestructible", "DeathField", "ProjectileDefault", "ProjectilePush",
                  "ProjectileSwap", "ProjectileBounce", "ProjectileExplosion", "ProjectileVacuum",
                  "ProjectilePierce", "Enemy", "Player", "AIComp"));
}

TEST(LogicTables, APauseLeavesParticlesInterfaceAndButtonsLive) {
  const carapace_test::World world;
  EXPECT_THAT(NamesOf(PausedLogicTables()), ElementsAre("ParticleSystemC", "UIElement", "Button"));
}

template <class... T>
constexpr bool AllAreLogicComponents(TypeList<T...>) {
  return (std::is_base_of_v<LogicComponent, T> && ...);
}
static_assert(AllAreLogicComponents(LogicTables()));

}  // namespace
}  // namespace ZOVEngine
