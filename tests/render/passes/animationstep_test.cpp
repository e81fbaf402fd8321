#include "render/passes/animationstep.h"

#include <gtest/gtest.h>

#include "game/hazards/environmentdamage.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "support/scene.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;

/// One animated object with short names for its parts.
class AnimationStepTest : public testing::Test {
 protected:
  void Make(const std::string& state, const std::string& name = "object") {
    object = scene.AddAnimated(name, state);
  }
  Animation& Anim() { return Of<Animation>(object); }
  Render& Sprite() { return Of<Render>(object); }
  std::string& State() { return Of<StateC>(object).m_state; }

  void ExpectWindow(const DrawCommand& draw, float left, float right) {
    EXPECT_EQ(draw.window.u_left, left);
    EXPECT_EQ(draw.window.u_right, right);
  }
  /// A tile of the next frame shows what the shared quad was left with.
  void ExpectSharedQuad(float left, float right) {
    Of<Render>(scene.AddSprite("tile", "two")).m_tile = true;
    ExpectWindow(scene.Draw().at(0), left, right);
  }
  void ExpectSpriteColour(float r, float g, float b, float a) {
    EXPECT_EQ(Sprite().m_colour, (Colour{r, g, b, a}));
  }

  Scene scene;
  GameObj* object = nullptr;
};

// --- Advance ---

TEST_F(AnimationStepTest, ShowsTheFrameThatTheStepStandsAtBeforeItAdvances) {
  Make("loop");
  ExpectWindow(scene.DrawOne(), 0.0f, 0.25f);
  ExpectWindow(scene.DrawOne(), 0.25f, 0.5f);
}

TEST_F(AnimationStepTest, AFrameOfFiveHundredthsLastsThreeSteps) {
  Make("loop");
  Anim().m_time_per_frame = 0.05f;
  scene.Draw();
  scene.Draw();
  EXPECT_EQ(Anim().m_currStep, 0.0f);
  scene.Draw();
  EXPECT_EQ(Anim().m_currStep, 0.25f);
  EXPECT_EQ(Anim().m_timer, 0.0f);
}

TEST_F(AnimationStepTest, TheTimerGrowsByTheStep) {
  Make("loop");
  Anim().m_time_per_frame = 1.0f;
  scene.Draw();
  EXPECT_EQ(Anim().m_timer, 1.0f / 60.0f);
}

TEST_F(AnimationStepTest, ATimerThatReachesTheFrameTimeExactlyAdvances) {
  Make("loop");
  Anim().m_time_per_frame = 1.0f / 60.0f;
  scene.Draw();
  EXPECT_EQ(Anim().m_currStep, 0.25f);
}

TEST_F(AnimationStepTest, RunsOnWhileTheEngineIsPaused) {
  Make("loop");
  g_engine->paused = true;
  scene.Draw();
  EXPECT_EQ(Anim().m_currStep, 0.25f);
}

TEST_F(AnimationStepTest, AHiddenObjectStandsStill) {
  Make("loop");
  Sprite().m_visible = false;
  scene.world.Step(5);
  EXPECT_EQ(Anim().m_timer, 0.0f);
  EXPECT_EQ(Anim().m_currStep, 0.0f);
}

TEST_F(AnimationStepTest, AStateWrittenInTheMiddleStartsAtTheStepReached) {
  Make("loop");
  scene.Draw();
  scene.Draw();
  State() = "once";
  const DrawCommand draw = scene.DrawOne();
  EXPECT_EQ(draw.texture, 4u);
  ExpectWindow(draw, 0.5f, 0.75f);
}

class FrameCounts : public testing::TestWithParam<std::uint32_t> {};

TEST_P(FrameCounts, EndAfterExactlyAsManyTicks) {
  Scene scene;
  GameObj* object = scene.AddAnimated("object", "spawn");
  Of<Animation>(object).m_spawn_frames = GetParam();
  std::uint32_t ticks = 0;
  while (Of<StateC>(object).m_state == "spawn" && ticks < 100) {
    scene.Draw();
    ++ticks;
  }
  EXPECT_EQ(ticks, GetParam());
}

INSTANTIATE_TEST_SUITE_P(TwoToTen, FrameCounts, testing::Range(2u, 11u));

TEST_F(AnimationStepTest, TwelveFramesTakeAThirteenthTickBeyondTheSheet) {
  Make("spawn");
  Anim().m_spawn_frames = 12;
  for (int i = 0; i < 12; ++i) scene.Draw();
  EXPECT_EQ(State(), "spawn");
  EXPECT_LT(Anim().m_currStep, 1.0f);
  const DrawCommand draw = scene.DrawOne();
  EXPECT_EQ(State(), "default");
  EXPECT_GT(draw.window.u_right, 1.0f);
}

TEST_F(AnimationStepTest, NoFramesEndTheAnimationAtItsFirstTick) {
  Make("spawn");
  Anim().m_spawn_frames = 0;
  const DrawCommand draw = scene.DrawOne();
  EXPECT_EQ(State(), "default");
  EXPECT_TRUE(std::isinf(draw.window.u_right));
}

TEST_F(AnimationStepTest, NoFramesWaitForTheFirstTick) {
  Make("spawn");
  Anim().m_spawn_frames = 0;
  Anim().m_time_per_frame = 0.05f;
  scene.Draw();
  EXPECT_EQ(State(), "spawn");
  scene.Draw();
  scene.Draw();
  EXPECT_EQ(State(), "default");
}

TEST_F(AnimationStepTest, AnUnknownSheetShowsTextureZero) {
  Make("loop");
  Anim().m_loop = "misspelt";
  EXPECT_EQ(scene.DrawOne().texture, 0u);
}

// --- Spawn ---

TEST_F(AnimationStepTest, SpawnShowsItsSheet) {
  Make("spawn");
  EXPECT_EQ(scene.DrawOne().texture, 2u);
}

TEST_F(AnimationStepTest, SpawnShowsItsLastFrameOverThePlainTexture) {
  Make("spawn");
  for (int i = 0; i < 3; ++i) scene.Draw();
  const DrawCommand draw = scene.DrawOne();
  EXPECT_EQ(draw.texture, 1u);
  ExpectWindow(draw, 0.75f, 1.0f);
}

TEST_F(AnimationStepTest, SpawnEndsRewoundInTheDefaultState) {
  Make("spawn");
  for (int i = 0; i < 4; ++i) scene.Draw();
  EXPECT_EQ(State(), "default");
  EXPECT_EQ(Anim().m_timer, 0.0f);
  EXPECT_EQ(Anim().m_currStep, 0.0f);
  EXPECT_TRUE(Sprite().m_visible);
}

TEST_F(AnimationStepTest, AfterSpawnTheSpriteIsPlainAndWhole) {
  Make("spawn");
  for (int i = 0; i < 4; ++i) scene.Draw();
  const DrawCommand draw = scene.DrawOne();
  EXPECT_EQ(draw.texture, 1u);
  ExpectWindow(draw, 0.0f, 1.0f);
}

// --- Death ---

TEST_F(AnimationStepTest, DeathShowsItsSheet) {
  Make("death");
  EXPECT_EQ(scene.DrawOne().texture, 3u);
}

TEST_F(AnimationStepTest, DeathWhitensAUnitAndKeepsItsAlpha) {
  Make("death");
  object->AddComponent<Player>();
  Of<Player>(object).m_init = true;  // and dead: its own step leaves the looks alone
  Of<Player>(object).m_alive = false;
  Sprite().m_colour = {9.0f, 8.0f, 7.0f, 0.5f};
  scene.Draw();
  ExpectSpriteColour(1.0f, 1.0f, 1.0f, 0.5f);
}

TEST_F(AnimationStepTest, DeathKeepsTheColourOfAnythingElse) {
  Make("death");
  Sprite().m_colour = {9.0f, 8.0f, 7.0f, 0.5f};
  scene.Draw();
  ExpectSpriteColour(9.0f, 8.0f, 7.0f, 0.5f);
}

TEST_F(AnimationStepTest, DeathEndsHiddenAndSwitchedOffWithItsChildren) {
  Make("death");
  GameObj* child = scene.AddSprite("child", "six", object);
  for (int i = 0; i < 4; ++i) scene.Draw();
  EXPECT_EQ(State(), "default");
  EXPECT_FALSE(Sprite().m_visible);
  EXPECT_FALSE(object->active);
  EXPECT_FALSE(child->active);
  EXPECT_FALSE(Of<Render>(child).m_visible);
  EXPECT_EQ(Anim().m_currStep, 0.0f);
  ExpectSpriteColour(0.0f, 0.0f, 0.0f, 0.0f);
}

TEST_F(AnimationStepTest, DeathEndsRewoundSoThatTheNextAnimationStartsAtItsFirstFrame) {
  Make("death");
  Anim().m_time_per_frame = 0.01f;
  for (int i = 0; i < 4; ++i) scene.Draw();
  ASSERT_FALSE(object->active);
  EXPECT_EQ(Anim().m_timer, 0.0f);
  object->SetActive(true);
  State() = "loop";
  ExpectWindow(scene.DrawOne(), 0.0f, 0.25f);
}

TEST_F(AnimationStepTest, TheEndOfDeathSwitchesGrandchildrenOffToo) {
  Make("death");
  GameObj* grandchild = scene.AddSprite("grandchild", "six", scene.AddObject("child", object));
  for (int i = 0; i < 4; ++i) scene.Draw();
  EXPECT_FALSE(grandchild->active);
  EXPECT_FALSE(Of<Render>(grandchild).m_visible);
}

TEST_F(AnimationStepTest, ALaterChildOfTheDeadIsNotDrawnAnyMoreInThatFrame) {
  Make("death");
  scene.AddSprite("child", "six", object);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(scene.Draw().size(), 2u);
  EXPECT_EQ(scene.Draw().size(), 1u);
}

TEST_F(AnimationStepTest, TheLastDrawOfDeathIsInvisibleAndShowsTheQuadUploadedBefore) {
  Make("death");
  GameObj* later = scene.AddAnimated("later", "loop");
  Of<Animation>(later).m_time_per_frame = 100.0f;
  Of<Animation>(later).m_currStep = 0.125f;
  for (int i = 0; i < 3; ++i) scene.Draw();
  const DrawCommand draw = scene.Draw().at(0);
  EXPECT_EQ(draw.texture, 3u);
  EXPECT_EQ(draw.colour[3], 0.0f);
  // The background uploads the quad as the last frame left it; the end of death uploads nothing.
  ExpectWindow(draw, 0.125f, 0.375f);
}

TEST_F(AnimationStepTest, DeathLeavesItsWindowInTheSharedQuad) {
  Make("death");
  for (int i = 0; i < 4; ++i) scene.Draw();
  ExpectSharedQuad(0.75f, 1.0f);
}

// --- Once ---

TEST_F(AnimationStepTest, OnceShowsItsSheetVisibleAndWhite) {
  Make("once");
  Sprite().m_colour = {0.1f, 0.2f, 0.3f, 0.4f};
  const DrawCommand draw = scene.DrawOne();
  EXPECT_EQ(draw.texture, 4u);
  EXPECT_EQ(draw.colour[3], 1.0f);
  ExpectSpriteColour(1.0f, 1.0f, 1.0f, 1.0f);
  EXPECT_TRUE(Sprite().m_visible);
}

TEST_F(AnimationStepTest, OnceShowsTheSheetThatIsGivenInPlaceOfItsOwn) {
  Make("once");
  Anim().m_once_instead = "six";
  EXPECT_EQ(scene.DrawOne().texture, 6u);
  Anim().m_once_instead = nullptr;
  EXPECT_EQ(scene.DrawOne().texture, 4u);
}

TEST_F(AnimationStepTest, OnceEndsInVanishingWithoutSwitchingOff) {
  Make("once");
  for (int i = 0; i < 4; ++i) scene.Draw();
  EXPECT_EQ(State(), "default");
  EXPECT_FALSE(Sprite().m_visible);
  EXPECT_TRUE(object->active);
  ExpectSpriteColour(0.0f, 0.0f, 0.0f, 0.0f);
}

TEST_F(AnimationStepTest, OnceBringsAPlayerBackToItsPlainSprite) {
  Make("once");
  object->AddComponent<Player>();
  Of<Player>(object).m_init = true;  // and dead: its own step leaves the looks alone
  Of<Player>(object).m_alive = false;
  for (int i = 0; i < 4; ++i) scene.Draw();
  EXPECT_TRUE(Sprite().m_visible);
  ExpectSpriteColour(1.0f, 1.0f, 1.0f, 1.0f);
  EXPECT_EQ(scene.DrawOne().texture, 1u);
}

TEST_F(AnimationStepTest, OnceBringsAnEnemyBackToItsPlainSprite) {
  Make("once");
  object->AddComponent<Enemy>();
  Of<Enemy>(object).m_init = true;  // and dead: its own step leaves the looks alone
  Of<Enemy>(object).m_alive = false;
  for (int i = 0; i < 4; ++i) scene.Draw();
  EXPECT_TRUE(Sprite().m_visible);
}

TEST_F(AnimationStepTest, TheLastDrawOfOnceIsThePlainTextureWhole) {
  Make("once");
  object->AddComponent<Player>();
  Of<Player>(object).m_init = true;  // and dead: its own step leaves the looks alone
  Of<Player>(object).m_alive = false;
  for (int i = 0; i < 3; ++i) scene.Draw();
  const DrawCommand draw = scene.DrawOne();
  EXPECT_EQ(draw.texture, 1u);
  ExpectWindow(draw, 0.0f, 1.0f);
  EXPECT_EQ(Anim().m_currStep, 0.0f);
}

// --- Loop ---

TEST_F(AnimationStepTest, LoopGoesOnFromTheStart) {
  Make("loop");
  for (int i = 0; i < 4; ++i) scene.Draw();
  EXPECT_EQ(State(), "loop");
  ExpectWindow(scene.DrawOne(), 0.0f, 0.25f);
}

TEST_F(AnimationStepTest, TheLastFrameOfALoopShowsTheQuadUploadedBefore) {
  Make("loop");
  for (int i = 0; i < 3; ++i) scene.Draw();
  // The quad uploaded last is the one of the frame before, u 0.5 to 0.75.
  const DrawCommand draw = scene.DrawOne();
  EXPECT_EQ(draw.texture, 5u);
  ExpectWindow(draw, 0.5f, 0.75f);
  ExpectSharedQuad(0.75f, 1.0f);
}

TEST_F(AnimationStepTest, TheLastFrameOfALoopShowsTheSpriteDrawnBefore) {
  GameObj* other = scene.AddAnimated("other", "loop");
  Of<Animation>(other).m_time_per_frame = 100.0f;
  Of<Animation>(other).m_currStep = 0.25f;
  Make("loop");
  Anim().m_currStep = 0.75f;
  ExpectWindow(scene.Draw()[1], 0.25f, 0.5f);
}

TEST_F(AnimationStepTest, ALoopsEndAfterALoopsEndShowsTheWindowThatTheOtherLeft) {
  GameObj* other = scene.AddAnimated("other", "loop");
  Of<Animation>(other).m_currStep = 0.75f;
  Make("loop");
  Anim().m_loop_frames = 2;
  Anim().m_currStep = 0.5f;
  const std::vector<DrawCommand> draws = scene.Draw();
  ASSERT_EQ(draws.size(), 2u);
  ExpectWindow(draws[1], 0.75f, 1.0f);
}

TEST_F(AnimationStepTest, ALoopsEndAfterAModelShowsTheWholeTexture) {
  GameObj* animated = scene.AddAnimated("animated", "loop");
  Of<Animation>(animated).m_currStep = 0.25f;
  GameObj* model = scene.AddSprite("model", "six");
  Of<iModel>(model).m_vertices.resize(4);
  Make("loop");
  Anim().m_currStep = 0.75f;
  const std::vector<DrawCommand> draws = scene.Draw();
  ASSERT_EQ(draws.size(), 3u);
  ExpectWindow(draws[2], 0.0f, 1.0f);
}

TEST_F(AnimationStepTest, TheSpriteAfterALoopsEndStartsFromItsUploadedWindow) {
  Make("loop");
  Anim().m_currStep = 0.75f;
  scene.AddAnimated("odd", "move");
  ExpectWindow(scene.Draw()[1], 0.75f, 1.0f);
}

TEST_F(AnimationStepTest, ADamageZoneLoopsTheCommonSheetWhateverItsDataSays) {
  scene.System().m_textures["Sheet_Env_Damaging"] = 33;
  Make("loop", "EnvDamage");
  EXPECT_EQ(scene.DrawOne().texture, 33u);
}

TEST_F(AnimationStepTest, TheNameAloneMakesItLoopTheCommonSheet) {
  scene.System().m_textures["Sheet_Env_Damaging"] = 33;
  Make("loop", "zone");
  object->AddComponent<EnvironmentDamage>();
  Of<EnvironmentDamage>(object).m_init = true;
  EXPECT_EQ(scene.DrawOne().texture, 5u);
}

// --- Other states ---

TEST_F(AnimationStepTest, AnUnknownStateOnlyGrowsTheTimer) {
  Make("move");
  scene.world.Step(3);
  EXPECT_GT(Anim().m_timer, 2.0f / 60.0f);
  EXPECT_EQ(Anim().m_currStep, 0.0f);
  EXPECT_EQ(State(), "move");
}

}  // namespace
}  // namespace carapace_test
