#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "objects/componentmanager.h"

namespace ZOVEngine {

class Render;
class Transform;
class iModel;

/// Components of a sprite's object that the passes ask for; bits of Sprite::traits.
enum SpriteTrait : std::uint32_t {
  kHasTransform = 1u << 0,
  kHasModel = 1u << 1,
  kHasAnimation = 1u << 2,
  kHasState = 1u << 3,
  kIsHazard = 1u << 4,
  kHasParticle = 1u << 5,
  kHasCollider = 1u << 6,
};

/// A Render component with the traits of its object and two of its components.
///
/// The components are found anew for each frame: a Render that kept them would hand them on to its
/// clones.
struct Sprite {
  Render* render = nullptr;
  Transform* transform = nullptr;  ///< null without the trait kHasTransform
  iModel* model = nullptr;         ///< null without the trait kHasModel
  std::uint32_t traits = 0;

  /// The object's components; an object that lacks one ends the program with a report that names
  /// it.
  Transform& GetTransform() const;
  iModel& GetModel() const;
};

/// The sprites of a frame, one list for each pass, in the order of the Render table.
///
/// Filled once a frame, before the first pass, so that code called by a pass cannot disturb its
/// walk. Visibility is not looked at: an animation may hide objects of a later pass. A particle
/// that is no tile is in the instanced list and in the list of its own pass too.
struct SpriteLists {
  void Fill(ComponentArray<Render> components, bool (*hides)(const GameObj&) = nullptr);

  std::vector<Sprite> tiles;
  std::vector<Sprite> instances;
  std::vector<Sprite> hazards;
  std::vector<Sprite> world;
  std::vector<Sprite> interface;
};

/// Has the processor begin to load the sprite a few places behind `index`, for a pass that walks
/// `sprites`.
void PrefetchAhead(const std::vector<Sprite>& sprites, std::size_t index);

}  // namespace ZOVEngine
