#pragma once

#include <vector>

#include "core/base/vector3d.h"
#include "editor/canvas/painter.h"
#include "editor/canvas/sceneindex.h"

namespace ZOVEngine {

class LevelEditor;
class Player;
class RigidBody;
class Transform;

/// Draws over the picture what an author cannot see in it: the grid of the tiles, colliders, how
/// far hazards reach, where enemies fire up to the next wall, and how far the selected player units
/// drive.
///
/// `editor.overlays` says which. What has no image, such as a light, is marked always. Patrol paths
/// are PatrolTool's.
class Overlays {
 public:
  void Draw(const LevelEditor& editor, const SceneIndex& index, CanvasPainter& painter);

 private:
  void DrawAims(CanvasPainter& painter);
  void DrawAim(const Transform& transform, float spread, CanvasPainter& painter) const;
  void FindWalls();
  void DrawEnergy(const LevelEditor& editor, const SceneIndex& index, CanvasPainter& painter);
  /// EnergyReach, which is computed anew only for other values than the last ones.
  float Reach(const Player& player, const RigidBody& body);

  /// What the last reach was computed from.
  struct Drive {
    float limit = 0.0f, force = 0.0f, inverse_mass = 0.0f, drag = 0.0f;
    bool operator==(const Drive&) const = default;
  };
  Drive m_drive;
  float m_reach = 0.0f;           ///< (unit: world units)
  std::vector<Vector3D> m_walls;  ///< the middles of the walls, for the aims of a frame
};

}  // namespace ZOVEngine
