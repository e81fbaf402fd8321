#include "physics/components/colliderholder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <rttr/type>

#include "objects/componentmanager.h"
#include "physics/components/transform.h"
#include "support/reports.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::KeysOf;
using carapace_test::OutputOf;
using carapace_test::ReadRecord;
using carapace_test::Record;
using carapace_test::RecordOf;
using carapace_test::ReportOf;
using carapace_test::TransformAt;
using carapace_test::World;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class ColliderHolderTest : public ::testing::Test {
 protected:
  ColliderHolder& Load(const std::string& fields) {
    OutputOf([&] {
      world.LoadObjects(
          Record("thing", {{"Transform", TransformAt(7, 8, 1, 4)}, {"ColliderHolder", fields}}));
    });
    return *g_game_obj_factory->m_objects.back()->GetComponent<ColliderHolder>();
  }

  World world;
};

TEST_F(ColliderHolderTest, ANewHolderIsABoxOfTheDefaultCategory) {
  const ColliderHolder& holder = Load("{}");
  EXPECT_EQ(holder.m_collider_type, "Box");
  EXPECT_NE(dynamic_cast<BoxCollider*>(holder.m_collider.get()), nullptr);
  EXPECT_EQ(holder.m_layer, 0);
  EXPECT_FALSE(holder.m_debug);
  EXPECT_EQ(holder.bitmask_category, "Default");
  EXPECT_TRUE(holder.m_active);
}

TEST_F(ColliderHolderTest, TheTypeChoosesTheShape) {
  EXPECT_NE(dynamic_cast<BoxCollider*>(Load(R"({"m_collider_type": "Box"})").m_collider.get()),
            nullptr);
  EXPECT_NE(
      dynamic_cast<CircleCollider*>(Load(R"({"m_collider_type": "Circle"})").m_collider.get()),
      nullptr);
  const ColliderHolder& polygon = Load(R"({"m_collider_type": "Polygon"})");
  EXPECT_NE(dynamic_cast<PolygonCollider*>(polygon.m_collider.get()), nullptr);
  EXPECT_EQ(dynamic_cast<BoxCollider*>(polygon.m_collider.get()), nullptr);
}

TEST_F(ColliderHolderTest, ABoxIsMadeFromTheObjectsTransform) {
  const ColliderHolder& holder = Load(R"({"m_collider_type": "Box"})");
  EXPECT_EQ(holder.m_collider->m_max, Vector3D(2, 2, 1.5f));
}

TEST_F(ColliderHolderTest, SettingTheTypeMakesANewShape) {
  ColliderHolder& holder = Load("{}");
  holder.m_collider->m_local_rot = 45.0f;
  holder.SetType("Circle");
  EXPECT_EQ(holder.m_collider_type, "Circle");
  EXPECT_EQ(holder.m_collider->m_local_rot, 0.0f);
  EXPECT_NE(dynamic_cast<CircleCollider*>(holder.m_collider.get()), nullptr);
}

TEST_F(ColliderHolderTest, AHolderWithoutATransformIsReadToo) {
  world.LoadObjects(Record("bare", {{"ColliderHolder", R"({"m_active": true, "m_layer": 0,
      "m_collider_type": "Box", "bitmask_category": "Wall", "m_local_scale": [1, 1, 1],
      "m_local_pos": [0, 0, 1], "m_local_rot": 0})"}}));
  EXPECT_EQ(world.Find("bare")->GetComponent<ColliderHolder>()->m_collider->m_max,
            Vector3D(0.5f, 0.5f, 1.5f));
}

TEST_F(ColliderHolderTest, TheShapeTakesItsFieldsStraightFromTheRecord) {
  const ColliderHolder& holder = Load(R"({"m_active": false, "m_layer": 3,
      "m_collider_type": "Box", "bitmask_category": "Wall", "m_local_scale": [2, 3, 4],
      "m_local_pos": [5, 6, 7], "m_local_rot": 8})");
  EXPECT_FALSE(holder.m_active);
  EXPECT_EQ(holder.m_layer, 3);
  EXPECT_EQ(holder.bitmask_category, "Wall");
  EXPECT_EQ(holder.m_collider->m_local_scale, Vector3D(2, 3, 4));
  EXPECT_EQ(holder.m_collider->m_local_pos, Vector3D(5, 6, 7));
  EXPECT_EQ(holder.m_collider->m_local_rot, 8.0f);
  const auto& box = dynamic_cast<const BoxCollider&>(*holder.m_collider);
  EXPECT_EQ(box.m_local_vertices[0], Vector3D(-0.5f, 0.5f, 1)) << "the vertices do not move";
}

TEST_F(ColliderHolderTest, APolygonHasItsVerticesInTheFile) {
  ColliderHolder& holder = Load(R"({"m_active": true, "m_layer": 0, "m_collider_type": "Polygon",
      "bitmask_category": "Wall", "collider_vertices": [[0, 0, 1], [0, 4, 1], [4, 0, 1]],
      "m_local_scale": [1, 1, 1], "m_local_pos": [0, 0, 1], "m_local_rot": 0})");
  const auto& polygon = dynamic_cast<const PolygonCollider&>(*holder.m_collider);
  EXPECT_THAT(polygon.GetLocalVertices(),
              ElementsAre(Vector3D(0, 0, 1), Vector3D(0, 4, 1), Vector3D(4, 0, 1)));
  EXPECT_THAT(KeysOf(RecordOf(holder)),
              ElementsAre("m_active", "m_layer", "m_collider_type", "bitmask_category",
                          "collider_vertices", "m_local_scale", "m_local_pos", "m_local_rot"));
}

TEST_F(ColliderHolderTest, APolygonWithoutTheKeyIsComplainedAboutInItsPlace) {
  ColliderHolder& holder = Load("{}");
  EXPECT_EQ(OutputOf([&] {
              ReadRecord(R"({"m_active": true, "m_layer": 0, "m_collider_type": "Polygon",
                  "bitmask_category": "Wall"})",
                         holder);
            }),
            "Cant find Key: collider_vertices\nm_local_scale not found\nm_local_pos not found\n"
            "Cant find Key: m_local_rot\n");
}

TEST_F(ColliderHolderTest, AnUnknownTypeIsReported) {
  EXPECT_THAT(
      ReportOf([&] { Load(R"({"m_collider_type": "Star"})"); }),
      AllOf(HasSubstr("\"thing\""), HasSubstr("\"ColliderHolder\""), HasSubstr("\"Star\"")));
}

TEST_F(ColliderHolderTest, ACopyClonesTheShape) {
  ColliderHolder& holder = Load("{}");
  const ColliderHolder copy(holder);
  EXPECT_NE(copy.m_collider, holder.m_collider);
  holder.m_collider->m_local_rot = 45.0f;
  EXPECT_EQ(copy.m_collider->m_local_rot, 0.0f);
  EXPECT_EQ(copy.m_collider_type, "Box");
}

TEST_F(ColliderHolderTest, SetDebugIsReachedByName) {
  ColliderHolder& holder = Load("{}");
  const rttr::type type = rttr::type::get_by_name("ZOVEngine::ColliderHolder");
  EXPECT_EQ(type.get_metadata("componentname").get_value<std::string>(), "ColliderHolder");
  type.get_method("SetDebug").invoke(holder, true);
  EXPECT_TRUE(holder.m_debug);
}

}  // namespace
}  // namespace ZOVEngine
