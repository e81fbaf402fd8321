#include "render/passes/spritepass.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "game/hazards/environmentdamage.h"
#include "game/hazards/environmentrough.h"
#include "support/reports.h"
#include "support/scene.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;

/// A model of `count` vertices in a row, with `indices`.
void SetModel(GameObj* object, std::size_t count, std::vector<std::uint32_t> indices) {
  iModel& model = Of<iModel>(object);
  model.m_vertices.assign(count, Vertex());
  for (std::size_t i = 0; i < count; ++i) {
    const auto at = static_cast<float>(i);
    model.m_vertices[i].position = Vector3D(at, at + 0.25f, at + 0.5f);
    model.m_vertices[i].u = at * 0.1f;
    model.m_vertices[i].v = at * 0.2f;
  }
  model.m_index_buffer = std::move(indices);
}

// --- Who is drawn by which pass ---

TEST(SpritePasses, HazardsLieUnderOtherSpritesWhateverTheTableSays) {
  Scene scene;
  scene.AddSprite("unit", "one");
  scene.AddSprite("zone", "two")->AddComponent<EnvironmentDamage>();
  scene.AddSprite("shot", "three");
  scene.AddSprite("rough", "four")->AddComponent<EnvironmentRough>();
  EXPECT_EQ(scene.DrawTextures(), (std::vector<int>{2, 4, 1, 3}));
}

TEST(SpritePasses, WhatHangsOnACameraLiesOverTheWorld) {
  Scene scene;
  GameObj* camera = scene.AddCamera();
  scene.AddSprite("bar", "one", camera);
  scene.AddSprite("unit", "two");
  EXPECT_EQ(scene.DrawTextures(), (std::vector<int>{2, 1}));
}

TEST(SpritePasses, AHazardThatHangsOnACameraIsInterface) {
  Scene scene;
  GameObj* camera = scene.AddCamera();
  scene.AddSprite("zone", "one", camera)->AddComponent<EnvironmentDamage>();
  scene.AddSprite("unit", "two");
  EXPECT_EQ(scene.DrawTextures(), (std::vector<int>{2, 1}));
}

TEST(SpritePasses, OnlyTheDirectParentMakesInterface) {
  Scene scene;
  GameObj* camera = scene.AddCamera();
  GameObj* panel = scene.AddSprite("panel", "one", camera);
  scene.AddSprite("label", "two", panel);
  EXPECT_EQ(scene.DrawTextures(), (std::vector<int>{2, 1}));
}

TEST(SpritePasses, AnotherParentKeepsASpriteInTheWorld) {
  Scene scene;
  GameObj* unit = scene.AddSprite("unit", "one");
  scene.AddSprite("barrel", "two", unit);
  EXPECT_EQ(scene.DrawTextures(), (std::vector<int>{1, 2}));
}

TEST(SpritePasses, InvisibleSpritesAreSkippedByAll) {
  Scene scene;
  GameObj* camera = scene.AddCamera();
  GameObj* zone = scene.AddSprite("zone", "two");
  zone->AddComponent<EnvironmentRough>();
  Of<EnvironmentRough>(zone).m_init = true;  // its first step would switch it on
  for (GameObj* object :
       {scene.AddSprite("unit", "one"), zone, scene.AddSprite("bar", "one", camera)}) {
    Of<Render>(object).m_visible = false;
  }
  EXPECT_TRUE(scene.Draw().empty());
}

TEST(SpritePasses, AnInactiveComponentThatIsVisibleIsDrawn) {
  Scene scene;
  GameObj* sprite = scene.AddSprite("sprite", "one");
  Of<Render>(sprite).m_active = false;
  EXPECT_EQ(scene.Draw().size(), 1u);
}

TEST(SpritePasses, SwitchingAnObjectOffHidesIt) {
  Scene scene;
  GameObj* sprite = scene.AddSprite("sprite", "one");
  sprite->SetActive(false);
  EXPECT_TRUE(scene.Draw().empty());
  sprite->SetActive(true);
  EXPECT_EQ(scene.Draw().size(), 1u);
}

// --- Placement, program, colour ---

TEST(SpritePasses, ASpriteStandsWhereItsWorldTransformSays) {
  Scene scene;
  GameObj* sprite = scene.AddSprite("sprite", "one");
  Transform& transform = Of<Transform>(sprite);
  transform.m_local_pos = Vector3D(1.0f, 2.0f, 3.0f);
  transform.m_local_scale = Vector3D(4.0f, 5.0f, 6.0f);
  transform.m_local_rotate = 180.0f;
  const Placement placement = scene.DrawOne().placement;
  EXPECT_EQ(placement.translate, Vector3D(1.0f, 2.0f, 3.0f));
  EXPECT_EQ(placement.scale, Vector3D(4.0f, 5.0f, 1.0f));
  EXPECT_FLOAT_EQ(placement.rotate_radians, 180.0f * 0.017453292f);
}

TEST(SpritePasses, TheCamerasDepthDoesNotMoveInterface) {
  Scene scene;
  GameObj* camera = scene.AddCamera();
  Of<Transform>(camera).m_local_pos = Vector3D(0.0f, 0.0f, 200.0f);
  GameObj* bar = scene.AddSprite("bar", "one", camera);
  Of<Transform>(bar).m_local_pos = Vector3D(0.0f, 0.0f, 1.0f);
  const DrawCommand draw = scene.DrawOne();
  EXPECT_EQ(draw.placement.translate.z, Of<Transform>(bar).m_world_pos.z - 200.0f);
}

TEST(SpritePasses, TheNameDefaultPicksTheDefaultProgramAndAllElseTheLitOne) {
  Scene scene;
  const char* const names[] = {"default", "light", "", "Default"};
  for (const char* name : names) Of<Render>(scene.AddSprite("sprite", "one")).m_shader = name;
  const std::vector<DrawCommand> draws = scene.Draw();
  ASSERT_EQ(draws.size(), 4u);
  EXPECT_EQ(draws[0].program, Program::kDefault);
  EXPECT_EQ(draws[1].program, Program::kLight);
  EXPECT_EQ(draws[2].program, Program::kLight);
  EXPECT_EQ(draws[3].program, Program::kLight);
}

TEST(SpritePasses, TheColourReachesTheDrawUnchanged) {
  Scene scene;
  Of<Render>(scene.AddSprite("sprite", "one")).m_colour = {255.0f, -1.0f, 0.5f, 0.0f};
  const DrawCommand draw = scene.DrawOne();
  EXPECT_EQ(draw.colour[0], 255.0f);
  EXPECT_EQ(draw.colour[1], -1.0f);
  EXPECT_EQ(draw.colour[2], 0.5f);
  EXPECT_EQ(draw.colour[3], 0.0f);
}

// --- Highlight ---

TEST(Highlight, TheSelectedObjectShowsItsHighlightTexture) {
  Scene scene;
  Of<Render>(scene.AddSprite("a", "one")).m_hl_tex = "eight";
  GameObj* b = scene.AddSprite("b", "two");
  Of<Render>(b).m_hl_tex = "nine";
  scene.System().m_selected_id = static_cast<std::int32_t>(b->id);
  EXPECT_EQ(scene.DrawTextures(), (std::vector<int>{1, 9}));
}

TEST(Highlight, TheSelectedHazardAndTheSelectedInterfaceElementShowTheirs) {
  Scene scene;
  GameObj* hazard = scene.AddSprite("hazard", "one");
  hazard->AddComponent<EnvironmentRough>();
  GameObj* element = scene.AddSprite("element", "two", scene.AddCamera());
  Of<Render>(hazard).m_hl_tex = "eight";
  Of<Render>(element).m_hl_tex = "nine";
  scene.System().m_selected_id = static_cast<std::int32_t>(hazard->id);
  EXPECT_EQ(scene.DrawTextures(), (std::vector<int>{8, 2}));
  scene.System().m_selected_id = static_cast<std::int32_t>(element->id);
  EXPECT_EQ(scene.DrawTextures(), (std::vector<int>{1, 9}));
}

TEST(Highlight, WithoutASelectionNobodyShowsIt) {
  Scene scene;
  for (int i = 0; i < 3; ++i) Of<Render>(scene.AddSprite("a", "one")).m_hl_tex = "eight";
  ASSERT_EQ(scene.System().m_selected_id, -1);
  EXPECT_EQ(scene.DrawTextures(), (std::vector<int>{1, 1, 1}));
}

TEST(Highlight, AnAnimationShowsNone) {
  Scene scene;
  GameObj* unit = scene.AddAnimated("unit", "loop");
  Of<Render>(unit).m_hl_tex = "eight";
  scene.System().m_selected_id = static_cast<std::int32_t>(unit->id);
  EXPECT_EQ(scene.DrawOne().texture, 5u);
}

// --- Which states are plain ---

TEST(PlainStates, DefaultIsPlainEverywhere) {
  Scene scene;
  scene.AddAnimated("unit", "default");
  EXPECT_EQ(scene.DrawOne().texture, 1u);
}

TEST(PlainStates, DamagedIsPlainInTheWorldAndInTheHazardPass) {
  Scene scene;
  GameObj* unit = scene.AddAnimated("unit", "damaged");
  GameObj* zone = scene.AddAnimated("zone", "damaged");
  zone->AddComponent<EnvironmentDamage>();
  Of<EnvironmentDamage>(zone).m_init = true;  // its first step would switch it on
  EXPECT_EQ(scene.DrawTextures(), (std::vector<int>{1, 1}));
  EXPECT_EQ(Of<Animation>(unit).m_timer, 0.0f);
  EXPECT_EQ(Of<Animation>(zone).m_timer, 0.0f);
}

TEST(PlainStates, MoveIsPlainInTheInterface) {
  Scene scene;
  GameObj* camera = scene.AddCamera();
  GameObj* bar = scene.AddAnimated("bar", "move");
  bar->parent = camera;
  EXPECT_EQ(scene.DrawOne().texture, 1u);
  EXPECT_EQ(Of<Animation>(bar).m_timer, 0.0f);
}

TEST(PlainStates, MoveRunsTheAnimationStepInTheWorld) {
  Scene scene;
  GameObj* unit = scene.AddAnimated("unit", "move");
  scene.Draw();
  EXPECT_GT(Of<Animation>(unit).m_timer, 0.0f);
}

TEST(PlainStates, DamagedRunsTheAnimationStepInTheInterface) {
  Scene scene;
  GameObj* camera = scene.AddCamera();
  GameObj* bar = scene.AddAnimated("bar", "damaged");
  bar->parent = camera;
  scene.Draw();
  EXPECT_GT(Of<Animation>(bar).m_timer, 0.0f);
}

TEST(PlainStates, WithoutAStateAnAnimationIsPlain) {
  Scene scene;
  GameObj* sprite = scene.AddSprite("sprite", "one");
  sprite->AddComponent<Animation>();
  Of<Animation>(sprite).m_loop = "five";
  EXPECT_EQ(scene.DrawOne().texture, 1u);
}

TEST(PlainStates, WithoutAnAnimationAStateIsPlain) {
  Scene scene;
  GameObj* sprite = scene.AddSprite("sprite", "one");
  sprite->AddComponent<StateC>();
  Of<StateC>(sprite).m_state = "loop";
  EXPECT_EQ(scene.DrawOne().texture, 1u);
}

// --- Geometry ---

TEST(Geometry, OneVertexStandsForTheSharedQuad) {
  Scene scene;
  scene.AddSprite("sprite", "one");
  const DrawCommand draw = scene.DrawOne();
  EXPECT_EQ(draw.kind, DrawCommand::Kind::kQuad);
  EXPECT_EQ(draw.window.u_left, 0.0f);
  EXPECT_EQ(draw.window.u_right, 1.0f);
  EXPECT_TRUE(scene.Frame().vertices.empty());
}

TEST(Geometry, ANewModelIsDrawnFromItsOwnFourVertices) {
  Scene scene;
  GameObj* sprite = scene.AddSprite("sprite", "one");
  Of<iModel>(sprite).m_vertices = iModel(sprite).m_vertices;
  const DrawCommand draw = scene.DrawOne();
  EXPECT_EQ(draw.kind, DrawCommand::Kind::kMesh);
  EXPECT_EQ(draw.count, 6u);
  ASSERT_EQ(scene.Frame().vertices.size(), 4u);
  EXPECT_EQ(scene.Frame().vertices[0].position, Vector3D(-0.5f, 0.5f, 1.0f));
  EXPECT_EQ(scene.Frame().vertices[2].u, 1.0f);
  EXPECT_EQ(scene.Frame().vertices[2].v, 1.0f);
  EXPECT_EQ(scene.Frame().indices, (std::vector<std::uint32_t>{0, 1, 3, 1, 2, 3}));
}

TEST(Geometry, ModelsFollowEachOtherInTheFramesArrays) {
  Scene scene;
  SetModel(scene.AddSprite("a", "one"), 3, {0, 1, 2});
  SetModel(scene.AddSprite("b", "two"), 4, {1, 2, 3, 3, 2, 0});
  const std::vector<DrawCommand> draws = scene.Draw();
  ASSERT_EQ(draws.size(), 2u);
  EXPECT_EQ(draws[1].base_vertex, 3u);
  EXPECT_EQ(draws[1].first, 3u);
  EXPECT_EQ(draws[1].count, 6u);
  EXPECT_EQ(scene.Frame().indices, (std::vector<std::uint32_t>{0, 1, 2, 1, 2, 3, 3, 2, 0}));
  EXPECT_EQ(scene.Frame().vertices[3 + 2].position, Vector3D(2.0f, 2.25f, 2.5f));
}

TEST(Geometry, TrianglesWithAnIndexBeyondTheVerticesAreLeftOut) {
  Scene scene;
  SetModel(scene.AddSprite("a", "one"), 3, {0, 1, 2, 0, 1, 3, 4000000000u, 1, 2, 2, 1, 0});
  EXPECT_EQ(scene.DrawOne().count, 6u);
  EXPECT_EQ(scene.Frame().indices, (std::vector<std::uint32_t>{0, 1, 2, 2, 1, 0}));
}

TEST(Geometry, AnIncompleteTriangleIsLeftOut) {
  Scene scene;
  SetModel(scene.AddSprite("a", "one"), 3, {0, 1, 2, 0, 1});
  EXPECT_EQ(scene.DrawOne().count, 3u);
}

TEST(Geometry, AModelWithoutVerticesDrawsNothing) {
  Scene scene;
  SetModel(scene.AddSprite("a", "one"), 0, {0, 1, 2});
  EXPECT_TRUE(scene.Draw().empty());
}

TEST(Geometry, AModelWithoutIndicesDrawsNothing) {
  Scene scene;
  SetModel(scene.AddSprite("a", "one"), 4, {});
  SetModel(scene.AddSprite("b", "one"), 1, {});
  EXPECT_TRUE(scene.Draw().empty());
}

TEST(Geometry, OneVertexWithThreeIndicesDrawsTheFirstTriangleOfTheQuad) {
  Scene scene;
  SetModel(scene.AddSprite("a", "one"), 1, {0, 0, 0});
  const DrawCommand draw = scene.DrawOne();
  EXPECT_EQ(draw.kind, DrawCommand::Kind::kMesh);
  EXPECT_EQ(draw.count, 3u);
  EXPECT_EQ(scene.Frame().indices, (std::vector<std::uint32_t>{0, 1, 3}));
  ASSERT_EQ(scene.Frame().vertices.size(), 4u);
  const MeshVertex& corner = scene.Frame().vertices[0];
  EXPECT_EQ(corner.position, Vector3D(0.5f, 0.5f, 0.0f));
  EXPECT_EQ(corner.u, 1.0f);
  EXPECT_EQ(corner.v, 0.0f);
}

TEST(Geometry, OneVertexWithTwelveIndicesDrawsNoMoreThanTheQuad) {
  Scene scene;
  SetModel(scene.AddSprite("a", "one"), 1, std::vector<std::uint32_t>(12, 0u));
  EXPECT_EQ(scene.DrawOne().kind, DrawCommand::Kind::kQuad);
}

TEST(Geometry, AnAnimationDrawsTheSharedQuadWhateverTheModel) {
  Scene scene;
  GameObj* unit = scene.AddAnimated("unit", "loop");
  SetModel(unit, 4, {0, 1, 3, 1, 2, 3});
  EXPECT_EQ(scene.DrawOne().kind, DrawCommand::Kind::kQuad);
}

TEST(Geometry, AnAnimationWithThreeIndicesDrawsHalfTheQuadWithItsWindow) {
  Scene scene;
  GameObj* unit = scene.AddAnimated("unit", "loop");
  Of<Animation>(unit).m_currStep = 0.5f;
  SetModel(unit, 4, {0, 1, 2});
  EXPECT_EQ(scene.DrawOne().count, 3u);
  EXPECT_EQ(scene.Frame().vertices[0].u, 0.75f);
  EXPECT_EQ(scene.Frame().vertices[3].u, 0.5f);
}

// --- What lasts from draw to draw ---

TEST(LastingState, AnUnknownStateShowsTheTextureBoundLast) {
  Scene scene;
  scene.AddSprite("before", "seven");
  scene.AddAnimated("odd", "move");
  EXPECT_EQ(scene.DrawTextures(), (std::vector<int>{7, 7}));
}

TEST(LastingState, AnUnknownStateShowsTheWindowOfTheAnimationBefore) {
  Scene scene;
  GameObj* unit = scene.AddAnimated("unit", "loop");
  Of<Animation>(unit).m_time_per_frame = 100.0f;
  Of<Animation>(unit).m_currStep = 0.25f;
  scene.AddAnimated("odd", "move");
  const std::vector<DrawCommand> draws = scene.Draw();
  ASSERT_EQ(draws.size(), 2u);
  EXPECT_EQ(draws[1].texture, 5u);
  EXPECT_EQ(draws[1].window.u_left, 0.25f);
  EXPECT_EQ(draws[1].window.u_right, 0.5f);
}

TEST(LastingState, APlainSpriteResetsTheSharedQuad) {
  Scene scene;
  GameObj* unit = scene.AddAnimated("unit", "loop");
  Of<Animation>(unit).m_currStep = 0.25f;
  scene.AddSprite("plain", "one");
  scene.AddAnimated("odd", "move");
  const std::vector<DrawCommand> draws = scene.Draw();
  ASSERT_EQ(draws.size(), 3u);
  EXPECT_EQ(draws[2].window.u_left, 0.0f);
  EXPECT_EQ(draws[2].window.u_right, 1.0f);
}

TEST(LastingState, AnUnknownStateAtTheStartOfAFrameShowsTheBackground) {
  Scene scene;
  scene.System().m_background_tex = "nine";
  scene.AddAnimated("odd", "move");
  EXPECT_EQ(scene.DrawOne().texture, 9u);
}

TEST(LastingState, AnUnknownStateKeepsTheWindowOfTheFrameBefore) {
  Scene scene;
  scene.AddAnimated("odd", "move");
  GameObj* unit = scene.AddAnimated("unit", "loop");
  Of<Animation>(unit).m_time_per_frame = 100.0f;
  Of<Animation>(unit).m_currStep = 0.25f;
  EXPECT_EQ(scene.Draw()[0].window.u_left, 0.0f);
  EXPECT_EQ(scene.Draw()[0].window.u_left, 0.25f);
}

// --- Texture keys ---

TEST(TextureKeys, AnUnknownKeyShowsTextureZeroAndIsRemembered) {
  Scene scene;
  scene.AddSprite("sprite", "misspelt");
  EXPECT_EQ(scene.DrawOne().texture, 0u);
  ASSERT_EQ(scene.System().m_textures.count("misspelt"), 1u);
  EXPECT_EQ(scene.System().m_textures["misspelt"], 0u);
}

TEST(TextureKeys, AChangeOfTheMapShowsInTheNextFrame) {
  Scene scene;
  scene.AddSprite("sprite", "one");
  EXPECT_EQ(scene.DrawOne().texture, 1u);
  scene.System().m_textures["one"] = 42;
  EXPECT_EQ(scene.DrawOne().texture, 42u);
}

TEST(TextureKeys, AMapThatWasEmptiedIsLookedUpAnew) {
  Scene scene;
  // The crosshair's key is the last one of a frame, the background's the first.
  scene.System().m_background_tex = "Crosshair";
  scene.Draw();
  EXPECT_EQ(scene.Frame().commands.front().texture, 12u);
  scene.System().m_textures.clear();
  scene.Draw();
  EXPECT_EQ(scene.Frame().commands.front().texture, 0u);
  EXPECT_EQ(scene.System().m_textures.count("Crosshair"), 1u);
}

// --- Objects that lack a part ---

TEST(SpritePasses, ASpriteWithoutModelIsReportedByName) {
  Scene scene;
  GameObj* sprite = scene.AddObject("bare");
  sprite->AddComponent<Render>();
  EXPECT_THAT(ReportOf([&] { scene.world.Step(); }),
              testing::HasSubstr("Object \"bare\" has a Render and no iModel"));
}

TEST(SpritePasses, ASpriteWithoutTransformIsReportedByName) {
  Scene scene;
  auto* object = new GameObj;
  object->id = static_cast<std::uint32_t>(g_game_obj_factory->m_objects.size());
  object->name = "nowhere";
  g_game_obj_factory->m_objects.push_back(object);
  object->AddComponent<Render>();
  object->AddComponent<iModel>();
  EXPECT_THAT(ReportOf([&] { scene.world.Step(); }),
              testing::HasSubstr("Object \"nowhere\" has a Render and no Transform"));
}

TEST(SpritePasses, AHiddenSpriteMayLackItsModel) {
  Scene scene;
  GameObj* sprite = scene.AddObject("bare");
  sprite->AddComponent<Render>();
  Of<Render>(sprite).m_visible = false;
  EXPECT_TRUE(scene.Draw().empty());
}

}  // namespace
}  // namespace carapace_test
