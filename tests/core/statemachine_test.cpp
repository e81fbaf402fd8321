#include "core/statemachine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/app/screens.h"
#include "core/engine.h"
#include "physicssystem.h"
#include "render/rendersystem.h"
#include "support/reports.h"
#include "support/world.h"
#include "ui/screens/splashcontroller.h"

namespace ZOVEngine {
namespace {

using carapace_test::Files;
using carapace_test::OutputOf;
using carapace_test::Record;
using carapace_test::ReportOf;
using carapace_test::TransformAt;
using carapace_test::World;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// Writes its calls down.
class LoggingState final : public State {
 public:
  LoggingState(std::string name, std::vector<std::string>* log)
      : m_name(std::move(name)), m_log(log) {}
  void Enter() override { m_log->push_back(m_name + " enter"); }
  void Update(float dt) override { m_log->push_back(m_name + " update " + std::to_string(dt)); }
  void Exit() override { m_log->push_back(m_name + " exit"); }
  void SendMessage(Message* message) override {
    m_log->push_back(m_name + " message " + std::to_string(message->id));
  }

 private:
  std::string m_name;
  std::vector<std::string>* m_log;
};

class StateMachineTest : public carapace_test::ScreenTest {
 protected:
  /// Puts states that log in the place of all four.
  void LogStates() {
    for (auto& [id, state] : g_state_machine->m_states) {
      state = std::make_unique<LoggingState>(std::to_string(id), &log);
    }
  }

  std::vector<std::string> log;
};

const std::string kDt = std::to_string(kStep);

// The state step

TEST_F(StateMachineTest, WithoutAChangeTheCurrentStateIsUpdated) {
  LogStates();
  g_state_machine->Step(kStep);
  EXPECT_THAT(log, ElementsAre("5 update " + kDt));
}

TEST_F(StateMachineTest, AChangeExitsThenEntersThenUpdates) {
  LogStates();
  g_state_machine->m_next = 3;
  g_state_machine->Step(kStep);
  EXPECT_THAT(log, ElementsAre("5 exit", "3 enter", "3 update " + kDt));
  EXPECT_EQ(g_state_machine->m_current, 3);
}

TEST_F(StateMachineTest, Id2LeavesAndEntersTheCurrentState) {
  LogStates();
  g_state_machine->m_next = 2;
  g_state_machine->Step(kStep);
  EXPECT_THAT(log, ElementsAre("5 exit", "5 enter", "5 update " + kDt));
  EXPECT_EQ(g_state_machine->m_current, 5);
  EXPECT_EQ(g_state_machine->m_next, 5);
}

TEST_F(StateMachineTest, AnUnknownIdIsReported) {
  ChangeState(1, "");
  EXPECT_THAT(ReportOf([] { g_state_machine->Step(kStep); }), HasSubstr("No state of id 1"));
}

TEST_F(StateMachineTest, TheStateStepComesFirstPausedOrNot) {
  for (const bool paused : {false, true}) {
    LogStates();
    log.clear();
    g_engine->paused = paused;
    world.Step();
    EXPECT_THAT(log, ElementsAre("5 update " + kDt, "5 message 12")) << "the step's contacts";
  }
}

// ChangeState

TEST_F(StateMachineTest, ChangeStateClearsAllObjectsAtOnce) {
  EXPECT_NE(world.Find("splash"), nullptr);
  ChangeState(kMainMenuState, "");
  EXPECT_THAT(g_game_obj_factory->m_objects, IsEmpty());
  EXPECT_EQ(g_state_machine->m_next, 3);
  EXPECT_EQ(g_state_machine->m_current, 5) << "the state is entered in the next step";
}

TEST_F(StateMachineTest, ChangeStateKeepsANonEmptyPathOnly) {
  ChangeState(kMainMenuState, "somewhere");
  EXPECT_EQ(g_state_machine->m_levelPath, "somewhere");
  ChangeState(kMainMenuState, "");
  EXPECT_EQ(g_state_machine->m_levelPath, "somewhere");
}

TEST_F(StateMachineTest, ChangeStateForgetsTheContacts) {
  g_physics_system->current.push_back({});
  g_physics_system->previous.push_back({});
  ChangeState(kMainMenuState, "");
  EXPECT_THAT(g_physics_system->current, IsEmpty());
  EXPECT_THAT(g_physics_system->previous, IsEmpty());
}

TEST_F(StateMachineTest, TheNewScreenIsThereAfterTheNextStep) {
  ChangeState(kMainMenuState, "");
  world.Step();
  EXPECT_NE(world.Find("menu"), nullptr);
  EXPECT_EQ(world.Find("splash"), nullptr);
}

TEST_F(StateMachineTest, NewObjectsGetInitAndUpdateInTheStepThatLoadsThem) {
  ChangeState(kMainMenuState, "");
  world.Step();
  ChangeState(kSplashState, "");
  world.Step();
  ASSERT_NE(world.Find("splash"), nullptr);
  EXPECT_TRUE(world.Find("splash")->GetComponent<SplashController>()->m_init);
}

TEST_F(StateMachineTest, AChangeToTheRunningStateLeavesTheScreenEmpty) {
  ChangeState(kSplashState, "");
  world.Step(3);
  EXPECT_THAT(g_game_obj_factory->m_objects, IsEmpty());
}

TEST_F(StateMachineTest, AChangeInAPauseTakesEffect) {
  g_engine->paused = true;
  ChangeState(kMainMenuState, "");
  world.Step();
  EXPECT_EQ(g_state_machine->m_current, 3);
  EXPECT_NE(world.Find("menu"), nullptr);
}

TEST_F(StateMachineTest, ARestartLoadsTheSameLevelAgain) {
  ChangeState(kDefaultState, "");
  world.Step();
  world.Find("level")->GetComponent<Transform>()->m_local_pos = Vector3D(50, 60, 1);
  ChangeState(kReenterState, "");
  EXPECT_THAT(g_game_obj_factory->m_objects, IsEmpty());
  world.Step();
  ASSERT_NE(world.Find("level"), nullptr);
  EXPECT_EQ(world.Find("level")->GetComponent<Transform>()->m_local_pos, Vector3D(0, 0, 1));
  EXPECT_EQ(g_state_machine->m_current, 0);
  EXPECT_EQ(g_state_machine->m_next, 0);
}

TEST_F(StateMachineTest, PhysicsColliderAndRenderRunWithNoObjects) {
  ChangeState(kSplashState, "");
  const int executed = world.device.executed;
  world.Step(2);
  EXPECT_EQ(world.device.executed, executed + 2);
}

// The receivers of a broadcast

TEST_F(StateMachineTest, ABroadcastGoesToTheCurrentStateOnly) {
  LogStates();
  world.Send(KeyUp(65));
  EXPECT_THAT(log, ElementsAre("5 message 6"));
}

TEST_F(StateMachineTest, ABroadcastWithACurrentIdThatIsNoStateIsDropped) {
  LogStates();
  g_state_machine->m_current = 77;
  world.Send(KeyUp(65));
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(StateMachineTest, AKeyReachesTheSplashScreenInAPauseToo) {
  g_engine->paused = true;
  world.native.Push(NativeEventKind::kKeyUp, 65);
  world.Step();
  EXPECT_TRUE(world.Find("splash")->GetComponent<SplashController>()->m_first_done);
}

}  // namespace
}  // namespace ZOVEngine
