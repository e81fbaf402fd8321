#include "render/passes/debugoverlay.h"

#include <gtest/gtest.h>

#include "core/engine.h"
#include "physics/collidersystem.h"
#include "physics/components/colliderholder.h"
#include "support/scene.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;
using Kind = DrawCommand::Kind;

constexpr Colour kRed = {1.0f, 0.0f, 0.0f, 1.0f};
constexpr Colour kYellow = {1.0f, 1.0f, 0.0f, 1.0f};

Colour ColourOf(const DrawCommand& draw) {
  return {draw.colour[0], draw.colour[1], draw.colour[2], draw.colour[3]};
}

/// A scene with debug drawing on.
class DebugOverlay : public testing::Test {
 protected:
  DebugOverlay() {
    scene.System().m_debug_draw = true;
    tree_lister = scene.System().m_tree_lister;
    scene.System().m_tree_lister = nullptr;  // the tree is not what most tests look at
  }

  GameObj* AddSolid(const std::string& type = "Box") {
    GameObj* object = scene.AddSprite("solid", "one");
    object->AddComponent<ColliderHolder>();
    Of<ColliderHolder>(object).SetType(type);
    return object;
  }

  /// The draws of a frame without the background and the crosshair. Only the picture is updated:
  /// in a whole step the collider system would tell contacts of its own.
  std::vector<DrawCommand> DrawNow() {
    scene.System().Update(kStep);
    const std::vector<DrawCommand>& all = scene.Frame().commands;
    return {all.begin() + 1, all.end() - 1};
  }

  Scene scene;
  TreeLister tree_lister = nullptr;  ///< the one that the engine starts with
};

TEST_F(DebugOverlay, TheEngineListsTheCollisionTree) {
  scene.System().m_tree_lister = tree_lister;
  g_collider_system->Update(kStep);
  const std::vector<DrawCommand> draws = DrawNow();
  ASSERT_EQ(draws.size(), 1u) << "an empty tree is its root";
  EXPECT_EQ(draws[0].placement.scale, Vector3D(1920.0f, 1080.0f, 0.0f));
  EXPECT_EQ(draws[0].placement.translate, Vector3D(0.0f, 0.0f, 1.0f));
  EXPECT_EQ(ColourOf(draws[0]), kYellow);
}

TEST_F(DebugOverlay, OffDrawsNoOutline) {
  AddSolid();
  scene.System().m_debug_draw = false;
  EXPECT_EQ(DrawNow().size(), 1u);
}

TEST_F(DebugOverlay, ABoxGetsItsOutlineAndItsBounds) {
  AddSolid();
  const std::vector<DrawCommand> draws = DrawNow();
  ASSERT_EQ(draws.size(), 3u);
  EXPECT_EQ(draws[1].kind, Kind::kOutline);
  EXPECT_EQ(draws[1].program, Program::kDefault);
  EXPECT_EQ(draws[1].texture, 10u);
  EXPECT_EQ(draws[1].count, 8u);
  EXPECT_EQ(ColourOf(draws[1]), kRed);
  EXPECT_EQ(draws[2].kind, Kind::kOutline);
  EXPECT_EQ(ColourOf(draws[2]), kYellow);
}

TEST_F(DebugOverlay, TheOutlineGoesRoundTheQuad) {
  AddSolid();
  const DrawCommand outline = DrawNow()[1];
  const Frame& frame = scene.Frame();
  const std::vector<std::uint32_t> indices(frame.indices.begin() + outline.first,
                                           frame.indices.begin() + outline.first + outline.count);
  EXPECT_EQ(indices, (std::vector<std::uint32_t>{0, 1, 1, 2, 2, 3, 3, 0}));
  EXPECT_EQ(frame.vertices[outline.base_vertex].position, Vector3D(0.5f, 0.5f, 0.0f));
  EXPECT_EQ(frame.vertices[outline.base_vertex + 2].position, Vector3D(-0.5f, -0.5f, 0.0f));
}

TEST_F(DebugOverlay, TheOutlineStandsWhereTheSpriteDoes) {
  GameObj* object = AddSolid();
  Of<Transform>(object).m_world_pos = Vector3D(5.0f, 6.0f, 7.0f);
  Of<Transform>(object).m_world_rotate = 45.0f;
  const std::vector<DrawCommand> draws = DrawNow();
  EXPECT_EQ(draws[1].placement.translate, draws[0].placement.translate);
  EXPECT_EQ(draws[1].placement.rotate_radians, draws[0].placement.rotate_radians);
}

TEST_F(DebugOverlay, ACircleGetsItsBoundsOnly) {
  AddSolid("Circle");
  const std::vector<DrawCommand> draws = DrawNow();
  ASSERT_EQ(draws.size(), 2u);
  EXPECT_EQ(ColourOf(draws[1]), kYellow);
}

TEST_F(DebugOverlay, AnObjectInContactIsOutlinedInWhite) {
  GameObj* object = AddSolid();
  AddSolid();
  scene.System().m_collided_ids = {static_cast<std::int32_t>(object->id)};
  const std::vector<DrawCommand> draws = DrawNow();
  ASSERT_EQ(draws.size(), 6u);
  EXPECT_EQ(ColourOf(draws[1]), kWhite);
  EXPECT_EQ(ColourOf(draws[4]), kRed);
}

TEST_F(DebugOverlay, TheBoundsAreTwiceTheWayToTheExtentUprightAtDepthZero) {
  GameObj* object = AddSolid();
  Of<Transform>(object).m_world_pos = Vector3D(100.0f, 200.0f, 9.0f);
  Of<Transform>(object).m_world_rotate = 45.0f;
  Of<ColliderHolder>(object).m_collider->m_max = Vector3D(130.0f, 160.0f, 1.0f);
  const Placement bounds = DrawNow()[2].placement;
  EXPECT_EQ(bounds.translate, Vector3D(100.0f, 200.0f, 0.0f));
  EXPECT_EQ(bounds.scale.x, 60.0f);
  EXPECT_EQ(bounds.scale.y, 80.0f);
  EXPECT_EQ(bounds.rotate_radians, 0.0f);
}

TEST_F(DebugOverlay, TheSpritesFlagLeavesItsOutlinesOut) {
  Of<Render>(AddSolid()).m_debug_outline = false;
  EXPECT_EQ(DrawNow().size(), 1u);
}

TEST_F(DebugOverlay, AnObjectWithoutColliderHasNoOutlines) {
  scene.AddSprite("sprite", "one");
  EXPECT_EQ(DrawNow().size(), 1u);
}

TEST_F(DebugOverlay, AHolderWithoutShapeHasNoBounds) {
  AddSolid("Triangle");
  ASSERT_EQ(DrawNow().size(), 2u);
}

TEST_F(DebugOverlay, AModelIsOutlinedByItsFirstFourVertices) {
  GameObj* object = AddSolid();
  iModel& model = Of<iModel>(object);
  model.m_vertices.assign(5, Vertex());
  model.m_vertices[0].position = Vector3D(9.0f, 8.0f, 7.0f);
  const DrawCommand outline = DrawNow()[1];
  EXPECT_EQ(outline.count, 8u);
  EXPECT_EQ(scene.Frame().vertices[outline.base_vertex].position, Vector3D(9.0f, 8.0f, 7.0f));
}

TEST_F(DebugOverlay, ATriangleIsOutlinedWithoutTheCornersThatItLacks) {
  GameObj* object = AddSolid();
  Of<iModel>(object).m_vertices.assign(3, Vertex());
  Of<iModel>(object).m_index_buffer = {0, 1, 2};
  EXPECT_EQ(DrawNow()[1].count, 4u);
}

TEST_F(DebugOverlay, InterfaceHasNoOutlines) {
  GameObj* object = AddSolid();
  object->parent = scene.AddCamera();
  const std::vector<DrawCommand> draws = scene.Draw();
  EXPECT_EQ(draws.size(), 1u);
}

TEST_F(DebugOverlay, OutlinesAreTheTextureBoundLastForAnUnknownState) {
  AddSolid();
  scene.AddAnimated("odd", "move");
  EXPECT_EQ(DrawNow().back().texture, 10u);
}

void ListTwo(std::vector<TreeRectangle>* out) {
  out->push_back({Vector3D(-960.0f, -540.0f, 1.0f), Vector3D(960.0f, 540.0f, 1.0f)});
  out->push_back({Vector3D(-960.0f, 0.0f, 1.0f), Vector3D(0.0f, 540.0f, 1.0f)});
}

TEST_F(DebugOverlay, TheTreesRectanglesAreYellowOutlines) {
  scene.System().m_tree_lister = ListTwo;
  const std::vector<DrawCommand> draws = DrawNow();
  ASSERT_EQ(draws.size(), 2u);
  EXPECT_EQ(draws[0].kind, Kind::kOutline);
  EXPECT_EQ(ColourOf(draws[0]), kYellow);
  EXPECT_EQ(draws[0].placement.scale, Vector3D(1920.0f, 1080.0f, 0.0f));
  EXPECT_EQ(draws[1].placement.translate, Vector3D(-480.0f, 270.0f, 1.0f));
  EXPECT_EQ(draws[1].placement.scale, Vector3D(960.0f, 540.0f, 0.0f));
}

TEST_F(DebugOverlay, TheTreeIsLeftOutWithoutDebugDrawing) {
  scene.System().m_tree_lister = ListTwo;
  scene.System().m_debug_draw = false;
  EXPECT_TRUE(DrawNow().empty());
}

CollidedObjects OneContact() {
  CollidedObjects message;
  ContactInfo contact;
  contact.objectA = 4;
  contact.objectB = 9;
  contact.normal = Vector3D(0.0f, 1.0f, 0.0f);
  contact.contactPoints = {Vector3D(1.0f, 2.0f, 1.0f), Vector3D(3.0f, 4.0f, 1.0f)};
  message.contacts.push_back(contact);
  return message;
}

TEST_F(DebugOverlay, EachContactPointLeavesALineOfHalfASecondAlongTheNormal) {
  CollidedObjects message = OneContact();
  scene.System().SendMessage(&message);
  const std::vector<TimedLineRecord>& lines = scene.System().m_timed_lines;
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[1].start, Vector3D(3.0f, 4.0f, 1.0f));
  EXPECT_EQ(lines[1].end, Vector3D(3.0f, 104.0f, 1.0f));
  EXPECT_EQ(lines[1].width, 2.0f);
  EXPECT_EQ(lines[1].life_time, 0.5f);
  EXPECT_EQ(lines[1].colour, Vector3D(1.0f, 1.0f, 1.0f));
  EXPECT_EQ(lines[1].elapsed, 0.0f);
}

TEST_F(DebugOverlay, TheObjectsOfAContactAreRemembered) {
  CollidedObjects message = OneContact();
  scene.System().SendMessage(&message);
  EXPECT_EQ(scene.System().m_collided_ids, (std::vector<std::int32_t>{4, 9}));
}

TEST_F(DebugOverlay, ContactsAreIgnoredWhileItIsOff) {
  scene.System().m_debug_draw = false;
  CollidedObjects message = OneContact();
  scene.System().SendMessage(&message);
  EXPECT_TRUE(scene.System().m_timed_lines.empty());
  EXPECT_TRUE(scene.System().m_collided_ids.empty());
}

}  // namespace
}  // namespace carapace_test
