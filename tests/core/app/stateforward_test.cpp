#include "core/app/stateforward.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

class ForwarderTest : public ::testing::Test {
 protected:
  ForwarderTest() {
    carapace_test::RegisterProbes();
    world.LoadObjects(B("b1") + "," + A("a1") + "," + B("b2") + "," + A("a2"));
  }
  World world;
};

TEST_F(ForwarderTest, ReceiversAreCalledTypeByTypeAndInTableOrder) {
  Forwarder<ProbeA, ProbeB> forwarder;
  KeyUp message(65);
  forwarder.Send(&message);
  EXPECT_THAT(ProbeLog(),
              ElementsAre("a1 OnMessage 6", "a2 OnMessage 6", "b1 OnMessage 6", "b2 OnMessage 6"));
}

TEST_F(ForwarderTest, InactiveReceiversHearToo) {
  Forwarder<ProbeA> forwarder;
  world.Find("a1")->SetActive(false);
  KeyUp message(65);
  forwarder.Send(&message);
  EXPECT_THAT(ProbeLog(), ElementsAre("a1 OnMessage 6", "a2 OnMessage 6"));
}

TEST_F(ForwarderTest, AReceiverThatClearsTheSceneIsTheLastOne) {
  Forwarder<ProbeA, ProbeB> forwarder;
  world.Find("a1")->GetComponent<ProbeA>()->on_message = [](Message*) {
    g_game_obj_factory->ClearObjects();
  };
  KeyUp message(65);
  forwarder.Send(&message);
  EXPECT_THAT(ProbeLog(), ElementsAre("a1 OnMessage 6"));
}

TEST_F(ForwarderTest, AReceiverMadeByAnotherIsNotInTheSameWalk) {
  Forwarder<ProbeA> forwarder;
  bool made = false;
  world.Find("a1")->GetComponent<ProbeA>()->on_message = [&](Message*) {
    if (made) return;
    made = true;
    world.LoadObjects(A("a3"));
  };
  KeyUp message(65);
  forwarder.Send(&message);
  EXPECT_THAT(ProbeLog(), ElementsAre("a1 OnMessage 6", "a2 OnMessage 6"));
}

TEST_F(ForwarderTest, AReceiverMaySendAgain) {
  Forwarder<ProbeA> forwarder;
  world.Find("a1")->GetComponent<ProbeA>()->on_message = [&](Message* message) {
    if (message->id != kKeyUp) return;
    KeyDown inner(66);
    forwarder.Send(&inner);
  };
  KeyUp message(65);
  forwarder.Send(&message);
  EXPECT_THAT(ProbeLog(),
              ElementsAre("a1 OnMessage 6", "a1 OnMessage 5", "a2 OnMessage 5", "a2 OnMessage 6"));
}

TEST_F(ForwarderTest, NoReceiversIsNoFault) {
  g_game_obj_factory->ClearObjects();
  Forwarder<ProbeA, ProbeB> forwarder;
  KeyUp message(65);
  forwarder.Send(&message);
  EXPECT_THAT(ProbeLog(), IsEmpty());
}

}  // namespace
}  // namespace ZOVEngine
