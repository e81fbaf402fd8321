#include "objects/playercreator.h"

#include <gtest/gtest.h>

#include "support/world.h"

namespace ZOVEngine {
namespace {

TEST(PlayerCreator, IsRegisteredUnderType0) {
  EXPECT_EQ(kPlayerCreator, 0u);
}

TEST(PlayerCreatorDeathTest, FailsInTheLookupOfABoxsTable) {
  carapace_test::World world;
  EXPECT_EXIT(
      {
        try {
          g_game_obj_factory->Create(kPlayerCreator);
        } catch (const std::out_of_range& error) {
          std::cerr << error.what() << std::endl;
          std::_Exit(3);
        }
        std::_Exit(0);
      },
      ::testing::ExitedWithCode(3), "invalid unordered_map<K, T> key");
}

}  // namespace
}  // namespace ZOVEngine
