#include "render/components/render.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::Record;
using carapace_test::World;
using ::testing::Each;

class RenderTest : public ::testing::Test {
 protected:
  GameObj* AddSprite(const std::string& name) {
    JsonDocument document;
    document.ParseText(Record(name, {}), "sprite.json");
    GameObj* object = g_game_obj_factory->ReadObject(document.Root());
    object->AddComponent<Render>();
    return object;
  }

  World world;
};

TEST_F(RenderTest, ANewOneIsAVisibleWhiteSpriteOfTheDefaultTexture) {
  const Render& render = *AddSprite("sprite")->GetComponent<Render>();
  EXPECT_FALSE(render.m_tile);
  EXPECT_TRUE(render.m_visible);
  EXPECT_EQ(render.m_zLayer, 0.0f);
  EXPECT_TRUE(render.m_debug_outline);
  EXPECT_EQ(render.m_tex, "default");
  EXPECT_EQ(render.m_hl_tex, "default");
  EXPECT_THAT(render.m_colour, Each(1.0f));
  EXPECT_EQ(render.m_shader, "default");
}

TEST_F(RenderTest, IsVisibleAsLongAsItsObjectIsOn) {
  GameObj* object = AddSprite("sprite");
  object->SetActive(false);
  EXPECT_FALSE(object->GetComponent<Render>()->m_visible);
  object->SetActive(true);
  EXPECT_TRUE(object->GetComponent<Render>()->m_visible);
}

}  // namespace
}  // namespace ZOVEngine
