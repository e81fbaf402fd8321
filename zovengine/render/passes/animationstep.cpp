#include "render/passes/animationstep.h"

#include <string>

#include "game/units/enemy.h"
#include "game/units/player.h"
#include "objects/componentmanager.h"
#include "objects/statec.h"
#include "render/components/animation.h"
#include "render/components/render.h"
#include "render/painter.h"

namespace ZOVEngine {
namespace {

constexpr Colour kVanished = {0.0f, 0.0f, 0.0f, 0.0f};

/// The object of one step with the values that all states share.
struct Step {
  Render& render;
  Animation& animation;
  std::string& state;
  Painter& painter;

  bool IsUnit() const {
    return render.m_owner->HasComponent<Player>() || render.m_owner->HasComponent<Enemy>();
  }
};

/// The width of one of `frames` frames, in u. No frames at all give infinity, which ends the
/// animation at its first advance.
float FrameWidth(std::uint32_t frames) {
  return 1.0f / static_cast<float>(frames);
}

void ShowFrame(const Step& step, std::uint32_t frames) {
  const float left = step.animation.m_currStep;
  step.painter.SetQuad(left, left + FrameWidth(frames));
}

/// Goes on to the next frame when the time of this one is over. True when it was the last one.
bool Tick(const Step& step, std::uint32_t frames) {
  Animation& a = step.animation;
  if (!(a.m_timer < a.m_time_per_frame)) {
    a.m_timer = 0.0f;
    a.m_currStep += FrameWidth(frames);
  }
  return a.m_currStep >= 1.0f;
}

void Rewind(const Step& step, const char* next_state) {
  step.animation.m_timer = 0.0f;
  step.animation.m_currStep = 0.0f;
  step.state = next_state;
}

/// Uploads the quad as it is, over the plain texture, and ends the animation.
void FinishOverPlainTexture(const Step& step) {
  step.painter.BindTexture(step.render.m_tex);
  step.painter.UploadQuad();
  Rewind(step, "default");
}

std::string OnceSheet(const Animation& animation) {
  return animation.m_once_instead != nullptr ? animation.m_once_instead : animation.m_once;
}

// Each of the four plays one frame of its state and returns true when that was the end.

bool Spawn(const Step& step) {
  const std::uint32_t frames = step.animation.m_spawn_frames;
  ShowFrame(step, frames);
  step.painter.BindTexture(step.animation.m_spawn);
  if (!Tick(step, frames)) return false;
  FinishOverPlainTexture(step);
  return true;
}

bool Death(const Step& step) {
  Colour& colour = step.render.m_colour;
  if (step.IsUnit()) colour[0] = colour[1] = colour[2] = 1.0f;
  const std::uint32_t frames = step.animation.m_death_frames;
  ShowFrame(step, frames);
  step.painter.BindTexture(step.animation.m_death);
  if (!Tick(step, frames)) return false;
  // Deliberately without an upload.
  colour = kVanished;
  step.render.m_visible = false;
  step.render.m_owner->SetActive(false);
  Rewind(step, "default");
  return true;
}

bool Once(const Step& step) {
  const std::uint32_t frames = step.animation.m_once_frames;
  ShowFrame(step, frames);
  if (!Tick(step, frames)) {
    step.render.m_colour = kWhite;
    step.render.m_visible = true;
    step.painter.BindTexture(OnceSheet(step.animation));
    return false;
  }
  const bool stays = step.IsUnit();
  step.render.m_visible = stays;
  step.render.m_colour = stays ? kWhite : kVanished;
  step.painter.SetQuad(0.0f, 1.0f);
  FinishOverPlainTexture(step);
  return true;
}

bool Loop(const Step& step) {
  static const std::string kHazardName = "EnvDamage";
  static const std::string kHazardSheet = "Sheet_Env_Damaging";
  step.render.m_visible = true;
  const std::uint32_t frames = step.animation.m_loop_frames;
  ShowFrame(step, frames);
  // Deliberately, hazards of this name share one sheet, whatever their data says.
  const bool hazard = step.render.m_owner->name == kHazardName;
  step.painter.BindTexture(hazard ? kHazardSheet : step.animation.m_loop);
  if (!Tick(step, frames)) return false;
  // Deliberately without an upload: this draw shows the quad as it was uploaded last.
  Rewind(step, "loop");
  return true;
}

bool PlayState(const Step& step) {
  if (step.state == "spawn") return Spawn(step);
  if (step.state == "death") return Death(step);
  if (step.state == "once") return Once(step);
  if (step.state == "loop") return Loop(step);
  return false;
}

}  // namespace

void AnimationStep(Render& render, float dt, Painter& painter) {
  GameObj* object = render.m_owner;
  const Step step{render, *object->GetComponent<Animation>(),
                  object->GetComponent<StateC>()->m_state, painter};
  step.animation.m_timer += dt;
  if (!PlayState(step)) painter.UploadQuad();
}

}  // namespace ZOVEngine
