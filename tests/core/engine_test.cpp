#include "core/engine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "core/base/profile.h"

namespace ZOVEngine {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::int64_t kSecond = 1'000'000'000;
constexpr std::int64_t kMillisecond = 1'000'000;

/// Writes its calls into a list that all systems of a test share.
class LoggingSystem : public System {
 public:
  LoggingSystem(std::string name, std::vector<std::string>* log)
      : m_name(std::move(name)), m_log(log) {}

  void Update(float dt) override {
    m_log->push_back(m_name + " update");
    steps.push_back(dt);
    if (on_step) on_step();
  }
  void PausedUpdate(float dt) override {
    m_log->push_back(m_name + " paused");
    steps.push_back(dt);
    if (on_step) on_step();
  }
  void Init() override {}
  void SendMessage(Message* message) override {
    m_log->push_back(m_name + " message " + std::to_string(message->id));
    if (on_message) on_message(message);
  }

  std::function<void()> on_step;
  std::function<void(Message*)> on_message;
  std::vector<float> steps;

 private:
  std::string m_name;
  std::vector<std::string>* m_log;
};

void NoRest(std::int64_t) {}

/// An engine with two systems that log, and a clock that the test moves.
class EngineTest : public ::testing::Test {
 protected:
  EngineTest() { engine.systems = {&first, &second}; }

  /// Runs the loop on a clock that reads 0 at the start and then `time(steps so far)`. The loop is
  /// ended when it has looked at the clock many times without a step. Returns the number of steps.
  int StepsOver(const std::function<std::int64_t(int)>& time) {
    constexpr int kIdleLooks = 1000;
    int steps = 0;
    int looks_since_step = 0;
    bool started = false;
    const Clock clock = [&]() -> std::int64_t {
      if (++looks_since_step > kIdleLooks) engine.running = false;
      if (started) return time(steps);
      started = true;
      return 0;
    };
    MainLoop(engine, clock, NoRest, [&] {
      ++steps;
      looks_since_step = 0;
      log.push_back("head");
    });
    return steps;
  }

  std::vector<std::string> log;
  LoggingSystem first{"first", &log};
  LoggingSystem second{"second", &log};
  Engine engine;
};

TEST_F(EngineTest, ANewEngineRunsUnpausedAndEmpty) {
  const Engine fresh;
  EXPECT_TRUE(fresh.running);
  EXPECT_FALSE(fresh.paused);
  EXPECT_FALSE(fresh.step_paused);
  EXPECT_THAT(fresh.systems, IsEmpty());
}

TEST_F(EngineTest, TheConstantsAreTheNearestFloats) {
  EXPECT_EQ(kStep, 0.016666668f);
  EXPECT_EQ(kCatchUpLimit, 0.2f);
}

// The loop

TEST_F(EngineTest, AStallOfFiveSecondsRunsTwelveSteps) {
  EXPECT_EQ(StepsOver([](int) { return 5 * kSecond; }), 12);
}

TEST_F(EngineTest, AfterTwelveStepsTheClockIsReadAgain) {
  EXPECT_EQ(StepsOver([](int steps) { return steps < 12 ? 5 * kSecond : 10 * kSecond; }), 24);
}

TEST_F(EngineTest, TimeThatPassesInABurstCountsAtTheNextLookOnly) {
  // While a burst of twelve runs, the clock goes on by 20 ms a step, 240 ms in all.
  const auto slow = [](int steps) { return 5 * kSecond + std::min(steps, 12) * 20 * kMillisecond; };
  EXPECT_EQ(StepsOver(slow), 24);
}

TEST_F(EngineTest, AnAccumulatorOfExactlyOneStepRunsNothing) {
  constexpr std::int64_t kOneStep = 16'666'668;
  static_assert(static_cast<float>(kOneStep) / 1e9f == kStep);
  EXPECT_EQ(StepsOver([](int) { return kOneStep; }), 0);
}

TEST_F(EngineTest, AnAccumulatorJustAboveOneStepRunsOne) {
  constexpr std::int64_t kMore = 16'666'670;
  static_assert(static_cast<float>(kMore) / 1e9f > kStep);
  EXPECT_EQ(StepsOver([](int) { return kMore; }), 1);
}

TEST_F(EngineTest, TheRemainderStaysInTheAccumulator) {
  // 25 ms run one step and leave 8 ms, to which another 10 ms make the second.
  EXPECT_EQ(StepsOver([](int steps) { return (steps == 0 ? 25 : 35) * kMillisecond; }), 2);
  log.clear();
  engine.running = true;
  EXPECT_EQ(StepsOver([](int steps) { return (steps == 0 ? 25 : 33) * kMillisecond; }), 1);
}

TEST_F(EngineTest, TwoStepsOfTimeRunOneStep) {
  // The burst ends when no more than one step is left.
  constexpr std::int64_t kTwoSteps = 33'333'336;
  EXPECT_EQ(StepsOver([](int) { return kTwoSteps; }), 1);
}

TEST_F(EngineTest, SmallPiecesOfTimeAddUp) {
  int looks = 0;
  int steps = 0;
  const Clock clock = [&] {
    if (looks == 1000) engine.running = false;
    return static_cast<std::int64_t>(looks++) * kMillisecond;
  };
  MainLoop(engine, clock, NoRest, [&] { ++steps; });
  EXPECT_GE(steps, 58);  // a second, of which the last step may be still open
  EXPECT_LE(steps, 60);
}

/// A clock that goes on only while the loop rests, and by `step_time` in each step.
struct RestingRun {
  std::int64_t step_time = 0;  ///< (unit: nanoseconds)
  std::int64_t oversleep = 0;  ///< of each rest (unit: nanoseconds)
  std::int64_t now = 0;
  std::vector<std::int64_t> rests;
  int looks = 0;
  int steps = 0;

  void RunFor(Engine* engine, std::int64_t end) {
    const Clock clock = [&] {
      ++looks;
      if (now >= end) engine->running = false;
      return now;
    };
    const Rest rest = [&](std::int64_t nanoseconds) {
      rests.push_back(nanoseconds);
      now += nanoseconds + oversleep;
    };
    MainLoop(*engine, clock, rest, [&] {
      ++steps;
      now += step_time;
    });
  }
};

TEST_F(EngineTest, TheLoopRestsUntilTheNextStepIsDue) {
  RestingRun run;
  run.step_time = 5 * kMillisecond;
  run.RunFor(&engine, 10 * kSecond);
  EXPECT_NEAR(run.steps, 600, 1);
  EXPECT_NEAR(static_cast<double>(run.rests.size()), 600.0, 60.0) << "about one rest a step";
  for (const std::int64_t rest : run.rests) {
    EXPECT_GT(rest, 0);
    EXPECT_LE(rest, 16'666'669);
  }
  EXPECT_LE(run.looks, 4 * 660) << "it does not look again and again";
}

TEST_F(EngineTest, ARestThatIsTooLongCostsNoStep) {
  RestingRun run;
  run.oversleep = 3 * kMillisecond;
  run.RunFor(&engine, 10 * kSecond);
  EXPECT_NEAR(run.steps, 600, 1);
}

TEST_F(EngineTest, ALoopThatIsBehindDoesNotRest) {
  RestingRun run;
  run.step_time = 20 * kMillisecond;
  run.RunFor(&engine, kSecond);
  EXPECT_EQ(run.rests.size(), 1u) << "before the first step";
}

TEST_F(EngineTest, ALoopThatDoesNotRunTakesNoStep) {
  engine.running = false;
  EXPECT_EQ(StepsOver([](int) { return 5 * kSecond; }), 0);
}

TEST_F(EngineTest, AQuitInABurstLetsTheBurstRun) {
  int steps_at_quit = 0;
  first.on_step = [&] {
    if (++steps_at_quit == 3) engine.running = false;
  };
  EXPECT_EQ(StepsOver([](int) { return 5 * kSecond; }), 12);
  EXPECT_EQ(second.steps.size(), 12u);
}

TEST_F(EngineTest, EveryStepBeginsWithItsHeadPausedOrNot) {
  first.on_step = [&] { engine.paused = true; };
  // 40 ms are two steps and a remainder.
  EXPECT_EQ(StepsOver([](int) { return 40 * kMillisecond; }), 2);
  EXPECT_THAT(log, ElementsAre("head", "first update", "second update", "head", "first paused",
                               "second paused"));
}

TEST_F(EngineTest, EverySystemGetsTheSameStepLength) {
  first.on_step = [&] { engine.paused = !engine.paused; };
  StepsOver([](int) { return 5 * kSecond; });
  EXPECT_THAT(first.steps, Each(0.016666668f));
  EXPECT_THAT(second.steps, Each(0.016666668f));
}

TEST_F(EngineTest, TheRateOfStepsIsRecorded) {
  ProfileTable().erase("FPS");
  // The one step takes 20 ms of the clock: it is read before and after.
  first.on_step = [&] { engine.running = false; };
  StepsOver([](int steps) { return 25 * kMillisecond + steps * 20 * kMillisecond; });
  ASSERT_EQ(ProfileTable().count("FPS"), 1u);
  EXPECT_FLOAT_EQ(ProfileTable()["FPS"].value, 50.0f);
  EXPECT_FALSE(ProfileTable()["FPS"].isSystemTime);
}

// One step

TEST_F(EngineTest, AStepUpdatesAllSystemsInOrder) {
  RunStep(engine, [&] { log.push_back("head"); });
  EXPECT_THAT(log, ElementsAre("head", "first update", "second update"));
}

TEST_F(EngineTest, SettingPausedInAStepTakesEffectInTheNext) {
  first.on_step = [&] { engine.paused = true; };
  RunStep(engine, [] {});
  EXPECT_THAT(log, ElementsAre("first update", "second update"));
  log.clear();
  RunStep(engine, [] {});
  EXPECT_THAT(log, ElementsAre("first paused", "second paused"));
}

TEST_F(EngineTest, ClearingPausedInAStepTakesEffectInTheNext) {
  engine.paused = true;
  first.on_step = [&] { engine.paused = false; };
  RunStep(engine, [] {});
  EXPECT_THAT(log, ElementsAre("first paused", "second paused"));
}

TEST_F(EngineTest, AStepSaysHowItRunsWhateverIsAskedForMeanwhile) {
  for (const bool pause : {true, false}) {
    engine.paused = !pause;
    first.on_step = [&] { engine.paused = pause; };
    second.on_step = [&] { EXPECT_EQ(engine.step_paused, !pause); };
    RunStep(engine, [] {});
  }
}

TEST_F(EngineTest, PausedIsReadAfterTheHeadOfTheStep) {
  RunStep(engine, [&] { engine.paused = true; });
  EXPECT_THAT(log, ElementsAre("first paused", "second paused"));
}

// Broadcasts

TEST_F(EngineTest, ABroadcastReachesEverySystemInOrder) {
  KeyUp message(65);
  engine.Broadcast(&message);
  EXPECT_THAT(log, ElementsAre("first message 6", "second message 6"));
  EXPECT_TRUE(engine.running);
}

TEST_F(EngineTest, ABroadcastOfId0IsDeliveredToNobodyAndClearsRunning) {
  Message quit;
  engine.Broadcast(&quit);
  EXPECT_FALSE(engine.running);
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(EngineTest, ASubclassWithId0QuitsToo) {
  KeyUp message(65);
  message.id = 0;
  engine.Broadcast(&message);
  EXPECT_FALSE(engine.running);
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(EngineTest, AfterAQuitTheCurrentStepGoesOnToItsEnd) {
  first.on_step = [&] {
    Message quit;
    engine.Broadcast(&quit);
  };
  RunStep(engine, [] {});
  EXPECT_THAT(log, ElementsAre("first update", "second update"));
  EXPECT_FALSE(engine.running);
}

TEST_F(EngineTest, AMessageSentFromAHandlerRunsToItsEndFirst) {
  first.on_message = [&](Message* message) {
    if (message->id != kKeyUp) return;
    KeyDown inner(66);
    engine.Broadcast(&inner);
  };
  KeyUp outer(65);
  engine.Broadcast(&outer);
  EXPECT_THAT(log, ElementsAre("first message 6", "first message 5", "second message 5",
                               "second message 6"));
}

TEST_F(EngineTest, AMessageSentInAPausedStepTravelsTheSameWay) {
  engine.paused = true;
  first.on_step = [&] {
    KeyUp message(65);
    engine.Broadcast(&message);
  };
  RunStep(engine, [] {});
  EXPECT_THAT(log,
              ElementsAre("first paused", "first message 6", "second message 6", "second paused"));
}

TEST_F(EngineTest, AReceiversAnswerReachesTheSender) {
  second.on_message = [](Message* message) { dynamic_cast<CurrGC&>(*message).objectId = 9; };
  CurrGC query;
  engine.Broadcast(&query);
  EXPECT_EQ(query.objectId, 9u);
}

// The base classes

/// Leaves PausedUpdate as the base class has it.
class PlainSystem : public System {
 public:
  void Update(float) override { ++updates; }
  void Init() override {}
  void SendMessage(Message*) override {}
  int updates = 0;
};

class AlwaysSystem : public UnpausedSystem {
 public:
  void Update(float dt) override { last_dt = dt; }
  void Init() override {}
  void SendMessage(Message*) override {}
  float last_dt = 0.0f;
};

TEST_F(EngineTest, ASystemDoesNothingInAPauseUnlessItSaysOtherwise) {
  PlainSystem plain;
  engine.systems = {&plain};
  engine.paused = true;
  RunStep(engine, [] {});
  EXPECT_EQ(plain.updates, 0);
}

TEST_F(EngineTest, AnUnpausedSystemForwardsToItsUpdate) {
  AlwaysSystem always;
  engine.systems = {&always};
  engine.paused = true;
  RunStep(engine, [] {});
  EXPECT_EQ(always.last_dt, kStep);
}

}  // namespace
}  // namespace ZOVEngine
