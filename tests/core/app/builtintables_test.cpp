#include "core/app/builtintables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "objects/gameobjfactory.h"

namespace ZOVEngine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

template <class T>
bool IsRegistered() {
  return g_component_tables->count(&typeid(T)) == 1;
}

TEST(BuiltInTables, AreThoseThatBelongToNoOtherSystem) {
  std::vector<std::string> names;
  BuiltInTables::ForEach([&]<class T>() { names.push_back(ClassName<T>()); });
  EXPECT_THAT(names, ElementsAre("iModel", "StateC", "Particle", "ParticleSystemC", "Waypoint",
                                 "Light", "AudioSource"));
}

TEST(BuiltInTables, AreRegisteredByTheFactorysInitAndNotBefore) {
  GameObjFactory factory;
  EXPECT_THAT(*g_component_tables, IsEmpty());
  factory.Init();
  BuiltInTables::ForEach([]<class T>() { EXPECT_TRUE(IsRegistered<T>()) << ClassName<T>(); });
  EXPECT_EQ(g_component_tables->size(), 7u);
}

}  // namespace
}  // namespace ZOVEngine
