#pragma once

#include <gtest/gtest.h>

#include "core/base/vector3d.h"
#include "render/frame.h"

namespace carapace_test {

inline void ExpectColour(const ZOVEngine::DrawCommand& draw, float r, float g, float b, float a) {
  EXPECT_EQ(draw.colour[0], r);
  EXPECT_EQ(draw.colour[1], g);
  EXPECT_EQ(draw.colour[2], b);
  EXPECT_EQ(draw.colour[3], a);
}

inline void ExpectVector(const ZOVEngine::Vector3D& v, float x, float y, float z) {
  EXPECT_FLOAT_EQ(v.x, x);
  EXPECT_FLOAT_EQ(v.y, y);
  EXPECT_FLOAT_EQ(v.z, z);
}

}  // namespace carapace_test
