#pragma once

#include "core/base/lanes.h"
#include "core/base/vector3d.h"
#include "core/contactinfo.h"
#include "physics/components/colliderholder.h"

namespace ZOVEngine {

/// Tests two shapes for contact by their world fields, and fills in `collided`, the normal from B
/// towards A, the penetration and the contact points. Returns whether they touch. The holders must
/// have shapes of the kinds in the test's name; a box is a polygon of four vertices.
using PairTest = bool (*)(const ColliderHolder& a, const ColliderHolder& b, ContactInfo* contact);

/// Separating axes (Gottschalk et al., 1996) along two edges of each box, then the manifold.
/// Boxes that touch exactly are in contact, with a penetration of 0.
bool TestBoxBox(const ColliderHolder& a, const ColliderHolder& b, ContactInfo* contact);
/// Separating axes along every edge of both, then the manifold. A polygon without vertices touches
/// nothing.
bool TestPolygonPolygon(const ColliderHolder& a, const ColliderHolder& b, ContactInfo* contact);
/// Compares the distance of the centres, depth included. Circles that touch exactly are apart. The
/// contact point deliberately lies on the far side of A: it is on the line of centres and adds no
/// spin.
bool TestCircleCircle(const ColliderHolder& a, const ColliderHolder& b, ContactInfo* contact);
/// A circle A against a polygon B by the point of B nearest to the centre. The penetration is
/// deliberately the distance from the centre to the polygon, not the depth of the overlap: a circle
/// that grazes an edge is pushed out by nearly its radius, and levels are tuned to that.
bool TestCirclePolygon(const ColliderHolder& a, const ColliderHolder& b, ContactInfo* contact);
/// TestCirclePolygon with the sides swapped and the normal turned round.
bool TestPolygonCircle(const ColliderHolder& a, const ColliderHolder& b, ContactInfo* contact);

/// The four corners of a box in the plane, side by side.
struct BoxOutline {
  Lanes x, y;
};

/// The outline of a box that has at least four vertices.
BoxOutline Outline(const PolygonCollider& box);
/// True if a line along an edge separates two boxes; touching boxes are not apart. The order of the
/// two does not matter.
bool AreApart(const BoxOutline& a, const BoxOutline& b);

/// The feature of a polygon that faces along an axis: its extreme point and an edge at it.
struct FacingEdge {
  Vector3D extreme;
  Vector3D start;
  Vector3D end;
};

/// Separating axes for two boxes: sets `collided`, normal and penetration, or returns false. A box
/// from which vertices were taken overlaps nothing.
bool SatBox(const PolygonCollider& a, const PolygonCollider& b, ContactInfo* contact);
/// Separating axes for two polygons with vertices, as SatBox.
bool SatPolygon(const PolygonCollider& a, const PolygonCollider& b, ContactInfo* contact);
/// The edge of `polygon`, which has vertices, at its vertex farthest along `axis`; of the two edges
/// there, the one that turns less towards the axis.
FacingEdge FindBestEdge(const PolygonCollider& polygon, const Vector3D& axis);
/// The part of the segment from `p1` to `p2` with `normal` dot x >= `offset`: two points, one for
/// an end that only touches, or none.
ContactPoints ClipSegment(const Vector3D& p1, const Vector3D& p2, const Vector3D& normal,
                          float offset);
/// Finds the contact points of two overlapping polygons by clipping the edge of one against the
/// other's, along the normal of `contact`. False if fewer than two points are left of the clipped
/// edge; true otherwise, even when all of them fall on the wrong side and the list stays empty.
/// Boxes wind clockwise, and the side kept is deliberately the one that the sign gives: with A's
/// edge as the reference the points inside are removed.
bool BuildManifold(const PolygonCollider& a, const PolygonCollider& b, ContactInfo* contact);

}  // namespace ZOVEngine
