// What tiles and particles of the shipped levels look like from frame to frame.
#include <gtest/gtest.h>

#include <string>

#include "autoplay/autoplayer.h"
#include "core/base/random.h"
#include "support/levelgame.h"
#include "support/wholetiles.h"

namespace carapace_test {
namespace {

/// A crystal as an author may leave it in a level, above all that the level has.
const char* const kCrystal = R"({"name": "late crystal", "active": true,
    "components": ["Transform", "Render", "iModel", "Animation", "StateC"],
    "Transform": {"m_pos": [0, 0, 1], "m_scale": [66, 66, 1], "m_rotate": 0},
    "Render": {"m_tile": false, "m_visible": true, "m_tex": "Sheet_Env_DestructibleA",
               "m_colour": [1, 1, 1, 1], "m_shader": "default"},
    "iModel": {"m_vertices": [[0, 0, 0, 0, 0, 255, 255, 255, 255]],
               "m_index_buffer": [0, 1, 3, 1, 2, 3]},
    "Animation": {"m_loop_frames": 4, "m_loop": "Sheet_Env_DestructibleA",
                  "m_time_per_frame": 0.18},
    "StateC": {"m_state": "loop"}, "Childs": []})";

class LevelFrames : public ::testing::TestWithParam<const char*> {
 protected:
  /// Looks at the tiles in so many frames from the current one on.
  void ExpectWholeTilesFor(int frames) {
    for (int frame = 1; frame <= frames && !HasFatalFailure(); ++frame, m_game.world.Step()) {
      SCOPED_TRACE("frame " + std::to_string(frame));
      ExpectWholeTiles(m_game.world.device.frame);
    }
  }

  LevelGame m_game{GetParam(), 1};
};

TEST_P(LevelFrames, TilesAreWholeFromTheFirstFrameOn) {
  ExpectWholeTilesFor(60);
}

TEST_P(LevelFrames, TilesStayWholeBesideAnAnimationAboveAllElse) {
  m_game.world.LoadObjects(kCrystal);
  m_game.world.Step(3);
  ExpectWholeTilesFor(30);
}

TEST_P(LevelFrames, TilesAndParticlesAreWholeWhateverFlies) {
  ZOVEngine::SeedRand(5);
  ZOVEngine::AutoPlayer player;
  std::size_t particles = 0;
  for (int step = 0; step < 1200; ++step) {
    player.Step();
    const ZOVEngine::Frame& shown = m_game.world.device.frame;
    ExpectWholeTiles(shown);
    for (const ZOVEngine::DrawCommand& command : shown.commands) {
      if (command.kind != ZOVEngine::DrawCommand::Kind::kInstances) continue;
      particles += command.count;
      ASSERT_EQ(command.window.u_left, 0.0f) << "step " << step;
      ASSERT_EQ(command.window.u_right, 1.0f) << "step " << step;
    }
    if (HasFatalFailure()) return;
  }
  EXPECT_GT(particles, 1000u);
}

INSTANTIATE_TEST_SUITE_P(Shipped, LevelFrames,
                         ::testing::Values("Level00", "Level01", "Level02", "Level03", "Level04"),
                         [](const auto& level) { return std::string(level.param); });

}  // namespace
}  // namespace carapace_test
