#include "core/base/matrix4x4.h"

namespace ZOVEngine {

Matrix4x4 Matrix4x4::Identity() {
  Matrix4x4 out;
  out.m[0] = out.m[5] = out.m[10] = out.m[15] = 1.0f;
  return out;
}

Matrix4x4 Matrix4x4::Translation(float tx, float ty) {
  Matrix4x4 out = Identity();
  out.m[3] = tx;
  out.m[7] = ty;
  return out;
}

Matrix4x4 Matrix4x4::Scale(float sx, float sy) {
  Matrix4x4 out = Identity();
  out.m[0] = sx;
  out.m[5] = sy;
  return out;
}

Matrix4x4 Matrix4x4::Rotation(float degrees) {
  const float radians = DegreesToRadians(degrees);
  const float cosine = std::cos(radians);
  const float sine = std::sin(radians);
  Matrix4x4 out = Identity();
  out.m[0] = cosine;
  out.m[1] = -sine;
  out.m[4] = sine;
  out.m[5] = cosine;
  return out;
}

Matrix4x4 operator*(const Matrix4x4& a, const Matrix4x4& b) {
  Matrix4x4 out;
  for (int r = 0; r < 4; ++r) {
    for (int c = 0; c < 4; ++c) {
      float sum = 0.0f;
      for (int k = 0; k < 4; ++k) sum += a.at[r][k] * b.at[k][c];
      out.at[r][c] = sum;
    }
  }
  return out;
}

Vector3D operator*(const Matrix4x4& m, const Vector3D& v) {
  return Vector3D(m.m[0] * v.x + m.m[1] * v.y + m.m[2] * v.z + m.m[3],
                  m.m[4] * v.x + m.m[5] * v.y + m.m[6] * v.z + m.m[7],
                  m.m[8] * v.x + m.m[9] * v.y + m.m[10] * v.z + m.m[11]);
}

namespace {

/// The six 2x2 determinants of a pair of rows, by columns (0,1) (0,2) (0,3) (1,2) (1,3) (2,3).
struct RowPairMinors {
  float d01, d02, d03, d12, d13, d23;
};

RowPairMinors RowMinors(const float* p, const float* q) {
  return {p[0] * q[1] - q[0] * p[1], p[0] * q[2] - q[0] * p[2], p[0] * q[3] - q[0] * p[3],
          p[1] * q[2] - q[1] * p[2], p[1] * q[3] - q[1] * p[3], p[2] * q[3] - q[2] * p[3]};
}

/// One row pair of cofactors: `row` is the row of `m` combined with the minors of the other pair.
void CofactorColumn(const float* row, const RowPairMinors& n, float scale, float column[4]) {
  column[0] = (row[1] * n.d23 - row[2] * n.d13 + row[3] * n.d12) * scale;
  column[1] = (-row[0] * n.d23 + row[2] * n.d03 - row[3] * n.d02) * scale;
  column[2] = (row[0] * n.d13 - row[1] * n.d03 + row[3] * n.d01) * scale;
  column[3] = (-row[0] * n.d12 + row[1] * n.d02 - row[2] * n.d01) * scale;
}

}  // namespace

void Inverse(Matrix4x4* out, float* det, const Matrix4x4& m) {
  const RowPairMinors s = RowMinors(m.at[0], m.at[1]);
  const RowPairMinors c = RowMinors(m.at[2], m.at[3]);
  *det =
      s.d01 * c.d23 - s.d02 * c.d13 + s.d03 * c.d12 + s.d12 * c.d03 - s.d13 * c.d02 + s.d23 * c.d01;
  if (*det == 0.0f) return;
  const float inv = 1.0f / *det;
  float columns[4][4];
  CofactorColumn(m.at[1], c, inv, columns[0]);
  CofactorColumn(m.at[0], c, -inv, columns[1]);
  CofactorColumn(m.at[3], s, inv, columns[2]);
  CofactorColumn(m.at[2], s, -inv, columns[3]);
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) out->at[row][column] = columns[column][row];
  }
}

}  // namespace ZOVEngine
