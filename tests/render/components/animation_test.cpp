#include "render/components/animation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/inspected.h"
#include "support/reports.h"

namespace ZOVEngine {
namespace {

using carapace_test::InspectedFields;
using carapace_test::OutputOf;
using carapace_test::ReadRecord;
using carapace_test::RecordOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

TEST(Animation, ANewOneHasNoSheetsAndAFrameOfATwentiethSecond) {
  const Animation animation(nullptr);
  EXPECT_EQ(animation.m_timer, 0.0f);
  EXPECT_EQ(animation.m_currStep, 0.0f);
  for (const std::uint32_t frames : {animation.m_spawn_frames, animation.m_death_frames,
                                     animation.m_once_frames, animation.m_loop_frames}) {
    EXPECT_EQ(frames, 0u);
  }
  for (const std::string& sheet :
       {animation.m_spawn, animation.m_death, animation.m_once, animation.m_loop}) {
    EXPECT_EQ(sheet, "");
  }
  EXPECT_EQ(animation.m_time_per_frame, 0.05f);
}

TEST(Animation, ACountOfFramesThatIsMissingIsNamedAndTheOthersAreRead) {
  Animation animation(nullptr);
  const std::string output = OutputOf([&] {
    ReadRecord(R"({"m_once_frames": 6, "m_once": "Sheet_Boom", "m_currStep": 0.5})", animation);
  });
  EXPECT_THAT(output, HasSubstr("Cant find Key: m_spawn_frames\nCant find Key: m_death_frames\n"
                                "Cant find Key: m_loop_frames\n"));
  EXPECT_EQ(animation.m_once_frames, 6u);
  EXPECT_EQ(animation.m_once, "Sheet_Boom");
  EXPECT_EQ(animation.m_currStep, 0.5f) << "a step is kept in files like any field";
}

TEST(Animation, ASheetShownInsteadIsNotKeptInFiles) {
  Animation animation(nullptr);
  const std::string before = RecordOf(animation);
  animation.m_once_instead = "Sheet_Boom";
  EXPECT_EQ(RecordOf(animation), before);
}

TEST(Animation, TheInspectorShowsAllButTheTimerAndTheStep) {
  EXPECT_THAT(InspectedFields("Animation"),
              ElementsAre("m_spawn_frames|unsigned|Number of Frames (spawn)",
                          "m_death_frames|unsigned|Number of Frames (death)",
                          "m_once_frames|unsigned|Number of Frames(once)",
                          "m_loop_frames|unsigned|Number of Frames(loop)",
                          "m_spawn|std::string|Spawn Texture", "m_death|std::string|Death Texture",
                          "m_once|std::string|Once Texture", "m_loop|std::string|Loop Texture",
                          "m_time_per_frame|float|Time Per Frame"));
}

}  // namespace
}  // namespace ZOVEngine
