#include "render/passes/placement.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "render/passes/expect.h"
#include "support/reports.h"
#include "support/scene.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;

TEST(PlacementTest, AnUprightOneHasTheSizeAsItsScaleAndNoTurn) {
  const Placement placement = UprightPlacement(Vector3D(1.0f, 2.0f, 3.0f), 40.0f, 50.0f);
  ExpectVector(placement.translate, 1.0f, 2.0f, 3.0f);
  ExpectVector(placement.scale, 40.0f, 50.0f, 1.0f);
  EXPECT_EQ(placement.rotate_radians, 0.0f);
}

TEST(PlacementTest, ASpritesOneIsThatOfTheWorldWithFlatScale) {
  Transform transform(nullptr);
  transform.m_local_pos = Vector3D(9.0f, 9.0f, 9.0f);
  transform.m_world_pos = Vector3D(1.0f, 2.0f, 3.0f);
  transform.m_world_scale = Vector3D(40.0f, 50.0f, 60.0f);
  transform.m_world_rotate = 90.0f;
  const Placement placement = SpritePlacement(transform);
  ExpectVector(placement.translate, 1.0f, 2.0f, 3.0f);
  ExpectVector(placement.scale, 40.0f, 50.0f, 1.0f);
  EXPECT_EQ(placement.rotate_radians, 90.0f * 0.017453292f);
}

TEST(PlacementTest, TheNameDefaultAloneIsUnlit) {
  Scene scene;
  Render& render = Of<Render>(scene.AddSprite("sprite", "one"));
  EXPECT_EQ(SpriteProgram(render), Program::kDefault);
  for (const char* name : {"light", "instanced", "", "default "}) {
    render.m_shader = name;
    EXPECT_EQ(SpriteProgram(render), Program::kLight) << name;
  }
}

TEST(PlacementTest, AMissingTransformIsReportedWithObjectAndComponent) {
  World world;
  GameObj object;
  object.name = "nowhere";
  EXPECT_THAT(ReportOf([&] { RequireTransform(&object, "Light"); }),
              testing::HasSubstr("Object \"nowhere\" has a Light and no Transform"));
}

}  // namespace
}  // namespace carapace_test
