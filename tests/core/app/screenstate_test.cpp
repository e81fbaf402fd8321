#include "core/app/screenstate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/messages.h"
#include "support/probe.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::ProbeA;
using carapace_test::ProbeB;
using carapace_test::ProbeLog;
using carapace_test::Record;
using carapace_test::World;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string A(const std::string& label) {
  return Record(label, {{"ProbeA", "{\"label\": \"" + label + "\"}"}});
}
std::string B(const std::string& label) {
  return Record(label, {{"ProbeB", "{\"label\": \"" + label + "\"}"}});
}

/// A screen whose receivers are probes.
template <class... Receiver>
class ProbeScreen final : public ScreenState<Receiver...> {
 public:
  void Enter() override {}
};

class ScreenStateTest : public ::testing::Test {
 protected:
  ScreenStateTest() {
    carapace_test::RegisterProbes();
    world.LoadObjects(B("b1") + "," + A("a1") + "," + B("b2") + "," + A("a2"));
  }

  static void SendKey(State& screen) {
    KeyUp message(65);
    screen.SendMessage(&message);
  }

  World world;
};

TEST_F(ScreenStateTest, ReceiversAreCalledClassByClassAndInTableOrder) {
  ProbeScreen<ProbeA, ProbeB> screen;
  SendKey(screen);
  EXPECT_THAT(ProbeLog(),
              ElementsAre("a1 OnMessage 6", "a2 OnMessage 6", "b1 OnMessage 6", "b2 OnMessage 6"));
}

TEST_F(ScreenStateTest, OnlyTheListedClassesHear) {
  ProbeScreen<ProbeB> screen;
  SendKey(screen);
  EXPECT_THAT(ProbeLog(), ElementsAre("b1 OnMessage 6", "b2 OnMessage 6"));
}

TEST_F(ScreenStateTest, InactiveReceiversHearToo) {
  ProbeScreen<ProbeA> screen;
  world.Find("a1")->SetActive(false);
  SendKey(screen);
  EXPECT_THAT(ProbeLog(), ElementsAre("a1 OnMessage 6", "a2 OnMessage 6"));
}

TEST_F(ScreenStateTest, AReceiverThatClearsTheSceneIsTheLastOne) {
  ProbeScreen<ProbeA, ProbeB> screen;
  world.Find("a1")->GetComponent<ProbeA>()->on_message = [](Message*) {
    g_game_obj_factory->ClearObjects();
  };
  SendKey(screen);
  EXPECT_THAT(ProbeLog(), ElementsAre("a1 OnMessage 6"));
}

TEST_F(ScreenStateTest, AReceiverMadeByAnotherIsNotInTheSameWalk) {
  ProbeScreen<ProbeA> screen;
  bool made = false;
  world.Find("a1")->GetComponent<ProbeA>()->on_message = [&](Message*) {
    if (made) return;
    made = true;
    world.LoadObjects(A("a3"));
  };
  SendKey(screen);
  EXPECT_THAT(ProbeLog(), ElementsAre("a1 OnMessage 6", "a2 OnMessage 6"));
}

TEST_F(ScreenStateTest, AReceiverMaySendAgain) {
  ProbeScreen<ProbeA> screen;
  world.Find("a1")->GetComponent<ProbeA>()->on_message = [&](Message* message) {
    if (message->id != kKeyUp) return;
    KeyDown inner(66);
    screen.SendMessage(&inner);
  };
  SendKey(screen);
  EXPECT_THAT(ProbeLog(),
              ElementsAre("a1 OnMessage 6", "a1 OnMessage 5", "a2 OnMessage 5", "a2 OnMessage 6"));
}

TEST_F(ScreenStateTest, NoReceiversIsNoFault) {
  g_game_obj_factory->ClearObjects();
  ProbeScreen<ProbeA, ProbeB> screen;
  SendKey(screen);
  EXPECT_THAT(ProbeLog(), IsEmpty());
}

TEST_F(ScreenStateTest, UpdateAndExitTouchNothing) {
  ProbeScreen<ProbeA> screen;
  screen.Update(1.0f);
  screen.Exit();
  EXPECT_THAT(ProbeLog(), IsEmpty());
  EXPECT_EQ(g_game_obj_factory->m_objects.size(), 4u);
}

}  // namespace
}  // namespace ZOVEngine
