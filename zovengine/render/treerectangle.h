#pragma once

#include <vector>

#include "core/base/vector3d.h"

namespace ZOVEngine {

/// A rectangle of the collision tree (unit: world units).
struct TreeRectangle {
  Vector3D min;
  Vector3D max;
};

/// Appends the rectangles of the collision tree, each parent before its children.
using TreeLister = void (*)(std::vector<TreeRectangle>* out);

}  // namespace ZOVEngine
