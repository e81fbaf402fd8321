#include "ui/buttons/button.h"

#include <gtest/gtest.h>

#include "core/messages.h"
#include "support/reports.h"
#include "support/scene.h"

namespace ZOVEngine {
namespace {

using carapace_test::Of;
using carapace_test::OutputOf;
using carapace_test::Record;
using carapace_test::RecordOf;
using carapace_test::Scene;
using carapace_test::World;

TEST(Button, IsReadAndWrittenWithoutKeys) {
  World world;
  EXPECT_EQ(OutputOf([&] { world.LoadObjects(Record("start", {{"Button", "{}"}})); }), "");
  ASSERT_TRUE(world.Find("start")->HasComponent<Button>());
  EXPECT_EQ(RecordOf(*world.Find("start")->GetComponent<Button>()), "{}");
}

TEST(Button, AClickLeavesItsSpriteAndItsScreen) {
  Scene scene;
  GameObj* object = scene.AddSprite("start", "one");
  object->AddComponent<Button>();
  for (const std::uint32_t pressed : {1u, 0u}) {
    MouseButton click(0, pressed, Vector3D(960, 540, 1));
    Of<Button>(object).OnMessage(&click);
    scene.world.Step();
  }
  EXPECT_EQ(Of<Render>(object).m_tex, "one");
  EXPECT_TRUE(Of<Render>(object).m_visible);
  EXPECT_EQ(scene.world.Find("start"), object);
}

}  // namespace
}  // namespace ZOVEngine
