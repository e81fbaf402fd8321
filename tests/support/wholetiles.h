#pragma once

#include <gtest/gtest.h>

#include "render/frame.h"

namespace carapace_test {

/// Every tile of a level's frame shows the whole of its texture.
inline void ExpectWholeTiles(const ZOVEngine::Frame& shown) {
  ASSERT_GT(shown.ground, 100u);
  for (std::size_t i = 1; i < shown.ground; ++i) {  // the first is the background
    ASSERT_EQ(shown.commands[i].window.u_left, 0.0f) << "tile " << i;
    ASSERT_EQ(shown.commands[i].window.u_right, 1.0f) << "tile " << i;
  }
}

}  // namespace carapace_test
