#include "render/passes/camerapass.h"

#include "game/camera.h"
#include "render/passes/placement.h"

namespace ZOVEngine {

void CameraPass(ComponentArray<Camera> cameras, Vector3D* view_translate, Frame* frame) {
  for (const Camera* camera : cameras) {
    if (!camera->m_active) continue;
    const Vector3D at = RequireTransform(camera->m_owner, "Camera").m_world_pos + camera->m_offset;
    *view_translate = Vector3D(-at.x, -at.y, at.z);
  }
  frame->view_pos = *view_translate - Vector3D(0.0f, 0.0f, kViewDistance);
  frame->view = Matrix4x4::Translation(frame->view_pos.x, frame->view_pos.y);
  frame->view.m[11] = frame->view_pos.z;
}

}  // namespace ZOVEngine
