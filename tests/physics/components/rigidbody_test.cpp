#include "physics/components/rigidbody.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <rttr/type>

#include "support/reports.h"

namespace ZOVEngine {
namespace {

using carapace_test::ReadRecord;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(RigidBody, ANewBodyHasItsDefaults) {
  const RigidBody body(nullptr);
  for (const Vector3D* v : {&body.m_prev_vel, &body.m_vel, &body.m_accel, &body.m_sleeper_vel}) {
    EXPECT_EQ(*v, Vector3D(0, 0, 0));
  }
  for (const float* zero : {&body.m_rot_vel, &body.m_rot_accel, &body.m_sleeper_rot_vel,
                            &body.m_drag, &body.m_angular_drag, &body.m_rest}) {
    EXPECT_EQ(*zero, 0.0f);
  }
  for (const float* one : {&body.m_mass, &body.m_inv_mass, &body.m_inertia, &body.m_inv_inertia}) {
    EXPECT_EQ(*one, 1.0f);
  }
  EXPECT_THAT(body.m_forces, IsEmpty());
  EXPECT_THAT(body.m_torques, IsEmpty());
}

TEST(RigidBody, ANewForceIsActiveAndYoung) {
  const DirectionalForce force;
  EXPECT_EQ(force.age, 0.0f);
  EXPECT_TRUE(force.active);
  const RotationalForce torque;
  EXPECT_EQ(torque.age, 0.0f);
  EXPECT_TRUE(torque.active);
}

TEST(RigidBody, ReadingComputesTheInverses) {
  RigidBody body(nullptr);
  ReadRecord(R"({"m_mass": 4, "m_inertia": 0.5})", body);
  EXPECT_EQ(body.m_inv_mass, 0.25f);
  EXPECT_EQ(body.m_inv_inertia, 2.0f);
}

TEST(RigidBody, AMassNotAbove0HasTheInverse0) {
  for (const char* record :
       {R"({"m_mass": 0, "m_inertia": 0})", R"({"m_mass": -3, "m_inertia": -0.5})"}) {
    RigidBody body(nullptr);
    ReadRecord(record, body);
    EXPECT_EQ(body.m_inv_mass, 0.0f) << record;
    EXPECT_EQ(body.m_inv_inertia, 0.0f) << record;
  }
}

TEST(RigidBody, AMassWrittenLaterKeepsTheOldInverse) {
  RigidBody body(nullptr);
  ReadRecord(R"({"m_mass": 4})", body);
  rttr::type::get<RigidBody>().set_property_value("m_mass", rttr::instance(body), 8.0f);
  EXPECT_EQ(body.m_mass, 8.0f);
  EXPECT_EQ(body.m_inv_mass, 0.25f);
}

TEST(RigidBody, TheInspectorSeesFiveFloats) {
  const rttr::type type = rttr::type::get_by_name("ZOVEngine::RigidBody");
  std::vector<std::string> fields;
  for (const rttr::property& property : type.get_properties()) {
    if (property.get_declaring_type() != type) continue;
    EXPECT_TRUE(property.get_metadata("is_inspect").to_bool());
    EXPECT_EQ(property.get_metadata("DisplayMode").get_value<std::string>(), "float");
    fields.push_back(property.get_name().to_string() + "|" +
                     property.get_metadata("name").get_value<std::string>());
  }
  EXPECT_THAT(fields, ElementsAre("m_mass|Mass", "m_inertia|Inertia", "m_drag|Drag",
                                  "m_angular_drag|Ang Drag", "m_rest|Rest"));
}

}  // namespace
}  // namespace ZOVEngine
