#include "core/base/matrix4x4.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <type_traits>

namespace ZOVEngine {
namespace {

static_assert(sizeof(Matrix4x4) == 16 * sizeof(float));
static_assert(std::is_trivially_copyable_v<Matrix4x4>);

Matrix4x4 Counting(float first) {
  Matrix4x4 m;
  for (int i = 0; i < 16; ++i) m.m[i] = first + static_cast<float>(i);
  return m;
}

void ExpectNear(const Matrix4x4& a, const Matrix4x4& b, float tolerance) {
  for (int i = 0; i < 16; ++i) EXPECT_NEAR(a.m[i], b.m[i], tolerance) << "index " << i;
}

void ExpectEqual(const Matrix4x4& a, const Matrix4x4& b) {
  for (int i = 0; i < 16; ++i) EXPECT_EQ(a.m[i], b.m[i]) << "index " << i;
}

/// The determinant by expansion along rows: slow, and another way than the one under test.
double DeterminantOf(const Matrix4x4& m, int row, std::array<bool, 4> used) {
  if (row == 4) return 1.0;
  double sum = 0.0;
  double sign = 1.0;
  for (int c = 0; c < 4; ++c) {
    const auto column = static_cast<std::size_t>(c);
    if (used[column]) continue;
    std::array<bool, 4> next = used;
    next[column] = true;
    sum += sign * static_cast<double>(m.at[row][c]) * DeterminantOf(m, row + 1, next);
    sign = -sign;
  }
  return sum;
}

TEST(Matrix4x4, RowsComeFirst) {
  const Matrix4x4 m = Counting(0.0f);
  EXPECT_EQ(m.at[2][1], 9.0f);
  EXPECT_EQ(m.at[0][3], 3.0f);
}

TEST(Matrix4x4, ProductSumsRowsOfTheFirstWithColumnsOfTheSecond) {
  const Matrix4x4 a = Counting(1.0f);
  const Matrix4x4 b = Counting(-3.0f);
  const Matrix4x4 c = a * b;
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) {
      float sum = 0.0f;
      for (int k = 0; k < 4; ++k) sum += a.m[4 * row + k] * b.m[4 * k + column];
      EXPECT_EQ(c.m[4 * row + column], sum);
    }
  }
}

TEST(Matrix4x4, TranslationStandsAtIndices3And7) {
  Matrix4x4 expected = Matrix4x4::Identity();
  expected.m[3] = 5.0f;
  expected.m[7] = -6.0f;
  ExpectEqual(Matrix4x4::Translation(5.0f, -6.0f), expected);
}

TEST(Matrix4x4, ScaleStandsAtIndices0And5) {
  Matrix4x4 expected = Matrix4x4::Identity();
  expected.m[0] = 5.0f;
  expected.m[5] = -6.0f;
  ExpectEqual(Matrix4x4::Scale(5.0f, -6.0f), expected);
}

TEST(Matrix4x4, RotationTurnsCounterClockwiseAboutZ) {
  const Matrix4x4 m = Matrix4x4::Rotation(30.0f);
  const float radians = 30.0f * 3.1415927f / 180.0f;
  Matrix4x4 expected = Matrix4x4::Identity();
  expected.m[0] = std::cos(radians);
  expected.m[1] = -std::sin(radians);
  expected.m[4] = std::sin(radians);
  expected.m[5] = std::cos(radians);
  ExpectEqual(m, expected);
}

TEST(Matrix4x4, ARightAngleTakesXToYAndLeavesDepth) {
  const Vector3D v = Matrix4x4::Rotation(90.0f) * Vector3D(1.0f, 0.0f, 1.0f);
  EXPECT_NEAR(v.x, 0.0f, 1e-6f);
  EXPECT_NEAR(v.y, 1.0f, 1e-6f);
  EXPECT_EQ(v.z, 1.0f);
}

TEST(Matrix4x4, APointGetsTheTranslationOnceAndNoDivision) {
  Matrix4x4 m = Counting(1.0f);
  const Vector3D v = m * Vector3D(10.0f, 100.0f, 1000.0f);
  EXPECT_EQ(v, Vector3D(10.0f + 200.0f + 3000.0f + 4.0f, 50.0f + 600.0f + 7000.0f + 8.0f,
                        90.0f + 1000.0f + 11000.0f + 12.0f));
  m.m[15] = 1234.0f;
  EXPECT_EQ(m * Vector3D(10.0f, 100.0f, 1000.0f), v) << "the fourth row plays no part";
}

TEST(Matrix4x4, InverseTimesTheMatrixIsTheIdentity) {
  std::mt19937 random(7);
  std::uniform_real_distribution<float> number(-3.0f, 3.0f);
  for (int round = 0; round < 200; ++round) {
    Matrix4x4 m;
    for (float& entry : m.m) entry = number(random);
    Matrix4x4 inverse;
    float det = 0.0f;
    Inverse(&inverse, &det, m);
    const double expected = DeterminantOf(m, 0, {});
    ASSERT_NEAR(det, expected, 1e-3) << "round " << round;
    if (std::abs(expected) < 1.0) continue;
    ExpectNear(m * inverse, Matrix4x4::Identity(), 2e-3f);
    ExpectNear(inverse * m, Matrix4x4::Identity(), 2e-3f);
  }
}

TEST(Matrix4x4, InverseUndoesAMove) {
  Matrix4x4 inverse;
  float det = 0.0f;
  Inverse(&inverse, &det, Matrix4x4::Translation(3.0f, -4.0f));
  EXPECT_EQ(det, 1.0f);
  EXPECT_EQ(inverse * Vector3D(3.0f, -4.0f, 9.0f), Vector3D(0.0f, 0.0f, 9.0f));
}

TEST(Matrix4x4, InverseOfAZeroScaleLeavesOutAndTellsByTheDeterminant) {
  Matrix4x4 out = Counting(100.0f);
  float det = 5.0f;
  Inverse(&out, &det, Matrix4x4::Scale(0.0f, 2.0f));
  EXPECT_EQ(det, 0.0f);
  ExpectEqual(out, Counting(100.0f));
}

TEST(Matrix4x4, InverseMayWriteOverItsOperand) {
  Matrix4x4 m = Matrix4x4::Scale(4.0f, 0.5f);
  float det = 0.0f;
  Inverse(&m, &det, m);
  EXPECT_EQ(det, 2.0f);
  ExpectEqual(m, Matrix4x4::Scale(0.25f, 2.0f));
}

}  // namespace
}  // namespace ZOVEngine
