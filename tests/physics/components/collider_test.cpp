#include "physics/components/collider.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/engine.h"
#include "core/messages.h"
#include "physics/components/transform.h"
#include "render/rendersystem.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr float kTolerance = 1e-4f;

void ExpectNear(const Vector3D& a, const Vector3D& b) {
  EXPECT_NEAR(a.x, b.x, kTolerance);
  EXPECT_NEAR(a.y, b.y, kTolerance);
  EXPECT_NEAR(a.z, b.z, kTolerance);
}

/// A transform whose local and world set are equal.
Transform Placed(const Vector3D& position, const Vector3D& scale, float rotate = 0.0f) {
  Transform transform(nullptr);
  transform.m_local_pos = transform.m_world_pos = position;
  transform.m_local_scale = transform.m_world_scale = scale;
  transform.m_local_rotate = transform.m_world_rotate = rotate;
  return transform;
}

// New shapes

TEST(Collider, ANewShapeHasItsDefaults) {
  const PolygonCollider shape;
  EXPECT_FALSE(shape.m_flags[0]);
  EXPECT_FALSE(shape.m_flags[1]);
  EXPECT_EQ(shape.m_local_scale, Vector3D(1, 1, 1));
  EXPECT_EQ(shape.m_local_rot, 0.0f);
  for (const Vector3D* v : {&shape.m_local_pos, &shape.m_local_min, &shape.m_local_max,
                            &shape.m_center, &shape.m_min, &shape.m_max}) {
    EXPECT_EQ(*v, Vector3D(0, 0, 1));
  }
  EXPECT_THAT(shape.m_world_vertices, IsEmpty());
  EXPECT_THAT(shape.m_local_vertices, IsEmpty());
}

TEST(Collider, ANewBoxIsTheUnitSquareClockwiseFromTheUpperLeft) {
  const BoxCollider box(Placed(Vector3D(100, 200, 5), Vector3D(4, 6, 8)));
  EXPECT_THAT(box.m_local_vertices,
              ElementsAre(Vector3D(-0.5f, 0.5f, 1), Vector3D(0.5f, 0.5f, 1),
                          Vector3D(0.5f, -0.5f, 1), Vector3D(-0.5f, -0.5f, 1)));
  EXPECT_EQ(box.m_local_max, Vector3D(0.5f, 0.5f, 1));
  EXPECT_EQ(box.m_local_min, Vector3D(0, 0, 1));
  EXPECT_EQ(box.m_center, Vector3D(0, 0, 1));
  EXPECT_THAT(box.m_world_vertices, ElementsAre(Vector3D(-2, 3, 1), Vector3D(2, 3, 1 + 4),
                                                Vector3D(2, -3, 1), Vector3D(-2, -3, 1 - 4)));
  EXPECT_EQ(box.m_max, Vector3D(2, 3, 5));
  EXPECT_EQ(box.m_min, Vector3D(-2, -3, -3));
}

TEST(Collider, ANewBoxTakesTheLocalScale) {
  Transform transform = Placed(Vector3D(0, 0, 1), Vector3D(4, 6, 1));
  transform.m_world_scale = Vector3D(100, 100, 1);
  EXPECT_EQ(BoxCollider(transform).m_max, Vector3D(2, 3, 1.5f));
}

TEST(Collider, ANewCircleStandsAtTheWorldPosition) {
  Transform transform = Placed(Vector3D(100, 200, 5), Vector3D(4, 6, 8));
  transform.m_local_scale = Vector3D(50, 50, 50);
  const CircleCollider circle(transform);
  EXPECT_EQ(circle.m_center, Vector3D(100, 200, 5));
  EXPECT_EQ(circle.m_radius, 2.0f);
  EXPECT_EQ(circle.m_max, Vector3D(102, 203, 9));
  EXPECT_EQ(circle.m_min, Vector3D(98, 197, 1));
}

// UpdateCollider

TEST(Collider, ABoxFollowsPositionRotationAndBothScales) {
  BoxCollider box(Placed(Vector3D(), Vector3D(1, 1, 1)));
  box.m_local_scale = Vector3D(2, 3, 1);
  box.UpdateCollider(Placed(Vector3D(100, 200, 7), Vector3D(10, 20, 1), 90));
  // Half sizes 10 and 30, turned by 90 degrees.
  ASSERT_EQ(box.m_world_vertices.size(), 4u);
  ExpectNear(box.m_world_vertices[0], Vector3D(100 - 30, 200 - 10, 1));
  ExpectNear(box.m_world_vertices[1], Vector3D(100 - 30, 200 + 10, 1));
  ExpectNear(box.m_world_vertices[2], Vector3D(100 + 30, 200 + 10, 1));
  ExpectNear(box.m_world_vertices[3], Vector3D(100 + 30, 200 - 10, 1));
  ExpectNear(box.m_min, Vector3D(70, 190, 1));
  ExpectNear(box.m_max, Vector3D(130, 210, 1));
  ExpectNear(box.m_center, Vector3D(100, 200, 1));
}

TEST(Collider, ShapesAreScaledBeforeTheyAreTurned) {
  PolygonCollider shape;
  shape.SetLocalVertices({Vector3D(1, 0, 1)});
  shape.m_local_rot = 30.0f;
  shape.UpdateCollider(Placed(Vector3D(), Vector3D(2, 100, 1), 60));
  ExpectNear(shape.m_world_vertices[0], Vector3D(0, 2, 1));
}

TEST(Collider, TheCentreIsTurnedByTheObjectAndNeitherScaledNorTurnedByTheShape) {
  PolygonCollider shape;
  shape.SetLocalVertices({Vector3D(1, 0, 1)});
  shape.m_local_pos = Vector3D(3, 0, 4);
  shape.m_local_rot = 45.0f;
  shape.m_local_scale = Vector3D(9, 9, 9);
  shape.UpdateCollider(Placed(Vector3D(10, 20, 7), Vector3D(5, 5, 5), 90));
  ExpectNear(shape.m_center, Vector3D(10, 23, 4));
}

TEST(Collider, TheBoundsTakeEveryAxisOverAllVertices) {
  PolygonCollider shape;
  shape.SetLocalVertices({Vector3D(1, 5, -3), Vector3D(-4, 2, 8), Vector3D(0, -6, 1)});
  shape.UpdateCollider(Placed(Vector3D(), Vector3D(1, 1, 1)));
  ExpectNear(shape.m_min, Vector3D(-4, -6, -3));
  ExpectNear(shape.m_max, Vector3D(1, 5, 8));
}

TEST(Collider, APolygonWithoutVerticesKeepsItsBounds) {
  PolygonCollider shape;
  shape.m_min = Vector3D(1, 2, 3);
  shape.m_max = Vector3D(4, 5, 6);
  shape.UpdateCollider(Placed(Vector3D(10, 20, 7), Vector3D(5, 5, 5)));
  EXPECT_EQ(shape.m_min, Vector3D(1, 2, 3));
  EXPECT_EQ(shape.m_max, Vector3D(4, 5, 6));
  EXPECT_EQ(shape.m_center, Vector3D(10, 20, 1));
}

TEST(Collider, WorldVerticesFollowTheNumberOfLocalOnes) {
  PolygonCollider shape;
  shape.SetLocalVertices({Vector3D(), Vector3D(), Vector3D()});
  const Transform transform = Placed(Vector3D(), Vector3D(1, 1, 1));
  shape.UpdateCollider(transform);
  EXPECT_EQ(shape.m_world_vertices.size(), 3u);
  shape.SetLocalVertices({Vector3D()});
  shape.UpdateCollider(transform);
  EXPECT_EQ(shape.m_world_vertices.size(), 1u);
}

TEST(Collider, TheLocalPositionPlaysNoPartInTheVertices) {
  PolygonCollider shape;
  shape.SetLocalVertices({Vector3D(1, 0, 1)});
  shape.m_local_pos = Vector3D(50, 60, 1);
  shape.UpdateCollider(Placed(Vector3D(), Vector3D(1, 1, 1)));
  ExpectNear(shape.m_world_vertices[0], Vector3D(1, 0, 1));
}

TEST(Collider, ACircleTurnsItsCentreByBothRotations) {
  CircleCollider circle(Placed(Vector3D(), Vector3D(1, 1, 1)));
  circle.m_local_pos = Vector3D(3, 0, 4);
  circle.m_local_rot = 30.0f;
  circle.m_local_scale = Vector3D(2, 100, 1);
  circle.UpdateCollider(Placed(Vector3D(10, 20, 7), Vector3D(5, 50, 5), 60));
  EXPECT_EQ(circle.m_radius, 5.0f);
  ExpectNear(circle.m_center, Vector3D(10, 23, 4));
  ExpectNear(circle.m_max, Vector3D(15, 28, 4));
  ExpectNear(circle.m_min, Vector3D(5, 18, 4));
}

// MoveLocal

TEST(Collider, MovingAPolygonMovesItsVerticesAndLocalCorners) {
  BoxCollider box(Placed(Vector3D(), Vector3D(1, 1, 1)));
  box.MoveLocal(Vector3D(10, 20, 1));
  EXPECT_EQ(box.m_local_pos, Vector3D(10, 20, 1));
  EXPECT_EQ(box.m_local_vertices[0], Vector3D(9.5f, 20.5f, 1));
  EXPECT_EQ(box.m_local_max, Vector3D(10.5f, 20.5f, 1));
  EXPECT_EQ(box.m_local_min, Vector3D(10, 20, 1));
  box.MoveLocal(Vector3D(0, 0, 1));
  EXPECT_EQ(box.m_local_vertices[0], Vector3D(-0.5f, 0.5f, 1));
}

TEST(Collider, MovingACircleMovesItsThreeLocalVectors) {
  CircleCollider circle(Placed(Vector3D(), Vector3D(1, 1, 1)));
  const Vector3D center = circle.m_center;
  circle.MoveLocal(Vector3D(10, 20, 3));
  EXPECT_EQ(circle.m_local_pos, Vector3D(10, 20, 3));
  EXPECT_EQ(circle.m_local_min, Vector3D(10, 20, 3));
  EXPECT_EQ(circle.m_local_max, Vector3D(10, 20, 3));
  EXPECT_EQ(circle.m_center, center);
}

// Clone

TEST(Collider, ACloneIsADeepCopyOfTheSameKind) {
  BoxCollider box(Placed(Vector3D(), Vector3D(1, 1, 1)));
  box.m_local_rot = 12.0f;
  const std::shared_ptr<iCollider> clone = box.Clone();
  auto* copy = dynamic_cast<BoxCollider*>(clone.get());
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(copy->m_local_rot, 12.0f);
  copy->m_local_vertices[0] = Vector3D(9, 9, 9);
  EXPECT_EQ(box.m_local_vertices[0], Vector3D(-0.5f, 0.5f, 1));

  CircleCollider circle(Placed(Vector3D(), Vector3D(8, 1, 1)));
  auto circle_copy = std::dynamic_pointer_cast<CircleCollider>(circle.Clone());
  ASSERT_NE(circle_copy, nullptr);
  EXPECT_EQ(circle_copy->m_radius, 4.0f);

  PolygonCollider polygon;
  polygon.SetLocalVertices({Vector3D(1, 2, 3)});
  auto polygon_copy = std::dynamic_pointer_cast<PolygonCollider>(polygon.Clone());
  ASSERT_NE(polygon_copy, nullptr);
  EXPECT_EQ(std::dynamic_pointer_cast<BoxCollider>(polygon.Clone()), nullptr);
  EXPECT_THAT(polygon_copy->GetLocalVertices(), ElementsAre(Vector3D(1, 2, 3)));
}

// DrawDebug

class DrawDebugTest : public ::testing::Test {
 protected:
  void ExpectLine(std::size_t index, const Vector3D& from, const Vector3D& to, float width, float r,
                  float g, float b, float a) {
    ASSERT_LT(index, g_render_system->m_lines.size());
    const LineRecord& line = g_render_system->m_lines[index];
    EXPECT_EQ(line.start, from) << index;
    EXPECT_EQ(line.end, to) << index;
    EXPECT_EQ(line.width, width) << index;
    EXPECT_THAT(line.colour, ElementsAre(r, g, b, a)) << index;
  }

  carapace_test::World world;
};

TEST_F(DrawDebugTest, ACircleIsShownAsItsBoundingSquare) {
  CircleCollider circle(Placed(Vector3D(0, 0, 1), Vector3D(2, 2, 2)));
  circle.UpdateCollider(Placed(Vector3D(10, 20, 1), Vector3D(2, 2, 2)));
  circle.DrawDebug();
  ASSERT_EQ(g_render_system->m_lines.size(), 4u);
  const Vector3D upper_left(9, 21, 1);
  const Vector3D lower_right(11, 19, 1);
  ExpectLine(0, circle.m_min, upper_left, 1.5f, 1.0f, 1.0f, 0.0f, 0.7f);
  ExpectLine(1, upper_left, circle.m_max, 1.5f, 1.0f, 1.0f, 0.0f, 0.7f);
  ExpectLine(2, circle.m_max, lower_right, 1.5f, 1.0f, 1.0f, 0.0f, 0.7f);
  ExpectLine(3, lower_right, circle.m_min, 1.5f, 1.0f, 1.0f, 0.0f, 0.7f);
}

TEST_F(DrawDebugTest, APolygonAddsALineForEachEdge) {
  PolygonCollider shape;
  shape.SetLocalVertices({Vector3D(0, 0, 1), Vector3D(0, 4, 1), Vector3D(4, 0, 1)});
  shape.UpdateCollider(Placed(Vector3D(), Vector3D(1, 1, 1)));
  shape.DrawDebug();
  ASSERT_EQ(g_render_system->m_lines.size(), 7u);
  for (std::size_t i = 0; i < 3; ++i) {
    ExpectLine(4 + i, shape.m_world_vertices[i], shape.m_world_vertices[(i + 1) % 3], 1.0f, 0.4f,
               0.4f, 0.0f, 0.7f);
  }
}

TEST_F(DrawDebugTest, APolygonWithoutVerticesShowsItsBoundsOnly) {
  PolygonCollider().DrawDebug();
  EXPECT_EQ(g_render_system->m_lines.size(), 4u);
}

}  // namespace
}  // namespace ZOVEngine
