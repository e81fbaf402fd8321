#pragma once

#include <cstdint>
#include <vector>

#include "core/base/vector3d.h"
#include "editor/canvas/sceneindex.h"

namespace ZOVEngine {

/// Whether a click means a whole unit or hazard, or the very object under the mouse.
enum class PickDepth { kUnit, kPart };

/// The objects at a point of the level that a click there can mean, the topmost first and each
/// once.
///
/// The body of a unit comes before the parts of others that lie over it, such as an aiming line.
/// The level's root is never among them, and the interface only where it is selected already; so is
/// the paint on the floor, unless the very object is meant.
std::vector<const SceneEntry*> PickAt(const SceneIndex& index, const Selection& selection,
                                      const Vector3D& point, float units_per_pixel,
                                      PickDepth depth);

/// The one below `present` in `targets`, the first after the last; the first if `present` is not
/// among them. Null if there are no targets.
const SceneEntry* PickBelow(const std::vector<const SceneEntry*>& targets,
                            const ObjectPath& present);

/// The whole things of the level's ground, without its paint, that reach into the rectangle between
/// two corners.
Selection PickInBox(const SceneIndex& index, const Vector3D& from, const Vector3D& to,
                    float units_per_pixel);
/// All whole things of the level's ground.
Selection PickAll(const SceneIndex& index);

}  // namespace ZOVEngine
