#pragma once

#include <cstddef>
#include <optional>

#include "editor/canvas/painter.h"
#include "editor/canvas/snapping.h"
#include "editor/objectedit.h"
#include "objects/gameobjfactory.h"

namespace ZOVEngine {

class Enemy;
class LevelEditor;

/// The mouse on the patrol paths of enemies.
///
/// A waypoint is dragged, which is one gesture; a double click on a path adds one there, Delete
/// over one removes it, and Control with a double click on the ground ends the path of the selected
/// enemy there. An enemy that stands on its waypoint has the mouse before it, unless Control is
/// held. Acts only while the patrol paths are shown.
class PatrolTool {
 public:
  /// Follows the mouse for one frame; true if the mouse is this tool's. `free` as Pointer::Update.
  bool Update(LevelEditor& editor, const CanvasView& view, bool free);
  /// Removes the waypoint under the mouse if Delete was pressed; true if it did.
  bool RunDelete(LevelEditor& editor);
  /// Takes back a drag.
  void Drop();
  void Draw(CanvasPainter& painter) const;

  bool IsBusy() const { return m_watch && !m_watch->Cleared(); }

 private:
  /// A waypoint of an enemy.
  struct Knot {
    Enemy* enemy = nullptr;
    std::size_t place = 0;
  };
  static Knot KnotAt(const Vector3D& point, float reach);
  /// The leg at a point: the enemy, and the waypoint at its end.
  static Knot LegAt(const Vector3D& point, float reach);

  void Drag(LevelEditor& editor, const Vector3D& mouse);
  bool Press(LevelEditor& editor, const Vector3D& mouse, float pixel);
  bool AddKnot(LevelEditor& editor, const Vector3D& mouse, float pixel);

  Knot m_knot;  ///< under the mouse, or dragged
  ObjectGesture m_gesture;
  std::optional<ClearWatch> m_watch;  ///< while a drag goes on
};

}  // namespace ZOVEngine
