#include "render/components/render.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "objects/gameobjfactory.h"
#include "physics/components/transform.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::Record;
using carapace_test::TransformAt;
using carapace_test::World;
using ::testing::Each;

class RenderTest : public ::testing::Test {
 protected:
  GameObj* AddSprite(const std::string& name) {
    JsonDocument document;
    document.ParseText(Record(name, {{"Transform", TransformAt(1, 2)}}), "sprite.json");
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

TEST_F(RenderTest, KnowsTheTransformOfItsOwnObject) {
  GameObj* object = AddSprite("sprite");
  EXPECT_EQ(object->GetComponent<Render>()->OwnTransform(), object->GetComponent<Transform>());
}

TEST_F(RenderTest, AClonesTransformIsItsOwn) {
  GameObj* object = AddSprite("sprite");
  GameObj* clone = g_game_obj_factory->Clone(object, true);
  EXPECT_EQ(clone->GetComponent<Render>()->OwnTransform(), clone->GetComponent<Transform>());
  EXPECT_EQ(object->GetComponent<Render>()->OwnTransform(), object->GetComponent<Transform>());
}

TEST_F(RenderTest, ATransformThatComesLaterIsFound) {
  JsonDocument document;
  document.ParseText(Record("late", {}), "sprite.json");
  GameObj* object = g_game_obj_factory->ReadObject(document.Root());
  object->AddComponent<Render>();
  object->AddComponent<Transform>();
  EXPECT_EQ(object->GetComponent<Render>()->OwnTransform(), object->GetComponent<Transform>());
}

TEST_F(RenderTest, WithoutATransformTheLookupThrows) {
  JsonDocument document;
  document.ParseText(Record("bare", {}), "sprite.json");
  GameObj* object = g_game_obj_factory->ReadObject(document.Root());
  object->AddComponent<Render>();
  EXPECT_THROW(object->GetComponent<Render>()->OwnTransform(), std::out_of_range);
}

}  // namespace
}  // namespace ZOVEngine
