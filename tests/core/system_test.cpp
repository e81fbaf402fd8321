#include "core/system.h"

#include <gtest/gtest.h>

#include <rttr/type>

namespace ZOVEngine {
namespace {

/// Counts its steps.
template <class Base>
class CountingSystem final : public Base {
 public:
  void Update(float dt) override {
    ++updates;
    last_dt = dt;
  }
  void Init() override {}
  void SendMessage(Message*) override {}

  int updates = 0;
  float last_dt = 0.0f;
};

TEST(System, APauseIsAStepInWhichNothingIsDone) {
  CountingSystem<System> system;
  System& base = system;
  base.PausedUpdate(0.5f);
  EXPECT_EQ(system.updates, 0);
  base.Update(0.5f);
  EXPECT_EQ(system.updates, 1);
}

TEST(UnpausedSystem, DoesTheSameInAPause) {
  CountingSystem<UnpausedSystem> system;
  System& base = system;
  base.PausedUpdate(0.25f);
  EXPECT_EQ(system.updates, 1);
  EXPECT_EQ(system.last_dt, 0.25f);
}

TEST(UnpausedSystem, IsKnownAsASystem) {
  EXPECT_TRUE(rttr::type::get<UnpausedSystem>().is_derived_from<System>());
}

}  // namespace
}  // namespace ZOVEngine
