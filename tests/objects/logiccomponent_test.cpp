#include "objects/logiccomponent.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/contactinfo.h"
#include "core/messages.h"
#include "support/probe.h"
#include "support/reports.h"

namespace ZOVEngine {
namespace {

using carapace_test::ReadRecord;
using carapace_test::RecordOf;

/// A component with the slots only that have no default.
class Bare final : public LogicComponent {
  RTTR_ENABLE(LogicComponent)

 public:
  using LogicComponent::LogicComponent;

  void Unserialize(const Value&) override {}
  void Serialize(Writer&) override {}
  void Init() override { m_init = true; }
  void Update(float) override {}
  void Destroy() override {}
  void OnMessage(Message*) override { ++heard; }

  int heard = 0;
};

class Quiet final : public QuietComponent {
  RTTR_ENABLE(QuietComponent)

 public:
  using QuietComponent::QuietComponent;

  void Unserialize(const Value&) override {}
  void Serialize(Writer&) override {}
  void Init() override { m_init = true; }
  void Update(float) override { ++steps; }

  int steps = 0;
};

class Empty final : public EmptyLogicComponent {
  RTTR_ENABLE(EmptyLogicComponent)

 public:
  using EmptyLogicComponent::EmptyLogicComponent;
};

TEST(LogicComponent, ANewOneIsNotInitialised) {
  EXPECT_FALSE(Bare(nullptr).m_init);
}

TEST(LogicComponent, AContactDoesNothingUnlessAClassAnswersIt) {
  Bare bare(nullptr);
  ContactInfo contact;
  contact.penetration = 2.0f;
  LogicComponent& logic = bare;
  logic.OnCollisionEnter(&contact);
  logic.OnCollisionStay(&contact);
  logic.OnCollisionExit(&contact);
  EXPECT_FALSE(contact.ignored);
  EXPECT_EQ(contact.penetration, 2.0f);
  EXPECT_EQ(bare.heard, 0);
}

TEST(LogicComponent, ACopyIsInitialisedAsItsSourceIs) {
  Bare source(nullptr);
  EXPECT_FALSE(Bare(source).m_init);
  source.Init();
  EXPECT_TRUE(Bare(source).m_init);
}

TEST(QuietComponent, HearsNoMessageAndNoEnd) {
  Quiet quiet(nullptr);
  LogicComponent& logic = quiet;
  KeyUp message(65);
  logic.OnMessage(&message);
  logic.Destroy();
  EXPECT_EQ(message.key, 65u);
  EXPECT_EQ(quiet.steps, 0);
  EXPECT_FALSE(quiet.m_init);
}

TEST(EmptyLogicComponent, HasNoRecord) {
  Empty empty(nullptr);
  ReadRecord(R"({"m_init": true})", empty);
  EXPECT_FALSE(empty.m_init);
  EXPECT_EQ(RecordOf(empty), "{}");
}

TEST(EmptyLogicComponent, AStepDoesNotInitialiseIt) {
  Empty empty(nullptr);
  empty.Update(1.0f);
  EXPECT_FALSE(empty.m_init);
  empty.Init();
  EXPECT_TRUE(empty.m_init);
}

}  // namespace
}  // namespace ZOVEngine
