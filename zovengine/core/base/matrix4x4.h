#pragma once

#include "core/base/vector3d.h"

namespace ZOVEngine {

/// A 4 by 4 matrix of floats, row-major: element (row r, column c) stands at index 4 r + c.
///
/// Acts on column vectors, so a translation stands at indices 3, 7 and 11. OpenGL gets it with the
/// transpose flag set. A new matrix is all zeros. Rotations are about z only, since the world is
/// flat.
union Matrix4x4 {
  float m[16];
  float at[4][4];

  constexpr Matrix4x4() : m{} {}

  static Matrix4x4 Identity();
  /// The identity with (tx, ty) at indices 3 and 7 (unit: world units).
  static Matrix4x4 Translation(float tx, float ty);
  /// The identity with sx at index 0 and sy at index 5.
  static Matrix4x4 Scale(float sx, float sy);
  /// Rotation about z, counter-clockwise for positive angles (unit: degrees).
  static Matrix4x4 Rotation(float degrees);
};

/// The matrix product a b: b acts first on a column vector.
Matrix4x4 operator*(const Matrix4x4& a, const Matrix4x4& b);

/// Transforms `v` as a point; the fourth row is ignored, so there is no perspective division.
Vector3D operator*(const Matrix4x4& m, const Vector3D& v);

/// General inverse by 2x2 sub-determinants (Laplace expansion over pairs of rows).
///
/// Writes the determinant to `*det` first. If it is exactly 0, `*out` stays as it was; the caller
/// has only the determinant to tell. `out` may be the address of `m`.
void Inverse(Matrix4x4* out, float* det, const Matrix4x4& m);

}  // namespace ZOVEngine
