#include "render/spritelists.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "game/hazards/environmentdamage.h"
#include "jsonunserializer.h"
#include "physics/components/colliderholder.h"
#include "support/scene.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> Names(const std::vector<Sprite>& sprites) {
  std::vector<std::string> names;
  for (const Sprite& sprite : sprites) names.push_back(sprite.render->m_owner->name);
  return names;
}

class SpriteListsTest : public testing::Test {
 protected:
  const SpriteLists& Fill() {
    lists.Fill(scene.System().m_render_table->Components());
    return lists;
  }

  static GameObj* AddBareObject() {
    JsonDocument document;
    document.ParseText(Record("bare", {}), "bare.json");
    return g_game_obj_factory->ReadObject(document.Root());
  }

  Scene scene;
  SpriteLists lists;
};

TEST_F(SpriteListsTest, EachSpriteIsInTheListOfItsPassInTheOrderOfTheTable) {
  GameObj* camera = scene.AddCamera();
  for (const char* number : {"1", "2"}) {
    scene.AddSprite(std::string("interface") + number, "one", camera);
    scene.AddSprite(std::string("world") + number, "one");
    scene.AddSprite(std::string("hazard") + number, "one")->AddComponent<EnvironmentDamage>();
    Of<Render>(scene.AddSprite(std::string("tile") + number, "one")).m_tile = true;
  }
  Fill();
  EXPECT_THAT(Names(lists.tiles), ElementsAre("tile1", "tile2"));
  EXPECT_THAT(Names(lists.hazards), ElementsAre("hazard1", "hazard2"));
  EXPECT_THAT(Names(lists.world), ElementsAre("world1", "world2"));
  EXPECT_THAT(Names(lists.interface), ElementsAre("interface1", "interface2"));
  EXPECT_THAT(lists.instances, IsEmpty());
}

TEST_F(SpriteListsTest, AnInstancedParticleIsInTwoLists) {
  scene.AddParticle("one");
  Of<Render>(scene.AddParticle("two")).m_tile = true;
  Fill();
  EXPECT_EQ(lists.instances.size(), 2u);
  EXPECT_EQ(lists.world.size(), 1u);
  EXPECT_EQ(lists.tiles.size(), 1u);
}

TEST_F(SpriteListsTest, HiddenSpritesAreListedToo) {
  Of<Render>(scene.AddSprite("hidden", "one")).m_visible = false;
  EXPECT_EQ(Fill().world.size(), 1u);
}

TEST_F(SpriteListsTest, TheTraitsTellWhatTheObjectHas) {
  scene.AddAnimated("animated", "loop");
  scene.AddSprite("solid", "one")->AddComponent<ColliderHolder>();
  Fill();
  ASSERT_EQ(lists.world.size(), 2u);
  EXPECT_EQ(lists.world[0].traits, kHasTransform | kHasModel | kHasAnimation | kHasState);
  EXPECT_EQ(lists.world[1].traits, kHasTransform | kHasModel | kHasCollider);
}

TEST_F(SpriteListsTest, AComponentThatIsAddedShowsInTheNextFilling) {
  GameObj* sprite = scene.AddSprite("sprite", "one");
  EXPECT_EQ(Fill().world[0].traits, kHasTransform | kHasModel);
  sprite->AddComponent<StateC>();
  EXPECT_EQ(Fill().world[0].traits, kHasTransform | kHasModel | kHasState);
}

TEST_F(SpriteListsTest, FillingAgainForgetsTheSpritesOfBefore) {
  scene.AddSprite("one", "one");
  Fill();
  EXPECT_EQ(Fill().world.size(), 1u);
}

TEST_F(SpriteListsTest, ASpriteFindsTheComponentsOfItsObject) {
  GameObj* object = scene.AddSprite("sprite", "one");
  Fill();
  EXPECT_EQ(&lists.world[0].GetTransform(), object->GetComponent<Transform>());
  EXPECT_EQ(&lists.world[0].GetModel(), object->GetComponent<iModel>());
}

TEST_F(SpriteListsTest, WithoutATransformASpriteHasNone) {
  GameObj* object = scene.AddSprite("sprite", "one");
  std::erase(object->components, &typeid(Transform));
  EXPECT_EQ(Fill().world[0].transform, nullptr);
}

// The two holders take the memory of the destroyed object and of its Transform. The first one then
// hands it to the clone, whose own Transform gets other memory.
TEST_F(SpriteListsTest, ACloneOfACloneInTheMemoryOfTheFirstHasATransformOfItsOwn) {
  GameObj* holders[] = {AddBareObject(), AddBareObject()};
  GameObj* first = scene.AddSprite("first", "one");
  GameObj* second = g_game_obj_factory->Clone(first, true);
  g_game_obj_factory->Destroy(first->id);
  for (GameObj* holder : holders) holder->AddComponent<Transform>();
  ComponentTable<Transform>().Remove(holders[0]->id);
  holders[0]->components.clear();
  GameObj* third = g_game_obj_factory->Clone(second, true);
  Fill();
  EXPECT_EQ(&lists.world[0].GetTransform(), second->GetComponent<Transform>());
  EXPECT_EQ(&lists.world[1].GetTransform(), third->GetComponent<Transform>());
}

}  // namespace
}  // namespace carapace_test
