#include "physics/components/transform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <rttr/type>

#include <algorithm>
#include <cmath>

#include "physicssystem.h"
#include "support/reports.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::Record;
using carapace_test::TransformAt;
using carapace_test::World;
using ::testing::ElementsAre;

constexpr float kSlack = 1e-4f;

void ExpectClose(const Vector3D& a, const Vector3D& b, float tolerance = kSlack) {
  EXPECT_NEAR(a.x, b.x, tolerance);
  EXPECT_NEAR(a.y, b.y, tolerance);
  EXPECT_NEAR(a.z, b.z, tolerance);
}

class TransformTest : public ::testing::Test {
 protected:
  Transform& Of(const std::string& name) { return *world.Find(name)->GetComponent<Transform>(); }

  void Load(const std::string& records) {
    world.LoadObjects(records);
    g_physics_system->UpdateWorldTransforms();
  }

  /// "parent" with the child "child".
  void LoadPair(const std::string& parent, const std::string& child) {
    Load(Record("parent", {{"Transform", parent}}, {Record("child", {{"Transform", child}})}));
  }

  World world;
};

TEST_F(TransformTest, ANewTransformHasItsDefaults) {
  const Transform transform(nullptr);
  EXPECT_EQ(transform.m_local_pos, Vector3D(0, 0, 1));
  EXPECT_EQ(transform.m_local_scale, Vector3D(1, 1, 1));
  EXPECT_EQ(transform.m_local_rotate, 0.0f);
  EXPECT_EQ(transform.m_prev_pos, Vector3D(0, 0, 1));
  EXPECT_EQ(transform.m_prev_rotate, 0.0f);
  EXPECT_EQ(transform.m_world_pos, Vector3D(0, 0, 1));
  EXPECT_EQ(transform.m_world_scale, Vector3D(0, 0, 1)) << "no extent before the first derivation";
  EXPECT_EQ(transform.m_world_rotate, 0.0f);
  EXPECT_FALSE(transform.CanBeDragged);
  EXPECT_TRUE(transform.m_rotate_with_parent);
}

TEST_F(TransformTest, ReadingSetsThePreviousPositionAndRotation) {
  world.LoadObjects(Record("a", {{"Transform", TransformAt(3, 4, 5, 2, 30)}}));
  EXPECT_EQ(Of("a").m_prev_pos, Vector3D(3, 4, 5));
  EXPECT_EQ(Of("a").m_prev_rotate, 30.0f);
}

TEST_F(TransformTest, ReadingKeepsTheStoredWorldSetUntilTheNextDerivation) {
  world.LoadObjects(Record("a", {{"Transform",
                                  R"({"m_pos": [1, 2, 3], "m_scale": [1, 1, 1], "m_rotate": 0,
                                      "m_rotate_with_parent": true, "m_world_scale": [7, 8, 9],
                                      "m_world_rotate": 10, "m_world_pos": [11, 12, 13]})"}}));
  EXPECT_EQ(Of("a").m_world_scale, Vector3D(7, 8, 9));
  EXPECT_EQ(Of("a").m_world_rotate, 10.0f);
  EXPECT_EQ(Of("a").m_world_pos, Vector3D(11, 12, 13));
  g_physics_system->UpdateWorldTransforms();
  EXPECT_EQ(Of("a").m_world_pos, Vector3D(1, 2, 3));
}

// Derivation

TEST_F(TransformTest, ARootsWorldSetIsItsLocalSet) {
  Load(Record("a", {{"Transform", TransformAt(3, 4, 5, 2, 400)}}));
  EXPECT_EQ(Of("a").m_world_pos, Vector3D(3, 4, 5));
  EXPECT_EQ(Of("a").m_world_scale, Vector3D(2, 2, 1));
  EXPECT_EQ(Of("a").m_world_rotate, 400.0f) << "a root's angle is not wrapped";
}

TEST_F(TransformTest, AChildThatDoesNotTurnIsForcedToDepth1) {
  LoadPair(TransformAt(10, 20, 5, 1, 45), TransformAt(1, 2, 7, 1, 30, false));
  EXPECT_EQ(Of("child").m_world_pos, Vector3D(11, 22, 1));
  EXPECT_EQ(Of("child").m_world_rotate, 30.0f) << "it keeps its own orientation";
}

TEST_F(TransformTest, AChildThatTurnsKeepsItsDepth) {
  LoadPair(TransformAt(10, 20, 5, 1, 90), TransformAt(1, 2, 7));
  ExpectClose(Of("child").m_world_pos, Vector3D(8, 21, 7));
  EXPECT_NEAR(Of("child").m_world_rotate, 90.0f, kSlack);
  EXPECT_EQ(Of("child").m_world_pos.z, 7.0f);
}

TEST_F(TransformTest, TheAnglesOfAChainAddUpWithin180Degrees) {
  LoadPair(TransformAt(0, 0, 1, 1, 170), TransformAt(0, 0, 1, 1, 30));
  EXPECT_NEAR(Of("child").m_world_rotate, -160.0f, kSlack);
  LoadPair(TransformAt(0, 0, 1, 1, 0), TransformAt(0, 0, 1, 1, 730));
  EXPECT_NEAR(g_game_obj_factory->m_objects.back()->GetComponent<Transform>()->m_world_rotate,
              10.0f, 1e-3f);
}

TEST_F(TransformTest, TheScaleIsTheProductOfTheChain) {
  Load(Record("parent", {{"Transform", TransformAt(10, 0, 1, 2)}},
              {Record("child", {{"Transform", TransformAt(1, 0, 1, 3, 0, false)}},
                      {Record("grandchild", {{"Transform", TransformAt(1, 0, 1, 5)}})})}));
  EXPECT_EQ(Of("child").m_world_scale, Vector3D(6, 6, 1));
  EXPECT_EQ(Of("grandchild").m_world_scale, Vector3D(30, 30, 1));
  EXPECT_EQ(Of("child").m_world_pos, Vector3D(11, 0, 1)) << "positions are not scaled";
  EXPECT_EQ(Of("grandchild").m_world_pos, Vector3D(12, 0, 1));
}

TEST_F(TransformTest, ScaleIsMultipliedInDepthToo) {
  LoadPair(R"({"m_pos": [0, 0, 1], "m_scale": [2, 3, 4]})",
           R"({"m_pos": [0, 0, 1], "m_scale": [5, 6, 7]})");
  EXPECT_EQ(Of("child").m_world_scale, Vector3D(10, 18, 28));
}

TEST_F(TransformTest, GrandchildrenAreComposedFromLocalValues) {
  const auto load = [&] {
    Load(Record("a", {{"Transform", TransformAt(100, 0, 1, 1, 90)}},
                {Record("b", {{"Transform", TransformAt(10, 0, 1, 1, 90)}},
                        {Record("c", {{"Transform", TransformAt(1, 0)}})})}));
  };
  load();
  // c at (1, 0) is turned by b to (0, 1), moved to (10, 1), turned by a to (-1, 10), moved.
  ExpectClose(Of("c").m_world_pos, Vector3D(99, 10, 1));
  EXPECT_NEAR(std::abs(Of("c").m_world_rotate), 180.0f, kSlack);
}

TEST_F(TransformTest, TheOrderOfTheTableDoesNotMatter) {
  // Objects in all orders in the table, joined to one chain afterwards.
  std::vector<int> order = {0, 1, 2};
  const std::string records[] = {Record("a", {{"Transform", TransformAt(100, 5, 1, 2, 30)}}),
                                 Record("b", {{"Transform", TransformAt(10, 6, 1, 3, 40)}}),
                                 Record("c", {{"Transform", TransformAt(1, 7, 1, 4, 50)}})};
  std::vector<std::vector<float>> results;
  do {
    g_game_obj_factory->ClearObjects();
    for (const int i : order) world.LoadObjects(records[i]);
    world.Find("c")->parent = world.Find("b");
    world.Find("b")->parent = world.Find("a");
    g_physics_system->UpdateWorldTransforms();
    const Transform& c = Of("c");
    results.push_back({c.m_world_pos.x, c.m_world_pos.y, c.m_world_rotate, c.m_world_scale.x});
  } while (std::next_permutation(order.begin(), order.end()));
  EXPECT_THAT(results, ::testing::Each(results.front()));
  EXPECT_EQ(results.size(), 6u);
}

TEST_F(TransformTest, AChangeOfParentTakesEffectAtTheNextDerivation) {
  Load(Record("a", {{"Transform", TransformAt(10, 0)}}) + "," +
       Record("b", {{"Transform", TransformAt(1, 0)}}));
  world.Find("b")->parent = world.Find("a");
  EXPECT_EQ(Of("b").m_world_pos.x, 1.0f);
  g_physics_system->UpdateWorldTransforms();
  EXPECT_EQ(Of("b").m_world_pos.x, 11.0f);
}

TEST_F(TransformTest, AnAncestorWithoutATransformIsPassedOver) {
  Load(Record("a", {{"Transform", TransformAt(10, 0)}},
              {Record("plain", {}, {Record("c", {{"Transform", TransformAt(1, 0)}})})}));
  EXPECT_EQ(Of("c").m_world_pos, Vector3D(11, 0, 1));
}

TEST_F(TransformTest, DerivingTwiceGivesTheSame) {
  LoadPair(TransformAt(10, 20, 5, 2, 33), TransformAt(1, 2, 7, 3, 44));
  const Vector3D pos = Of("child").m_world_pos;
  const float rotate = Of("child").m_world_rotate;
  g_physics_system->UpdateWorldTransforms();
  EXPECT_EQ(Of("child").m_world_pos, pos);
  EXPECT_EQ(Of("child").m_world_rotate, rotate);
}

// Verbs

TEST_F(TransformTest, SetLocalPositionSetsThePreviousOneToo) {
  Load(Record("a", {{"Transform", TransformAt(3, 4)}}));
  Of("a").SetLocalPosition(Vector3D(5, 6, 7));
  EXPECT_EQ(Of("a").m_local_pos, Vector3D(5, 6, 7));
  EXPECT_EQ(Of("a").m_prev_pos, Vector3D(5, 6, 7));
  EXPECT_EQ(Of("a").m_world_pos, Vector3D(3, 4, 1));
}

TEST_F(TransformTest, GetRotateIsTheRotationOfItsArgument) {
  LoadPair(TransformAt(0, 0, 1, 1, 10), TransformAt(0, 0, 1, 1, 90));
  const Matrix4x4 m = Of("parent").GetRotate(&Of("child"));
  const Matrix4x4 expected = Matrix4x4::Rotation(90.0f);
  for (int i = 0; i < 16; ++i) EXPECT_EQ(m.m[i], expected.m[i]);
}

TEST_F(TransformTest, SetWorldPositionOfARootSetsBothPositions) {
  Load(Record("a", {{"Transform", TransformAt(3, 4)}}));
  Of("a").SetWorldPosition(Vector3D(5, 6, 7));
  EXPECT_EQ(Of("a").m_local_pos, Vector3D(5, 6, 7));
  EXPECT_EQ(Of("a").m_world_pos, Vector3D(5, 6, 7));
  EXPECT_EQ(Of("a").m_prev_pos, Vector3D(3, 4, 1)) << "not touched";
}

TEST_F(TransformTest, SetWorldPositionUndoesOneParentExactly) {
  for (const bool turns : {true, false}) {
    g_game_obj_factory->ClearObjects();
    LoadPair(TransformAt(10, 20, 1, 3, 75), TransformAt(1, 2, 1, 1, 0, turns));
    Of("child").SetWorldPosition(Vector3D(-40, 55, 1));
    g_physics_system->UpdateWorldTransforms();
    ExpectClose(Of("child").m_world_pos, Vector3D(-40, 55, 1), 1e-3f);
  }
}

TEST_F(TransformTest, SetWorldPositionUndoesTheNearestAncestorFirst) {
  Load(Record("a", {{"Transform", TransformAt(100, 0, 1, 1, 90)}},
              {Record("b", {{"Transform", TransformAt(10, 0)}},
                      {Record("c", {{"Transform", TransformAt(1, 0)}})})}));
  Of("c").SetWorldPosition(Vector3D(0, 0, 1));
  // Undoing b gives (-10, 0); undoing a gives (-110, 0) turned by -90 degrees. The other way round
  // would have given (-10, 100).
  ExpectClose(Of("c").m_local_pos, Vector3D(0, 110, 1), 1e-3f);
}

TEST_F(TransformTest, RotateAroundTurnsAboutThePivot) {
  Load(Record("a", {{"Transform", TransformAt(3, 4, 9, 1, 350)}}));
  Of("a").RotateAround(Vector3D(1, 4, 2), 90.0f);
  ExpectClose(Of("a").m_local_pos, Vector3D(1, 6, 3));
  EXPECT_EQ(Of("a").m_local_pos.z, 3.0f) << "one above the pivot's depth, whatever it was";
  EXPECT_EQ(Of("a").m_local_rotate, 440.0f) << "not wrapped";
}

TEST_F(TransformTest, RotateAroundTheOriginSetsDepth1) {
  Load(Record("a", {{"Transform", TransformAt(3, 4, 9)}}));
  Of("a").RotateAround(Vector3D(0, 0, 0), 0.0f);
  EXPECT_EQ(Of("a").m_local_pos, Vector3D(3, 4, 1));
}

// Reflection

TEST(TransformReflection, FieldsStandInOrderWithTheirLabels) {
  const rttr::type type = rttr::type::get_by_name("ZOVEngine::Transform");
  ASSERT_TRUE(type.is_valid());
  EXPECT_TRUE(type.get_metadata("isInspect").to_bool());
  EXPECT_EQ(type.get_metadata("componentname").get_value<std::string>(), "Transform");
  std::vector<std::string> fields;
  for (const rttr::property& property : type.get_properties()) {
    if (property.get_declaring_type() != type) continue;
    EXPECT_TRUE(property.get_metadata("is_inspect").to_bool());
    EXPECT_EQ(property.get_metadata("DisplayMode").get_value<std::string>(), "default");
    fields.push_back(property.get_name().to_string() + "|" +
                     property.get_metadata("typeinfo").get_value<std::string>() + "|" +
                     property.get_metadata("name").get_value<std::string>());
  }
  EXPECT_THAT(
      fields,
      ElementsAre("m_local_pos|Vector3|Local Position", "m_local_scale|Vector3|Local Scale",
                  "m_local_rotate|float|Local Rotate", "m_prev_pos|Vector3|Previous Positon",
                  "m_prev_rotate|float|Previous Rotate", "m_world_pos|Vector3|World Position",
                  "m_world_scale|Vector3|World Scale", "m_world_rotate|float|World Rotate",
                  "CanBeDragged|bool|Can Be Dragged",
                  "m_rotate_with_parent|bool|Rotate with parent"));
}

TEST(TransformReflection, MethodsStandInOrder) {
  std::vector<std::string> methods;
  for (const rttr::method& method : rttr::type::get<Transform>().get_methods()) {
    methods.push_back(method.get_name().to_string());
  }
  EXPECT_THAT(methods,
              ElementsAre("SetLocalPosition", "GetRotate", "SetWorldPosition", "RotateAround"));
}

TEST(TransformReflection, AFieldIsWrittenThroughTheBase) {
  Transform transform(nullptr);
  GameComponentBase& base = transform;
  const rttr::type type = rttr::type::get(base);
  EXPECT_EQ(type.get_name(), "ZOVEngine::Transform");
  EXPECT_TRUE(type.set_property_value("m_local_rotate", rttr::instance(base), 12.5f));
  EXPECT_EQ(transform.m_local_rotate, 12.5f);
  EXPECT_TRUE(type.set_property_value("m_active", rttr::instance(base), false));
  EXPECT_FALSE(transform.m_active);
}

}  // namespace
}  // namespace ZOVEngine
