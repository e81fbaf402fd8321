#include "game/shots/shoteffects.h"

#include <gtest/gtest.h>

#include "game/shots/shotstage.h"

namespace ZOVEngine {
namespace {

using carapace_test::Components;
using carapace_test::kLively;
using carapace_test::OutputOf;
using carapace_test::Record;
using carapace_test::ShotStage;
using carapace_test::TransformAt;

const Components kPlace = {{"Transform", TransformAt(0, 0)}};
const Components kParticles = {{"Transform", TransformAt(0, 0)},
                               {"ParticleSystemC", R"({"m_num_of_particles": 0})"}};

/// A shot "bare" with these children only.
GameObj* BareShot(ShotStage& stage, const std::vector<std::string>& children) {
  OutputOf([&] {
    stage.world.LoadObjects(
        Record("bare", {{"Transform", TransformAt(0, 0)}, {"RigidBody", kLively}}, children));
  });
  return stage.Find("bare");
}

TEST(ShotEffects, FeedbackStartsEveryChildOfItsNameAndNothingElse) {
  ShotStage stage({.kind = "ProjectileDefault"});
  GameObj* bare = BareShot(
      stage, {Record("bullet_feedback", kParticles, {Record("bullet_feedback", kParticles)}),
              Record("bullet_feedback", kPlace), Record("bullet_feedback", kParticles),
              Record("bullet_trail", kParticles)});
  const auto part = [](GameObj* object) { return object->GetComponent<ParticleSystemC>(); };
  ParticleSystemC* const started[] = {part(bare->children[0]), part(bare->children[2])};
  ParticleSystemC* const others[] = {part(bare->children[0]->children[0]), part(bare->children[3])};
  for (ParticleSystemC* sparks : {started[0], started[1], others[0], others[1]}) {
    sparks->m_active = sparks->m_emitting = false;
  }
  EmitFeedback(bare);
  for (const ParticleSystemC* sparks : started) EXPECT_TRUE(sparks->m_active && sparks->m_emitting);
  for (const ParticleSystemC* sparks : others) EXPECT_FALSE(sparks->m_active || sparks->m_emitting);
}

TEST(ShotEffects, ABurstStartsEveryChildWithAnAnimationAndNothingElse) {
  ShotStage stage({.kind = "ProjectileDefault"});
  const Components picture = {{"Transform", TransformAt(0, 0)},
                              {"Render", "{}"},
                              {"iModel", "{}"},
                              {"StateC", R"({"m_state": "default"})"}};
  Components sprite = picture;
  sprite.emplace_back("Animation", "{}");
  GameObj* bare =
      BareShot(stage, {Record("one", sprite, {Record("below", sprite)}), Record("two", sprite),
                       Record("still", picture),
                       Record("blank", {{"Transform", TransformAt(0, 0)}, {"Animation", "{}"}})});
  const auto state = [](GameObj* object) { return object->GetComponent<StateC>()->m_state; };
  ShowBurst(bare);
  EXPECT_EQ(state(bare->children[0]), "once");
  EXPECT_EQ(state(bare->children[1]), "once");
  EXPECT_EQ(state(bare->children[2]), "default") << "it is not animated";
  EXPECT_EQ(state(bare->children[0]->children[0]), "default") << "it is no child of the shot";
}

TEST(ShotEffects, ATrailWithoutParticlesIsLeftAlone) {
  ShotStage stage({.kind = "ProjectileDefault"});
  GameObj* bare =
      BareShot(stage, {Record("bullet_trail", kPlace), Record("bullet_trail", kParticles)});
  TurnTrail(bare, 30.0f);
  EXPECT_EQ(bare->children[0]->GetComponent<Transform>()->m_local_rotate, 0.0f);
  EXPECT_EQ(bare->children[1]->GetComponent<Transform>()->m_local_rotate, -60.0f);
}

TEST(ShotEffects, OfTwoShakesInOneStepTheLastCounts) {
  ShotStage stage({.kind = "ProjectileDefault", .with_controller = true});
  ShakeCamera(stage.shot, kBigShake);
  stage.Of<Camera>("camera").m_elapsed = 0.4f;
  ShakeCamera(stage.shot, kSmallShake);
  EXPECT_EQ(stage.Shake(), kSmallShake) << "and it lasts its whole time";
  ShakeCamera(stage.shot, kBigShake);
  EXPECT_EQ(stage.Shake(), kBigShake);
}

TEST(ShotEffects, WithoutACameraNothingShakes) {
  ShotStage stage({.kind = "ProjectileDefault", .with_controller = true});
  stage.Of<GameController>("level").m_camera = nullptr;
  ShakeCamera(stage.shot, kBigShake);
  EXPECT_EQ(stage.Shake(), 0.0f);
}

TEST(ShotEffects, InAPauseNeitherABounceNorAHitIsHeard) {
  ShotStage stage({.kind = "ProjectileDefault"});
  GameObj* shot = stage.shot;
  auto& sounds = stage.Of<AudioSource>("shot").sounds;
  g_engine->step_paused = true;
  PlayBounceSound(shot, "bullet_bounce.ogg");
  PlayHitSound(shot);
  EXPECT_TRUE(sounds.empty());
  g_engine->step_paused = false;
  PlayBounceSound(shot, "bullet_bounce.ogg");
  EXPECT_EQ(sounds.count("bullet_bounce.ogg"), 1u);
  PlayHitSound(shot);
  EXPECT_EQ(sounds.count("default_hit.ogg"), 1u);
}

}  // namespace
}  // namespace ZOVEngine
