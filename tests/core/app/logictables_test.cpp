#include "core/app/logictables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

#include "objects/gameobjfactory.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using ::testing::ContainerEq;
using ::testing::ElementsAre;

const char* const kSources = CARAPACE_SOURCE_DIR "/zovengine";

template <class... T>
std::vector<std::string> Names(TypeList<T...>) {
  return {g_game_obj_factory->TypeName(&typeid(T))...};
}

std::set<std::string> TableNames() {
  std::set<std::string> names;
  for (const auto& [type, table] : *g_component_tables) {
    names.insert(g_game_obj_factory->TypeName(type));
  }
  return names;
}

/// The base of each class of the engine's headers, by the class's name.
std::map<std::string, std::string> ClassBases() {
  std::map<std::string, std::string> bases;
  const std::regex head(R"(\bclass (\w+)( final)? : public (\w+))");
  for (const auto& file : std::filesystem::recursive_directory_iterator(kSources)) {
    if (file.path().extension() != ".h") continue;
    std::ifstream stream(file.path());
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    for (std::sregex_iterator found(text.begin(), text.end(), head), end; found != end; ++found) {
      bases[(*found)[1]] = (*found)[3];
    }
  }
  return bases;
}

/// The classes that derive from GameComponentBase and that no other class derives from.
std::set<std::string> ComponentClasses() {
  const std::map<std::string, std::string> bases = ClassBases();
  std::set<std::string> derived_from;
  for (const auto& [name, base] : bases) derived_from.insert(base);
  std::set<std::string> components;
  for (const auto& [name, direct] : bases) {
    if (derived_from.count(name) != 0) continue;
    std::string base = direct;
    while (bases.count(base) != 0) base = bases.at(base);
    if (base == "GameComponentBase") components.insert(name);
  }
  return components;
}

TEST(LogicTables, AStepWalksTheTablesInOneFixedOrder) {
  const carapace_test::World world;
  EXPECT_THAT(
      Names(LogicTables()),
      ElementsAre("ParticleSystemC", "Waypoint", "GameController", "SplashController",
                  "MainMenuController", "UIElement", "Button", "Camera", "Pathfinding",
                  "EnvironmentBlackhole", "EnvironmentRough", "EnvironmentDamage",
                  "EnvironmentDestructible", "DeathField", "ProjectileDefault", "ProjectilePush",
                  "ProjectileSwap", "ProjectileBounce", "ProjectileExplosion", "ProjectileVacuum",
                  "ProjectilePierce", "Enemy", "Player", "AIComp"));
}

TEST(LogicTables, APauseLeavesParticlesInterfaceAndButtonsLive) {
  const carapace_test::World world;
  EXPECT_THAT(Names(PausedLogicTables()), ElementsAre("ParticleSystemC", "UIElement", "Button"));
}

TEST(LogicTables, EveryComponentClassOfTheEngineHasATable) {
  const carapace_test::World world;
  EXPECT_THAT(TableNames(), ContainerEq(ComponentClasses()));
}

template <class... T>
constexpr bool AllAreLogicComponents(TypeList<T...>) {
  return (std::is_base_of_v<LogicComponent, T> && ...);
}
static_assert(AllAreLogicComponents(LogicTables()));

}  // namespace
}  // namespace ZOVEngine
