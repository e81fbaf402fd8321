#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <random>

#include "gameobj.h"
#include "physics/components/colliderholder.h"
#include "physics/components/transform.h"
#include "physics/contacttests.h"

namespace ZOVEngine {
namespace {

constexpr float kTolerance = 1e-5f;

void ExpectNear(const Vector3D& a, const Vector3D& b) {
  EXPECT_NEAR(a.x, b.x, kTolerance);
  EXPECT_NEAR(a.y, b.y, kTolerance);
  EXPECT_NEAR(a.z, b.z, kTolerance);
}

void ExpectPoints(const ContactInfo& contact, const std::vector<Vector3D>& points) {
  ASSERT_EQ(contact.contactPoints.size(), points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    SCOPED_TRACE(i);
    ExpectNear(contact.contactPoints[i], points[i]);
  }
}

/// A holder with a shape in the world, whose object has no other components.
class Shape {
 public:
  static Shape Box(float x, float y, float width, float height, float rotate = 0.0f) {
    return Shape("Box", Vector3D(x, y, 1), Vector3D(width, height, 1), rotate, {});
  }
  static Shape Circle(const Vector3D& at, float radius) {
    Shape shape("Circle", at, Vector3D(2 * radius, 2 * radius, 1), 0.0f, {});
    // The depth of a circle is that of its local position.
    shape.m_holder->m_collider->m_local_pos.z = at.z;
    shape.Update();
    return shape;
  }
  /// The centre is at (x, y), the vertices are given in the world.
  static Shape Polygon(float x, float y, std::vector<Vector3D> vertices) {
    for (Vector3D& vertex : vertices) vertex -= Vector3D(x, y, 0);
    return Shape("Polygon", Vector3D(x, y, 1), Vector3D(1, 1, 1), 0.0f, vertices);
  }

  operator const ColliderHolder&() const { return *m_holder; }

 private:
  Shape(const std::string& type, const Vector3D& at, const Vector3D& size, float rotate,
        const std::vector<Vector3D>& vertices)
      : m_object(std::make_unique<GameObj>()),
        m_holder(std::make_unique<ColliderHolder>(m_object.get())),
        m_transform(nullptr) {
    m_holder->SetType(type);
    if (type == "Polygon") {
      dynamic_cast<PolygonCollider&>(*m_holder->m_collider).SetLocalVertices(vertices);
    }
    m_transform.m_world_pos = at;
    m_transform.m_world_scale = size;
    m_transform.m_world_rotate = rotate;
    Update();
  }
  void Update() { m_holder->m_collider->UpdateCollider(m_transform); }

  std::unique_ptr<GameObj> m_object;
  std::unique_ptr<ColliderHolder> m_holder;
  Transform m_transform;
};

// Boxes

TEST(BoxContact, OverlappingBoxesGiveNormalDepthAndTwoPoints) {
  const Shape a = Shape::Box(0, 0, 2, 2);
  const Shape b = Shape::Box(1.5f, 0, 2, 2);
  ContactInfo contact;
  ASSERT_TRUE(TestBoxBox(a, b, &contact));
  EXPECT_TRUE(contact.collided);
  EXPECT_EQ(contact.normal, Vector3D(-1, 0, 0)) << "from B towards A";
  EXPECT_EQ(contact.penetration, 0.5f);
  // Edges of equal slope take B's as the reference: the points are the corners of A inside B.
  ExpectPoints(contact, {Vector3D(1, 1, 1), Vector3D(1, -1, 1)});
}

TEST(BoxContact, TheNormalTurnsWithTheSides) {
  const Shape a = Shape::Box(0, 0, 2, 2);
  const Shape b = Shape::Box(1.5f, 0, 2, 2);
  ContactInfo contact;
  ASSERT_TRUE(TestBoxBox(b, a, &contact));
  EXPECT_EQ(contact.normal, Vector3D(1, 0, 0));
  ExpectPoints(contact, {Vector3D(0.5f, -1, 1), Vector3D(0.5f, 1, 1)});
}

TEST(BoxContact, BoxesSideBySideTouchWithTwoPointsAndNoDepth) {
  const Shape a = Shape::Box(0, 0, 2, 2);
  const Shape b = Shape::Box(2, 0, 2, 2);
  ContactInfo contact;
  ASSERT_TRUE(TestBoxBox(a, b, &contact));
  EXPECT_EQ(contact.normal, Vector3D(-1, 0, 0));
  EXPECT_EQ(contact.penetration, 0.0f);
  ExpectPoints(contact, {Vector3D(1, 1, 1), Vector3D(1, -1, 1)});
}

TEST(BoxContact, BoxesBarelyApartDoNotTouch) {
  const Shape a = Shape::Box(0, 0, 2, 2);
  const Shape b = Shape::Box(2.000001f, 0, 2, 2);
  ContactInfo contact;
  EXPECT_FALSE(TestBoxBox(a, b, &contact));
  EXPECT_FALSE(contact.collided);
}

TEST(BoxContact, BoxesAboveEachOtherHaveTheirNormalInY) {
  const Shape a = Shape::Box(0, 0, 2, 2);
  const Shape b = Shape::Box(0.5f, -1.75f, 2, 2);
  ContactInfo contact;
  ASSERT_TRUE(TestBoxBox(a, b, &contact));
  EXPECT_EQ(contact.normal, Vector3D(0, 1, 0));
  EXPECT_EQ(contact.penetration, 0.25f);
  // A's lower edge from -1 to 1, clipped to B's upper edge from -0.5 to 1.5.
  ASSERT_EQ(contact.contactPoints.size(), 2u);
  for (const Vector3D& point : contact.contactPoints) EXPECT_EQ(point.y, -1.0f);
  EXPECT_EQ(std::min(contact.contactPoints[0].x, contact.contactPoints[1].x), -0.5f);
  EXPECT_EQ(std::max(contact.contactPoints[0].x, contact.contactPoints[1].x), 1.0f);
}

TEST(BoxContact, CornersThatTouchLeaveOnePointAndSoNoContact) {
  const Shape a = Shape::Box(0, 0, 2, 2);
  const Shape b = Shape::Box(2, 2, 2, 2);
  ContactInfo contact;
  EXPECT_FALSE(TestBoxBox(a, b, &contact));
  EXPECT_FALSE(TestBoxBox(b, a, &contact));
}

TEST(BoxContact, TheSmallestOverlapGivesTheAxisAndTheFirstOfEqualsStays) {
  // Both axes of A overlap by 1; its vertical edge comes first.
  const Shape a = Shape::Box(0, 0, 2, 2);
  const Shape b = Shape::Box(1, 1, 2, 2);
  ContactInfo contact;
  ASSERT_TRUE(TestBoxBox(a, b, &contact));
  EXPECT_EQ(contact.normal, Vector3D(-1, 0, 0));
  EXPECT_EQ(contact.penetration, 1.0f);
}

TEST(BoxContact, BoxesOfOneCentreKeepTheAxisAsItIs) {
  // No side is nearer: the axis of the edge from the lower left up, turned left, stays.
  const Shape a = Shape::Box(0, 0, 2, 4);
  const Shape b = Shape::Box(0, 0, 2, 4);
  ContactInfo contact;
  ASSERT_TRUE(TestBoxBox(a, b, &contact));
  EXPECT_EQ(contact.normal, Vector3D(-1, 0, 0));
  EXPECT_EQ(contact.penetration, 2.0f);
}

TEST(BoxContact, AnOverlapIsMeasuredFromTheEndOfTheShapeThatEndsFirst) {
  // A small box inside: on each axis the overlap is the lower of the two upper ends minus the other
  // one's lower end, deliberately not the way out.
  const Shape outer = Shape::Box(0, 0, 10, 20);
  const Shape inner = Shape::Box(3, 0, 2, 2);
  ContactInfo contact;
  // Axis (-1, 0): A from -5 to 5, B from -4 to -2; -2 - -5 = 3.
  TestBoxBox(outer, inner, &contact);
  EXPECT_EQ(contact.penetration, 3.0f);
  EXPECT_EQ(contact.normal, Vector3D(-1, 0, 0));
}

TEST(BoxContact, TurnedBoxesAreSeparatedByTheAxesOfTheSecond) {
  // The bounds overlap, and so do both on the axes of the straight box; on the diagonal it ends at
  // 1.414, and the other starts at 2.3 x 1.414 - 1 = 2.253.
  const Shape a = Shape::Box(0, 0, 2, 2);
  const Shape b = Shape::Box(2.3f, 2.3f, 2, 2, 45);
  ContactInfo contact;
  EXPECT_FALSE(TestBoxBox(a, b, &contact));
  EXPECT_FALSE(TestBoxBox(b, a, &contact));
}

TEST(BoxContact, ATurnedBoxMayBePushedAlongItsOwnAxis) {
  const float half = std::sqrt(0.5f);
  const Shape a = Shape::Box(0, 0, 2, 2);
  const Shape b = Shape::Box(1.5f, 1.5f, 2, 2, 45);
  ContactInfo contact;
  // On the diagonal A ends at 1.41421 and B begins at 2.12132 - 1.
  TestBoxBox(a, b, &contact);
  EXPECT_TRUE(contact.collided);
  ExpectNear(contact.normal, Vector3D(-half, -half, 0));
  EXPECT_NEAR(contact.penetration, 0.292893f, kTolerance);
}

// Polygons

const std::vector<Vector3D> kSquare = {Vector3D(-1, 1, 1), Vector3D(1, 1, 1), Vector3D(1, -1, 1),
                                       Vector3D(-1, -1, 1)};

TEST(PolygonContact, WithAsEdgeAsTheReferenceThePointsInsideAreRemoved) {
  const Shape a = Shape::Polygon(0, 0, kSquare);
  const Shape b =
      Shape::Polygon(2, 0, {Vector3D(0.5f, 0, 1), Vector3D(2.5f, 2, 1), Vector3D(2.5f, -1, 1)});
  ContactInfo contact;
  ASSERT_TRUE(TestPolygonPolygon(a, b, &contact));
  EXPECT_EQ(contact.normal, Vector3D(-1, 0, 0));
  EXPECT_EQ(contact.penetration, 0.5f);
  // The edge from (0.5, 0) to (2.5, 2) is cut off at y = 1; of its ends the outer one is kept.
  ExpectPoints(contact, {Vector3D(1.5f, 1, 1)});
}

/// A thin triangle whose edge at the tip lies within the square.
Shape Needle() {
  return Shape::Polygon(2, 0,
                        {Vector3D(0.5f, 0, 1), Vector3D(0.9f, 0.8f, 1), Vector3D(3, -0.4f, 1)});
}

TEST(PolygonContact, WhenAllPointsAreRemovedTheContactIsASensor) {
  const Shape a = Shape::Polygon(0, 0, kSquare);
  const Shape b = Needle();
  ContactInfo contact;
  ASSERT_TRUE(TestPolygonPolygon(a, b, &contact)) << "an empty list is a contact all the same";
  EXPECT_EQ(contact.penetration, 0.5f);
  EXPECT_EQ(contact.contactPoints.size(), 0u);
}

TEST(PolygonContact, SwappingTheSidesChangesTheResult) {
  const Shape a = Shape::Polygon(0, 0, kSquare);
  const Shape b = Needle();
  ContactInfo contact;
  ASSERT_TRUE(TestPolygonPolygon(b, a, &contact));
  EXPECT_EQ(contact.normal, Vector3D(1, 0, 0));
  ExpectPoints(contact, {Vector3D(0.5f, 0, 1), Vector3D(0.9f, 0.8f, 1)});
}

TEST(PolygonContact, EdgesThatLeaveOnePointAreNoContact) {
  const Shape a = Shape::Polygon(0, 0, kSquare);
  const Shape b = Shape::Polygon(
      2, 2, {Vector3D(1, 3, 1), Vector3D(3, 3, 1), Vector3D(3, 1, 1), Vector3D(1, 1, 1)});
  ContactInfo contact;
  EXPECT_FALSE(TestPolygonPolygon(a, b, &contact));
}

TEST(PolygonContact, EveryEdgeIsAnAxis) {
  // Only the slanted edge of the triangle separates it from the square: it runs along x + y = 2.2.
  const Shape a = Shape::Polygon(0, 0, kSquare);
  const Shape b =
      Shape::Polygon(2, 2, {Vector3D(0, 2.2f, 1), Vector3D(2.2f, 2.2f, 1), Vector3D(2.2f, 0, 1)});
  ContactInfo contact;
  EXPECT_FALSE(TestPolygonPolygon(a, b, &contact));
  EXPECT_FALSE(TestPolygonPolygon(b, a, &contact));
}

TEST(PolygonContact, PolygonsTakeTheAxisOfTheFirstEdgeOnATie) {
  // The first edge of a polygon is from its first to its second vertex, here the upper one.
  const Shape a = Shape::Polygon(0, 0, kSquare);
  const Shape b = Shape::Polygon(
      1, 1, {Vector3D(0, 2, 1), Vector3D(2, 2, 1), Vector3D(2, 0, 1), Vector3D(0, 0, 1)});
  ContactInfo contact;
  ASSERT_TRUE(TestPolygonPolygon(a, b, &contact));
  EXPECT_EQ(contact.normal, Vector3D(0, -1, 0));
}

TEST(PolygonContact, TheSideOfTheNormalComesFromTheCentres) {
  // The vertices of B are on the right, but its centre is on the left.
  const Shape a = Shape::Polygon(0, 0, kSquare);
  const Shape b = Shape::Polygon(
      -9, 0,
      {Vector3D(0.5f, 1, 1), Vector3D(2.5f, 1, 1), Vector3D(2.5f, -1, 1), Vector3D(0.5f, -1, 1)});
  ContactInfo contact;
  TestPolygonPolygon(a, b, &contact);
  EXPECT_TRUE(contact.collided);
  EXPECT_EQ(contact.normal, Vector3D(1, 0, 0));
}

TEST(PolygonContact, APolygonWithoutVerticesTouchesNothing) {
  const Shape none = Shape::Polygon(0, 0, {});
  const Shape square = Shape::Polygon(0, 0, kSquare);
  const Shape box = Shape::Box(0, 0, 2, 2);
  const Shape circle = Shape::Circle(Vector3D(0, 0, 1), 3);
  ContactInfo contact;
  EXPECT_FALSE(TestPolygonPolygon(none, square, &contact));
  EXPECT_FALSE(TestPolygonPolygon(square, none, &contact));
  EXPECT_FALSE(TestPolygonPolygon(none, none, &contact));
  EXPECT_FALSE(TestPolygonPolygon(box, none, &contact));
  EXPECT_FALSE(TestCirclePolygon(circle, none, &contact));
  EXPECT_FALSE(TestPolygonCircle(none, circle, &contact));
  EXPECT_FALSE(contact.collided);
}

TEST(PolygonContact, AnEdgeWithoutLengthProjectsEverythingOntoZero) {
  // Such an axis overlaps by 0, which is less than any other overlap, and leaves no normal.
  std::vector<Vector3D> doubled = kSquare;
  doubled.insert(doubled.begin(), kSquare[0]);
  const Shape a = Shape::Polygon(0, 0, doubled);
  const Shape b = Shape::Polygon(
      1.5f, 0,
      {Vector3D(0.5f, 1, 1), Vector3D(2.5f, 1, 1), Vector3D(2.5f, -1, 1), Vector3D(0.5f, -1, 1)});
  ContactInfo contact;
  TestPolygonPolygon(a, b, &contact);
  EXPECT_TRUE(contact.collided);
  EXPECT_EQ(contact.normal, Vector3D(0, 0, 0));
  EXPECT_EQ(contact.penetration, 0.0f);
}

TEST(PolygonContact, ABoxIsAPolygonToAPolygon) {
  const Shape a = Shape::Box(0, 0, 2, 2);
  const Shape b = Needle();
  ContactInfo contact;
  ASSERT_TRUE(TestPolygonPolygon(b, a, &contact));
  ExpectPoints(contact, {Vector3D(0.5f, 0, 1), Vector3D(0.9f, 0.8f, 1)});
}

// Circles

TEST(CircleContact, OverlappingCirclesGiveThePointOnTheFarSideOfA) {
  const Shape a = Shape::Circle(Vector3D(0, 0, 1), 5);
  const Shape b = Shape::Circle(Vector3D(8, 6, 1), 6);
  ContactInfo contact;
  ASSERT_TRUE(TestCircleCircle(a, b, &contact));
  EXPECT_TRUE(contact.collided);
  ExpectNear(contact.normal, Vector3D(-0.8f, -0.6f, 0));
  EXPECT_NEAR(contact.penetration, 1.0f, kTolerance);
  ExpectPoints(contact, {Vector3D(-4, -3, 1)});
}

TEST(CircleContact, CirclesThatTouchExactlyAreApart) {
  const Shape a = Shape::Circle(Vector3D(0, 0, 1), 4);
  const Shape b = Shape::Circle(Vector3D(8, 6, 1), 6);
  ContactInfo contact;
  EXPECT_FALSE(TestCircleCircle(a, b, &contact));
  EXPECT_FALSE(contact.collided);
}

TEST(CircleContact, TheDistanceOfCirclesCountsTheirDepth) {
  const Shape a = Shape::Circle(Vector3D(0, 0, 1), 3);
  const Shape near = Shape::Circle(Vector3D(3, 0, 5), 3);
  ContactInfo contact;
  ASSERT_TRUE(TestCircleCircle(a, near, &contact));
  ExpectNear(contact.normal, Vector3D(-0.6f, 0, -0.8f));
  EXPECT_NEAR(contact.penetration, 1.0f, kTolerance) << "6 minus a distance of 5";
  ExpectPoints(contact, {Vector3D(-1.8f, 0, 1 - 2.4f)});

  const Shape far = Shape::Circle(Vector3D(3, 0, 9), 3);
  EXPECT_FALSE(TestCircleCircle(a, far, &contact));
}

TEST(CircleContact, CirclesOfOneCentreHaveNoNormal) {
  const Shape a = Shape::Circle(Vector3D(7, 8, 1), 2);
  const Shape b = Shape::Circle(Vector3D(7, 8, 1), 3);
  ContactInfo contact;
  ASSERT_TRUE(TestCircleCircle(a, b, &contact));
  EXPECT_EQ(contact.normal, Vector3D(0, 0, 0));
  EXPECT_EQ(contact.penetration, 5.0f);
  ExpectPoints(contact, {Vector3D(7, 8, 1)});
}

// A circle against a polygon

TEST(CirclePolygonContact, TheDepthIsTheDistanceOfTheCentreAndNotTheOverlap) {
  const Shape circle = Shape::Circle(Vector3D(0, 2.5f, 1), 2);
  const Shape box = Shape::Box(0, 0, 4, 4);
  ContactInfo contact;
  ASSERT_TRUE(TestCirclePolygon(circle, box, &contact));
  EXPECT_TRUE(contact.collided);
  EXPECT_EQ(contact.normal, Vector3D(0, 1, 0));
  EXPECT_EQ(contact.penetration, 0.5f);
  ExpectPoints(contact, {Vector3D(0, 0.5f, 1)});
}

TEST(CirclePolygonContact, ACircleThatGrazesAnEdgeIsPushedByItsRadius) {
  const Shape circle = Shape::Circle(Vector3D(1, 4, 1), 2);
  const Shape box = Shape::Box(0, 0, 4, 4);
  ContactInfo contact;
  ASSERT_TRUE(TestCirclePolygon(circle, box, &contact)) << "touching is contact";
  EXPECT_EQ(contact.normal, Vector3D(0, 1, 0));
  EXPECT_EQ(contact.penetration, 2.0f);
  const Shape higher = Shape::Circle(Vector3D(1, 4.0001f, 1), 2);
  EXPECT_FALSE(TestCirclePolygon(higher, box, &contact));
  EXPECT_FALSE(contact.collided);
}

TEST(CirclePolygonContact, TheNearestPointMayBeACorner) {
  const Shape circle = Shape::Circle(Vector3D(5, 6, 1), 5.5f);
  const Shape box = Shape::Box(0, 0, 4, 4);
  ContactInfo contact;
  ASSERT_TRUE(TestCirclePolygon(circle, box, &contact));
  ExpectNear(contact.normal, Vector3D(0.6f, 0.8f, 0));
  EXPECT_NEAR(contact.penetration, 5.0f, kTolerance);
  ExpectPoints(contact, {Vector3D(5 - 3.3f, 6 - 4.4f, 1)});
}

TEST(CirclePolygonContact, ACentreOnAnEdgeTakesTheEdgesPerpendicularByTheWinding) {
  const Shape circle = Shape::Circle(Vector3D(0.5f, 1, 1), 2);
  const Shape clockwise = Shape::Polygon(0, 0, kSquare);
  ContactInfo contact;
  ASSERT_TRUE(TestCirclePolygon(circle, clockwise, &contact));
  EXPECT_EQ(contact.normal, Vector3D(0, 1, 0));
  EXPECT_EQ(contact.penetration, 0.0f);
  ExpectPoints(contact, {Vector3D(0.5f, -1, 1)});

  const Shape other_way = Shape::Polygon(0, 0, {kSquare[3], kSquare[2], kSquare[1], kSquare[0]});
  ASSERT_TRUE(TestCirclePolygon(circle, other_way, &contact));
  EXPECT_EQ(contact.normal, Vector3D(0, -1, 0));
  EXPECT_EQ(contact.penetration, 0.0f);
}

TEST(CirclePolygonContact, ACentreOnAnEdgeThatCountsAsInsideTakesItsPerpendicularToo) {
  // By the crossing count the lower edge belongs to the inside.
  const Shape circle = Shape::Circle(Vector3D(0.5f, -1, 1), 2);
  const Shape square = Shape::Polygon(0, 0, kSquare);
  ContactInfo contact;
  ASSERT_TRUE(TestCirclePolygon(circle, square, &contact));
  EXPECT_EQ(contact.normal, Vector3D(0, -1, 0));
  EXPECT_EQ(contact.penetration, 0.0f);
}

TEST(CirclePolygonContact, ACircleInsideIsPushedToTheNearestEdgeAndNoFarther) {
  const Shape circle = Shape::Circle(Vector3D(1, 0.5f, 1), 0.25f);
  const Shape box = Shape::Box(0, 0, 4, 4);
  ContactInfo contact;
  ASSERT_TRUE(TestCirclePolygon(circle, box, &contact));
  EXPECT_EQ(contact.normal, Vector3D(1, 0, 0)) << "towards the edge";
  EXPECT_EQ(contact.penetration, 1.0f) << "to the edge, not beyond it";
  ExpectPoints(contact, {Vector3D(0.75f, 0.5f, 1)});
}

TEST(CirclePolygonContact, OfEquallyNearEdgesTheFirstStays) {
  const Shape circle = Shape::Circle(Vector3D(0, 0, 1), 0.25f);
  const Shape box = Shape::Box(0, 0, 4, 4);
  ContactInfo contact;
  ASSERT_TRUE(TestCirclePolygon(circle, box, &contact));
  EXPECT_EQ(contact.normal, Vector3D(0, 1, 0)) << "the upper edge is the first";
}

TEST(CirclePolygonContact, TheRadiusIsComparedInThePlaneButTheNormalHasDepth) {
  const Shape circle = Shape::Circle(Vector3D(0, 5, 5), 3);
  const Shape box = Shape::Box(0, 0, 4, 4);
  ContactInfo contact;
  ASSERT_TRUE(TestCirclePolygon(circle, box, &contact)) << "3 away in the plane, 5 in all";
  ExpectNear(contact.normal, Vector3D(0, 0.6f, 0.8f));
  EXPECT_NEAR(contact.penetration, 5.0f, kTolerance);
  ExpectPoints(contact, {Vector3D(0, 5 - 1.8f, 5 - 2.4f)});
}

TEST(CirclePolygonContact, ANotConvexNotchIsOutside) {
  // The crossing count sees the notch of an arrow head.
  const Shape arrow = Shape::Polygon(
      0, 0, {Vector3D(-4, 4, 1), Vector3D(0, 0, 1), Vector3D(4, 4, 1), Vector3D(0, -4, 1)});
  const Shape small = Shape::Circle(Vector3D(0, 2, 1), 0.5f);
  ContactInfo contact;
  EXPECT_FALSE(TestCirclePolygon(small, arrow, &contact));
  const Shape below = Shape::Circle(Vector3D(0, -2, 1), 0.5f);
  EXPECT_TRUE(TestCirclePolygon(below, arrow, &contact));
}

TEST(CirclePolygonContact, SwappedSidesNegateTheNormalAlone) {
  const Shape box = Shape::Box(0, 0, 4, 4);
  for (const Vector3D& at :
       {Vector3D(0, 2.5f, 1), Vector3D(1, 0.5f, 1), Vector3D(3, 3, 1), Vector3D(0.5f, 2, 1)}) {
    const Shape circle = Shape::Circle(at, 2);
    ContactInfo one;
    ContactInfo other;
    ASSERT_TRUE(TestCirclePolygon(circle, box, &one));
    ASSERT_TRUE(TestPolygonCircle(box, circle, &other));
    EXPECT_EQ(other.normal, one.normal * -1.0f);
    EXPECT_EQ(other.penetration, one.penetration);
    ASSERT_EQ(other.contactPoints.size(), 1u);
    EXPECT_EQ(other.contactPoints[0], one.contactPoints[0]);
  }
  const Shape away = Shape::Circle(Vector3D(0, 20, 1), 2);
  ContactInfo contact;
  EXPECT_FALSE(TestPolygonCircle(box, away, &contact));
}

// Pieces of the manifold

TEST(FindBestEdge, TheFirstOfEqualVerticesAndTheSteeperOfItsEdges) {
  const Shape square = Shape::Polygon(0, 0, kSquare);
  const auto& polygon =
      dynamic_cast<const PolygonCollider&>(*static_cast<const ColliderHolder&>(square).m_collider);
  const FacingEdge right = FindBestEdge(polygon, Vector3D(1, 0, 0));
  EXPECT_EQ(right.extreme, Vector3D(1, 1, 1));
  EXPECT_EQ(right.start, Vector3D(1, 1, 1));
  EXPECT_EQ(right.end, Vector3D(1, -1, 1));
  const FacingEdge left = FindBestEdge(polygon, Vector3D(-1, 0, 0));
  EXPECT_EQ(left.extreme, Vector3D(-1, 1, 1));
  EXPECT_EQ(left.start, Vector3D(-1, -1, 1));
  EXPECT_EQ(left.end, Vector3D(-1, 1, 1));
  // Both edges at the corner lie the same way: the one that leads to it is taken.
  const FacingEdge corner = FindBestEdge(polygon, Vector3D(1, 1, 0));
  EXPECT_EQ(corner.extreme, Vector3D(1, 1, 1));
  EXPECT_EQ(corner.start, Vector3D(-1, 1, 1));
  EXPECT_EQ(corner.end, Vector3D(1, 1, 1));
}

TEST(ClipSegment, KeepsWhatLiesOnTheSideOfTheNormal) {
  const Vector3D p1(0, 0, 1);
  const Vector3D p2(4, 8, 1);
  const Vector3D x(1, 0, 0);
  const ContactPoints all = ClipSegment(p1, p2, x, 0);
  ASSERT_EQ(all.size(), 2u) << "a point on the border is kept";
  EXPECT_EQ(all[0], p1);
  EXPECT_EQ(all[1], p2);
  // The cut stands behind the end that is kept, whichever that is.
  const ContactPoints upper = ClipSegment(p1, p2, x, 1);
  ASSERT_EQ(upper.size(), 2u);
  EXPECT_EQ(upper[0], p2);
  EXPECT_EQ(upper[1], Vector3D(1, 2, 1));
  const ContactPoints lower = ClipSegment(p1, p2, Vector3D(-1, 0, 0), -1);
  ASSERT_EQ(lower.size(), 2u);
  EXPECT_EQ(lower[0], p1);
  EXPECT_EQ(lower[1], Vector3D(1, 2, 1));
  EXPECT_EQ(ClipSegment(p1, p2, x, 4).size(), 1u) << "only an end touches";
  EXPECT_EQ(ClipSegment(p1, p2, x, 5).size(), 0u);
}

// Separating lines

const PolygonCollider& OutlineShape(const ColliderHolder& holder) {
  return dynamic_cast<const PolygonCollider&>(*holder.m_collider);
}

bool AreBoxesApart(const ColliderHolder& a, const ColliderHolder& b) {
  return AreApart(Outline(OutlineShape(a)), Outline(OutlineShape(b)));
}

TEST(AreApart, TouchingBoxesAreNot) {
  const Shape box = Shape::Box(0, 0, 2, 2);
  EXPECT_FALSE(AreBoxesApart(box, Shape::Box(2, 0, 2, 2)));
  EXPECT_FALSE(AreBoxesApart(box, Shape::Box(2, 2, 2, 2)));
  EXPECT_TRUE(AreBoxesApart(box, Shape::Box(2.01f, 0, 2, 2)));
}

TEST(AreApart, ALineBetweenTurnedBoxesSeparatesThemThoughTheirBoundsOverlap) {
  const Shape diamond = Shape::Box(0, 0, 2, 2, 45);
  EXPECT_TRUE(AreBoxesApart(diamond, Shape::Box(1.9f, 1.9f, 2, 2)));
  EXPECT_TRUE(AreBoxesApart(Shape::Box(1.9f, 1.9f, 2, 2), diamond));
}

TEST(AreApart, RandomBoxesAreApartWhereTheContactTestFindsNoOverlapInEitherOrder) {
  std::mt19937 random(11);
  const auto between = [&random](float low, float high) {
    return low + (high - low) * static_cast<float>(random() % 10001) / 10000.0f;
  };
  const auto random_box = [&between] {
    const float x = between(-3, 3);
    const float y = between(-3, 3);
    const float width = between(0, 4);
    const float height = between(0, 4);
    return Shape::Box(x, y, width, height, between(-180, 180));
  };
  int apart = 0;
  constexpr int kPairs = 2000;
  for (int pair = 0; pair < kPairs; ++pair) {
    const Shape a = random_box();
    const Shape b = random_box();
    ContactInfo contact;
    const bool overlap = SatBox(OutlineShape(a), OutlineShape(b), &contact);
    ASSERT_EQ(AreBoxesApart(a, b), !overlap) << pair;
    ASSERT_EQ(AreBoxesApart(b, a), !overlap) << pair;
    apart += overlap ? 0 : 1;
  }
  EXPECT_GT(apart, kPairs / 5);
  EXPECT_LT(apart, kPairs * 4 / 5);
}

}  // namespace
}  // namespace ZOVEngine
