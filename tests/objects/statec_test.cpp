#include "objects/statec.h"

#include <gtest/gtest.h>

#include "support/reports.h"

namespace ZOVEngine {
namespace {

using carapace_test::OutputOf;
using carapace_test::ReadRecord;
using carapace_test::RecordOf;

TEST(StateC, ANewOneIsInNoState) {
  EXPECT_EQ(StateC(nullptr).m_state, "");
}

TEST(StateC, TheStateIsItsOneField) {
  StateC state(nullptr);
  ReadRecord(R"({"m_state": "loop", "m_timer": 3})", state);
  EXPECT_EQ(state.m_state, "loop");
  EXPECT_EQ(RecordOf(state), "{\n    \"m_state\": \"loop\"\n}");
}

TEST(StateC, AMissingStateIsNamedAndKeepsTheOneThatWas) {
  StateC state(nullptr);
  state.m_state = "spawn";
  EXPECT_EQ(OutputOf([&] { ReadRecord("{}", state); }), "Cant find Key: m_state\n");
  EXPECT_EQ(state.m_state, "spawn");
}

}  // namespace
}  // namespace ZOVEngine
