#include "render/passes/lightpass.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/reports.h"
#include "support/scene.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;

GameObj* AddLight(Scene& scene, float strength) {
  GameObj* object = scene.AddObject("light");
  object->AddComponent<Light>();
  Of<Light>(object).m_diffuseStr = strength;
  return object;
}

const std::vector<LightRecord>& Lights(Scene& scene) {
  scene.Draw();
  return scene.Frame().lights;
}

TEST(LightPass, WithoutLightsTheFrameHasNone) {
  Scene scene;
  EXPECT_TRUE(Lights(scene).empty());
}

TEST(LightPass, CarriesEveryValueOfALight) {
  Scene scene;
  GameObj* object = AddLight(scene, 0.25f);
  Light& light = Of<Light>(object);
  light.m_ambient = Vector3D(0.1f, 0.2f, 0.3f);
  light.m_diffuse = Vector3D(0.4f, 0.5f, 0.6f);
  light.m_specular = Vector3D(0.7f, 0.8f, 0.9f);
  light.m_ambientStr = 2.0f;
  light.m_specularStr = 3.0f;
  ASSERT_EQ(Lights(scene).size(), 1u);
  const LightRecord& record = scene.Frame().lights[0];
  EXPECT_EQ(record.ambient, light.m_ambient);
  EXPECT_EQ(record.diffuse, light.m_diffuse);
  EXPECT_EQ(record.specular, light.m_specular);
  EXPECT_EQ(record.ambientStr, 2.0f);
  EXPECT_EQ(record.diffuseStr, 0.25f);
  EXPECT_EQ(record.specularStr, 3.0f);
}

TEST(LightPass, TheLightFollowsItsObject) {
  Scene scene;
  GameObj* object = AddLight(scene, 1.0f);
  Of<Light>(object).m_pos = Vector3D(10.0f, 20.0f, 30.0f);
  Of<Transform>(object).m_local_pos = Vector3D(1.0f, 2.0f, 3.0f);
  EXPECT_EQ(Lights(scene).at(0).position, Vector3D(11.0f, 22.0f, 33.0f));
  Of<Transform>(object).m_local_pos = Vector3D(100.0f, 2.0f, 3.0f);
  EXPECT_EQ(Lights(scene).at(0).position, Vector3D(110.0f, 22.0f, 33.0f));
}

TEST(LightPass, ALightStandsAtTheWorldPositionOfAChild) {
  Scene scene;
  GameObj* parent = scene.AddObject("parent");
  Of<Transform>(parent).m_local_pos = Vector3D(100.0f, 200.0f, 1.0f);
  GameObj* object = scene.AddObject("light", parent);
  object->AddComponent<Light>();
  Of<Light>(object).m_pos = Vector3D(1.0f, 2.0f, 3.0f);
  Of<Transform>(object).m_local_pos = Vector3D(10.0f, 20.0f, 1.0f);
  const Vector3D position = Lights(scene).at(0).position;
  EXPECT_EQ(position.x, 111.0f);
  EXPECT_EQ(position.y, 222.0f);
}

TEST(LightPass, LightsKeepTheOrderOfTheTable) {
  Scene scene;
  for (const float strength : {3.0f, 1.0f, 2.0f}) AddLight(scene, strength);
  const std::vector<LightRecord>& lights = Lights(scene);
  ASSERT_EQ(lights.size(), 3u);
  EXPECT_EQ(lights[0].diffuseStr, 3.0f);
  EXPECT_EQ(lights[1].diffuseStr, 1.0f);
  EXPECT_EQ(lights[2].diffuseStr, 2.0f);
}

TEST(LightPass, AnInactiveLightIsOff) {
  Scene scene;
  Of<Light>(AddLight(scene, 1.0f)).m_active = false;
  AddLight(scene, 2.0f);
  const std::vector<LightRecord>& lights = Lights(scene);
  ASSERT_EQ(lights.size(), 1u);
  EXPECT_EQ(lights[0].diffuseStr, 2.0f);
}

TEST(LightPass, ALightOnAHiddenSpriteIsOff) {
  Scene scene;
  GameObj* sprite = scene.AddSprite("sprite", "one");
  sprite->AddComponent<Light>();
  Of<Render>(sprite).m_visible = false;
  EXPECT_TRUE(Lights(scene).empty());
}

TEST(LightPass, ALightOnAVisibleSpriteIsOn) {
  Scene scene;
  scene.AddSprite("sprite", "one")->AddComponent<Light>();
  EXPECT_EQ(Lights(scene).size(), 1u);
}

TEST(LightPass, ALightOfANewLevelIsThereInTheNextFrame) {
  Scene scene;
  EXPECT_TRUE(Lights(scene).empty());
  AddLight(scene, 1.0f);
  EXPECT_EQ(Lights(scene).size(), 1u);
}

TEST(LightPass, ManyLightsAreAllPassedOn) {
  Scene scene;
  for (int i = 0; i < 500; ++i) AddLight(scene, 1.0f);
  EXPECT_EQ(Lights(scene).size(), 500u);
}

TEST(LightPass, ALightWithoutTransformIsReportedByName) {
  Scene scene;
  auto* object = new GameObj;
  object->id = static_cast<std::uint32_t>(g_game_obj_factory->m_objects.size());
  object->name = "nowhere";
  g_game_obj_factory->m_objects.push_back(object);
  object->AddComponent<Light>();
  EXPECT_THAT(ReportOf([&] { scene.world.Step(); }),
              testing::HasSubstr("Object \"nowhere\" has a Light and no Transform"));
}

}  // namespace
}  // namespace carapace_test
