#include "objects/reflection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <rttr/type>

#include <string>
#include <vector>

#include "objects/gamecomponentbase.h"
#include "physics/components/transform.h"

namespace ZOVEngine {
namespace {

using ::testing::ElementsAre;

/// "name|typeinfo|label" of the properties that the class itself declares.
std::vector<std::string> OwnFields(const rttr::type& type) {
  std::vector<std::string> fields;
  for (const rttr::property& property : type.get_properties()) {
    if (property.get_declaring_type() != type) continue;
    fields.push_back(property.get_name().to_string() + "|" +
                     property.get_metadata("typeinfo").get_value<std::string>() + "|" +
                     property.get_metadata("name").get_value<std::string>());
  }
  return fields;
}

TEST(Reflection, ComponentClassesCarryTheirNames) {
  for (const char* name :
       {"GameComponentBase", "Transform", "RigidBody", "ColliderHolder", "Font", "Animation"}) {
    const rttr::type type = rttr::type::get_by_name(std::string("ZOVEngine::") + name);
    ASSERT_TRUE(type.is_valid()) << name;
    EXPECT_TRUE(type.get_metadata("isInspect").to_bool()) << name;
    EXPECT_EQ(type.get_metadata("componentname").get_value<std::string>(), name);
    EXPECT_FALSE(type.get_metadata("systemname").is_valid()) << name;
  }
}

TEST(Reflection, SystemClassesCarryTheirNames) {
  for (const char* name : {"GameObjFactory", "WindowSystem", "InputSystem", "LogicSystem",
                           "PhysicsSystem", "ColliderSystem", "RenderSystem", "AudioSystem"}) {
    const rttr::type type = rttr::type::get_by_name(std::string("ZOVEngine::") + name);
    ASSERT_TRUE(type.is_valid()) << name;
    EXPECT_EQ(type.get_metadata("systemname").get_value<std::string>(), name);
  }
}

TEST(Reflection, TheActiveFlagIsInheritedByAll) {
  const rttr::type base = rttr::type::get<GameComponentBase>();
  EXPECT_THAT(OwnFields(base), ElementsAre("m_active|bool|Active"));
  EXPECT_EQ(base.get_property("m_active").get_metadata("DisplayMode").get_value<std::string>(),
            "default");
  for (const char* name : {"Transform", "RigidBody", "ColliderHolder", "Font", "Animation"}) {
    const rttr::type type = rttr::type::get_by_name(std::string("ZOVEngine::") + name);
    EXPECT_TRUE(type.is_derived_from(base)) << name;
    EXPECT_TRUE(type.get_property("m_active").is_valid()) << name;
  }
}

TEST(Reflection, ValueTypesAreKnownByTheirNames) {
  EXPECT_EQ(rttr::type::get_by_name("Vector3"), rttr::type::get<Vector3D>());
  EXPECT_EQ(rttr::type::get_by_name("Matrix4x4"), rttr::type::get<Matrix4x4>());
}

TEST(Reflection, AVectorFieldIsWrittenWhole) {
  Transform transform(nullptr);
  const rttr::property field = rttr::type::get<Transform>().get_property("m_local_scale");
  EXPECT_EQ(field.get_type(), rttr::type::get<Vector3D>());
  EXPECT_TRUE(field.set_value(transform, Vector3D(2, 3, 4)));
  EXPECT_EQ(transform.m_local_scale, Vector3D(2, 3, 4));
}

}  // namespace
}  // namespace ZOVEngine
