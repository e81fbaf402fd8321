#include "render/passes/camerapass.h"

#include <gtest/gtest.h>

#include "game/camera.h"
#include "render/passes/expect.h"
#include "support/scene.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;

TEST(CameraPass, WithoutAnyCameraTheViewRestsAtTheOrigin) {
  Scene scene;
  scene.Draw();
  ExpectVector(scene.System().m_view_translate, 0.0f, 0.0f, 0.0f);
  ExpectVector(scene.Frame().view_pos, 0.0f, 0.0f, -1303.5f);
}

TEST(CameraPass, TheViewNegatesTheCameraAndKeepsItsDepth) {
  Scene scene;
  GameObj* camera = scene.AddCamera();
  camera->GetComponent<Transform>()->m_local_pos = Vector3D(100.0f, -40.0f, 20.0f);
  scene.Draw();
  ExpectVector(scene.System().m_view_translate, -100.0f, 40.0f, 20.0f);
  ExpectVector(scene.Frame().view_pos, -100.0f, 40.0f, 20.0f - 1303.5f);
}

TEST(CameraPass, TheViewMatrixIsATranslationInRowMajorOrder) {
  Scene scene;
  GameObj* camera = scene.AddCamera();
  camera->GetComponent<Transform>()->m_local_pos = Vector3D(100.0f, -40.0f, 20.0f);
  scene.Draw();
  Matrix4x4 expected = Matrix4x4::Translation(-100.0f, 40.0f);
  expected.m[11] = 20.0f - 1303.5f;
  for (int i = 0; i < 16; ++i) EXPECT_EQ(scene.Frame().view.m[i], expected.m[i]) << i;
}

TEST(CameraPass, TheOffsetIsAddedInAllThreeDirections) {
  Scene scene;
  GameObj* camera = scene.AddCamera();
  Of<Transform>(camera).m_world_pos = Vector3D(10.0f, 20.0f, 30.0f);
  Of<Camera>(camera).m_offset = Vector3D(3.0f, 6.0f, 9.0f);
  Vector3D view_translate;
  Frame frame;
  CameraPass(scene.System().m_camera_table->Components(), &view_translate, &frame);
  ExpectVector(view_translate, -13.0f, -26.0f, 39.0f);
}

TEST(CameraPass, ACameraThatHangsOnAnObjectIsSeenFromItsWorldPosition) {
  Scene scene;
  GameObj* grandparent = scene.AddObject("grandparent");
  Of<Transform>(grandparent).m_local_pos = Vector3D(1000.0f, 2000.0f, 1.0f);
  GameObj* parent = scene.AddObject("parent", grandparent);
  Of<Transform>(parent).m_local_pos = Vector3D(100.0f, 200.0f, 1.0f);
  GameObj* camera = scene.AddCamera(parent);
  Of<Transform>(camera).m_local_pos = Vector3D(10.0f, 20.0f, 1.0f);
  scene.Draw();
  EXPECT_EQ(scene.System().m_view_translate.x, -1110.0f);
  EXPECT_EQ(scene.System().m_view_translate.y, -2220.0f);
}

TEST(CameraPass, TheLastActiveCameraWins) {
  Scene scene;
  const float positions[] = {10.0f, 20.0f, 30.0f};
  for (const float x : positions) {
    scene.AddCamera()->GetComponent<Transform>()->m_local_pos = Vector3D(x, 0.0f, 0.0f);
  }
  scene.System().m_camera_table->Components()[2]->m_active = false;
  scene.Draw();
  EXPECT_EQ(scene.System().m_view_translate.x, -20.0f);
}

TEST(CameraPass, TheViewStaysWhenTheLastCameraIsSwitchedOff) {
  Scene scene;
  GameObj* camera = scene.AddCamera();
  camera->GetComponent<Transform>()->m_local_pos = Vector3D(100.0f, 0.0f, 0.0f);
  scene.Draw();
  Of<Camera>(camera).m_active = false;
  camera->GetComponent<Transform>()->m_local_pos = Vector3D(500.0f, 0.0f, 0.0f);
  scene.Draw();
  EXPECT_EQ(scene.System().m_view_translate.x, -100.0f);
}

}  // namespace
}  // namespace carapace_test
