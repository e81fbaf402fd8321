#pragma once

#include <cmath>

namespace ZOVEngine {

/// Pi as every angle conversion of the engine uses it.
inline constexpr float kPi = 3.1415927f;

/// Converts an angle (unit: degrees) to radians, as degrees * pi / 180 in floats.
inline float DegreesToRadians(float degrees) {
  return degrees * kPi / 180.0f;
}

/// Three floats: a point, a direction, an extent or a colour.
///
/// Models a 2D world with a depth coordinate: positions are homogeneous 2D points and usually carry
/// z = 1, which rides along through the matrices. The components can be reached by name or, through
/// the union, by index, so that a vector can be handed to OpenGL as it is. Distances are world
/// units unless a user of the type says otherwise. A new vector is (0, 0, 0). Copying is a plain
/// memory copy.
union Vector3D {
  __extension__ struct { float x, y, z; };
  float v[3];

  constexpr Vector3D() : x(0.0f), y(0.0f), z(0.0f) {}
  constexpr Vector3D(float x_, float y_, float z_) : x(x_), y(y_), z(z_) {}

  Vector3D& operator+=(const Vector3D& b) { return *this = Vector3D(x + b.x, y + b.y, z + b.z); }
  Vector3D& operator-=(const Vector3D& b) { return *this = Vector3D(x - b.x, y - b.y, z - b.z); }
  Vector3D& operator*=(float s) { return *this = Vector3D(x * s, y * s, z * s); }
  /// Divides each component; a divisor of zero gives infinities or NaNs.
  Vector3D& operator/=(float s) { return *this = Vector3D(x / s, y / s, z / s); }

  /// The Euclidean length over all three components.
  float Length() const { return std::sqrt(x * x + y * y + z * z); }

  /// The vector divided by its length; the zero vector gives the zero vector.
  Vector3D Normalized() const;
};

inline Vector3D operator+(const Vector3D& a, const Vector3D& b) {
  return Vector3D(a.x + b.x, a.y + b.y, a.z + b.z);
}
inline Vector3D operator-(const Vector3D& a, const Vector3D& b) {
  return Vector3D(a.x - b.x, a.y - b.y, a.z - b.z);
}
inline Vector3D operator*(const Vector3D& a, float s) {
  return Vector3D(a.x * s, a.y * s, a.z * s);
}
/// Divides each component; a divisor of zero gives infinities or NaNs.
inline Vector3D operator/(const Vector3D& a, float s) {
  return Vector3D(a.x / s, a.y / s, a.z / s);
}
inline bool operator==(const Vector3D& a, const Vector3D& b) {
  return a.x == b.x && a.y == b.y && a.z == b.z;
}

/// The inner product over all three components.
inline float Dot(const Vector3D& a, const Vector3D& b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}

/// The rotation of a sprite drawn upward that looks along `direction`: 0 is up, a quarter turn to
/// the left is 90 (unit: degrees, from -270 to 90).
inline float Heading(const Vector3D& direction) {
  return std::atan2(direction.y, direction.x) * 180.0f / kPi - 90.0f;
}

inline Vector3D Vector3D::Normalized() const {
  const float length = Length();
  return length == 0.0f ? Vector3D() : *this / length;
}

}  // namespace ZOVEngine
