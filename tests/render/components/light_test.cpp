#include "render/components/light.h"

#include <gtest/gtest.h>

#include "support/reports.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::OutputOf;
using carapace_test::ReadRecord;
using carapace_test::Record;
using carapace_test::World;

TEST(Light, ANewOneIsActiveAndBlack) {
  const Light light(nullptr);
  EXPECT_TRUE(light.m_active);
  for (const Vector3D& value : {light.m_pos, light.m_diffuse, light.m_specular, light.m_ambient}) {
    EXPECT_EQ(value, Vector3D());
  }
  EXPECT_EQ(light.m_diffuseStr, 0.0f);
  EXPECT_EQ(light.m_specularStr, 0.0f);
  EXPECT_EQ(light.m_ambientStr, 0.0f);
}

TEST(Light, EachKeyReachesItsField) {
  Light light(nullptr);
  ReadRecord(R"({"m_active": true, "m_pos": [1, 2, 3], "m_diffuse": [4, 5, 6],
                 "m_specular": [7, 8, 9], "m_ambient": [10, 11, 12], "m_diffuseStr": 13,
                 "m_specularStr": 14, "m_ambientStr": 15})",
             light);
  EXPECT_EQ(light.m_pos, Vector3D(1, 2, 3));
  EXPECT_EQ(light.m_diffuse, Vector3D(4, 5, 6));
  EXPECT_EQ(light.m_specular, Vector3D(7, 8, 9));
  EXPECT_EQ(light.m_ambient, Vector3D(10, 11, 12));
  EXPECT_EQ(light.m_diffuseStr, 13.0f);
  EXPECT_EQ(light.m_specularStr, 14.0f);
  EXPECT_EQ(light.m_ambientStr, 15.0f);
}

TEST(Light, ItsOwnSwitchStandsInTheFile) {
  World world;
  OutputOf([&] { world.LoadObjects(Record("lamp", {{"Light", R"({"m_active": false})"}})); });
  EXPECT_TRUE(world.Find("lamp")->active);
  EXPECT_FALSE(world.Find("lamp")->GetComponent<Light>()->m_active);
}

}  // namespace
}  // namespace ZOVEngine
