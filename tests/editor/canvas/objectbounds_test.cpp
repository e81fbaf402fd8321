#include "editor/canvas/objectbounds.h"

#include "editor/canvas/canvasstage.h"
#include "render/components/render.h"

namespace ZOVEngine {
namespace {

TEST(ObjectBounds, ATurnedRectangleContainsWhatIsInIt) {
  const ObjectBounds bounds = {Vector3D(10.0f, 0.0f, 0.0f), 20.0f, 5.0f, kPi / 2.0f};
  EXPECT_TRUE(bounds.Contains(Vector3D(10.0f, 19.0f, 0.0f)));
  EXPECT_FALSE(bounds.Contains(Vector3D(29.0f, 0.0f, 0.0f)));
}

TEST(ObjectBounds, CornersTurnWithTheObject) {
  const ObjectBounds bounds = {Vector3D(), 2.0f, 1.0f, kPi / 2.0f};
  EXPECT_NEAR(bounds.Corners()[0].x, 1.0f, 1e-5f);
  EXPECT_NEAR(bounds.Corners()[0].y, -2.0f, 1e-5f);
}

class ObjectBoundsTest : public carapace_test::CanvasStage {
 protected:
  SceneEntry Entry(const std::string& name) {
    index.Refresh(editor->document);
    return *index.Find(Path(name));
  }
  SceneIndex index;
};

TEST_F(ObjectBoundsTest, AVisibleImageIsHitInItsRectangle) {
  EXPECT_TRUE(IsHit(Entry("player1"), Vector3D(-720.0f, 280.0f, 0.0f), 1.5f));
  EXPECT_FALSE(IsHit(Entry("player1"), Vector3D(-720.0f, 310.0f, 0.0f), 1.5f));
}

TEST_F(ObjectBoundsTest, WithoutAVisibleImageTheColliderIsHit) {
  SceneEntry entry = Entry("player1");
  entry.render->m_visible = false;
  const float radius = FindBounds(entry, 1.5f).half_width;
  EXPECT_TRUE(IsHit(entry, Vector3D(-720.0f, 240.0f + radius - 1.0f, 0.0f), 1.5f));
  EXPECT_FALSE(IsHit(entry, Vector3D(-720.0f, 240.0f + radius + 1.0f, 0.0f), 1.5f));
}

TEST_F(ObjectBoundsTest, WithoutImageAndColliderTheHandleIsHitAtEveryZoom) {
  const SceneEntry lamp = Entry("lamp");
  lamp.render->m_visible = false;
  const Vector3D near = lamp.transform->m_world_pos + Vector3D(20.0f, 0.0f, 0.0f);
  EXPECT_FALSE(IsHit(lamp, near, 1.5f));
  EXPECT_TRUE(IsHit(lamp, near, 3.0f));
}

}  // namespace
}  // namespace ZOVEngine
