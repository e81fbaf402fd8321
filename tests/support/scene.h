#pragma once

#include <string>
#include <vector>

#include "objects/gameobjfactory.h"
#include "objects/statec.h"
#include "physics/components/transform.h"
#include "render/components/animation.h"
#include "render/components/font.h"
#include "render/components/imodel.h"
#include "render/components/light.h"
#include "render/components/render.h"
#include "render/rendersystem.h"
#include "support/world.h"

namespace carapace_test {

/// A world with a few named textures and helpers that put sprites into it and look at its frames.
///
/// Textures have the numbers 1 to 9 for "one" to "nine", and "default" 10, "yellow" 11, "Crosshair"
/// 12; every other key shows texture 0.
class Scene {
 public:
  explicit Scene(const Files& files = {});

  /// An object at (0, 0, 1) with a Transform only.
  ZOVEngine::GameObj* AddObject(const std::string& name, ZOVEngine::GameObj* parent = nullptr);
  /// An object with Transform, Render and iModel that shows `texture`; its model has one vertex, so
  /// it is drawn with the shared quad.
  ZOVEngine::GameObj* AddSprite(const std::string& name, const std::string& texture,
                                ZOVEngine::GameObj* parent = nullptr);
  /// AddSprite with Animation and StateC in `state`; its sheets are "two" (spawn), "three" (death),
  /// "four" (once) and "five" (loop), of four frames each, one step a frame.
  ZOVEngine::GameObj* AddAnimated(const std::string& name, const std::string& state);
  /// AddSprite with a Particle, drawn by the instanced program.
  ZOVEngine::GameObj* AddParticle(const std::string& texture);
  /// A child of `parent` with a Camera, active.
  ZOVEngine::GameObj* AddCamera(ZOVEngine::GameObj* parent = nullptr);

  /// Runs a step and returns its draws without the background, which comes first, and the
  /// crosshair, which comes last.
  std::vector<ZOVEngine::DrawCommand> Draw();
  /// Draw, with exactly one draw expected.
  ZOVEngine::DrawCommand DrawOne();
  /// The texture numbers of Draw.
  std::vector<int> DrawTextures();

  ZOVEngine::RenderSystem& System() { return *ZOVEngine::g_render_system; }
  const ZOVEngine::Frame& Frame() const { return world.device.frame; }

  World world;
};

template <class T>
T& Of(ZOVEngine::GameObj* object) {
  return *object->GetComponent<T>();
}

}  // namespace carapace_test
