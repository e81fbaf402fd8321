#include "core/base/vector3d.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

namespace ZOVEngine {
namespace {

static_assert(sizeof(Vector3D) == 3 * sizeof(float), "there are no hidden members");
static_assert(std::is_trivially_copyable_v<Vector3D>);

TEST(Vector3D, NamesAndIndicesAreTheSameFloats) {
  Vector3D v(1.0f, 2.0f, 3.0f);
  EXPECT_EQ(v.v[0], 1.0f);
  EXPECT_EQ(v.v[1], 2.0f);
  EXPECT_EQ(v.v[2], 3.0f);
  v.v[1] = 7.0f;
  EXPECT_EQ(v.y, 7.0f);
}

TEST(Vector3D, SumAndDifferenceGoComponentByComponent) {
  const Vector3D a(1.0f, 2.0f, 3.0f);
  const Vector3D b(10.0f, 20.0f, 40.0f);
  EXPECT_EQ(a + b, Vector3D(11.0f, 22.0f, 43.0f));
  EXPECT_EQ(b - a, Vector3D(9.0f, 18.0f, 37.0f));
  Vector3D c = a;
  c += b;
  EXPECT_EQ(c, Vector3D(11.0f, 22.0f, 43.0f));
  c -= b;
  EXPECT_EQ(c, a);
}

TEST(Vector3D, ScalingActsOnAllThreeComponents) {
  Vector3D v(1.0f, -2.0f, 4.0f);
  EXPECT_EQ(v * 2.0f, Vector3D(2.0f, -4.0f, 8.0f));
  EXPECT_EQ(v / 2.0f, Vector3D(0.5f, -1.0f, 2.0f));
  v *= 3.0f;
  EXPECT_EQ(v, Vector3D(3.0f, -6.0f, 12.0f));
  v /= 3.0f;
  EXPECT_EQ(v, Vector3D(1.0f, -2.0f, 4.0f));
}

TEST(Vector3D, TheDivisorIsNotChecked) {
  Vector3D v(1.0f, -1.0f, 0.0f);
  v /= 0.0f;
  EXPECT_EQ(v.x, std::numeric_limits<float>::infinity());
  EXPECT_EQ(v.y, -std::numeric_limits<float>::infinity());
  EXPECT_TRUE(std::isnan(v.z));
}

TEST(Vector3D, DotAndLengthTakeAllThreeComponents) {
  EXPECT_EQ(Dot(Vector3D(1.0f, 2.0f, 3.0f), Vector3D(4.0f, 5.0f, 6.0f)), 32.0f);
  EXPECT_EQ(Vector3D(2.0f, 3.0f, 6.0f).Length(), 7.0f);
}

TEST(Vector3D, NormalizedDividesTheDepthToo) {
  const Vector3D n = Vector3D(0.0f, 3.0f, 4.0f).Normalized();
  EXPECT_EQ(n, Vector3D(0.0f, 3.0f / 5.0f, 4.0f / 5.0f));
}

TEST(Vector3D, NormalizedZeroIsZeroAndNoNan) {
  EXPECT_EQ(Vector3D().Normalized(), Vector3D(0.0f, 0.0f, 0.0f));
}

TEST(Vector3D, AHeadingIsCountedFromUpwardToTheLeft) {
  EXPECT_NEAR(Heading(Vector3D(0.0f, 5.0f, 9.0f)), 0.0f, 1e-4f);
  EXPECT_NEAR(Heading(Vector3D(5.0f, 0.0f, 0.0f)), -90.0f, 1e-4f);
  EXPECT_NEAR(Heading(Vector3D(0.0f, -5.0f, 0.0f)), -180.0f, 1e-4f);
  EXPECT_NEAR(Heading(Vector3D(-5.0f, 0.0f, 0.0f)), 90.0f, 1e-4f);
  EXPECT_NEAR(Heading(Vector3D(-5.0f, -0.001f, 0.0f)), -270.0f, 0.1f);
}

TEST(Vector3D, DegreesGoThroughTheFloatPi) {
  EXPECT_EQ(DegreesToRadians(180.0f), 180.0f * 3.1415927f / 180.0f);
  EXPECT_EQ(DegreesToRadians(-90.0f), -90.0f * 3.1415927f / 180.0f);
}

}  // namespace
}  // namespace ZOVEngine
