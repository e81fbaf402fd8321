#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "editor/canvas/handles.h"
#include "editor/canvas/sceneindex.h"
#include "editor/canvas/snapping.h"
#include "editor/objectedit.h"
#include "objects/gameobjfactory.h"

namespace ZOVEngine {

class LevelEditor;

/// Moves, turns or scales the selected objects with the mouse; a whole drag is one gesture.
///
/// Works on the objects whose Transform may be dragged and that no other selected object carries.
/// Every step is counted from where the drag began, so that steps do not add up rounding. If the
/// scene is built anew meanwhile, the drag is over and nothing of it remains.
class DragTool {
 public:
  /// Takes hold of the selected objects at a point of the level. `mode` is an EditMode. False if
  /// none of them may be dragged. `grabbed` is the object that snaps to the grid, or empty for the
  /// first.
  bool Begin(const std::vector<const SceneEntry*>& objects, Handle handle, std::uint32_t mode,
             const Vector3D& mouse, const ObjectPath& grabbed);
  /// Brings the objects to where the mouse has them now.
  void Update(const Vector3D& mouse, const SnapGrid& grid);
  /// Ends the drag, and hands what it changed to the editor as one gesture.
  void End(LevelEditor& editor);
  /// Puts the objects back.
  void Cancel();

  /// False as well once the scene was built anew.
  bool IsOpen() const { return m_watch && !m_watch->Cleared(); }
  Handle Held() const { return m_handle; }
  /// What the drag comes to, for the mouse: "30, -15", "45 deg", "x 1.2".
  const std::string& Measure() const { return m_measure; }

 private:
  /// An object as it stood when the drag began.
  struct Dragged {
    GameObj* object = nullptr;
    Transform* transform = nullptr;
    Vector3D local, world, scale;
    float rotation = 0.0f;      ///< its own (unit: degrees)
    double parents_turn = 0.0;  ///< of what its place is relative to (unit: radians)
  };

  void Move(const Vector3D& mouse, const SnapGrid& grid);
  void Turn(const Vector3D& mouse, const SnapGrid& grid);
  /// The angle to turn by for a mouse that turned by `free` (unit: degrees).
  float SnappedAngle(float free, const SnapGrid& grid) const;
  void Scale(const Vector3D& mouse, const SnapGrid& grid);
  /// Puts an object where it was, moved by (x, y) in the level.
  static void Place(const Dragged& dragged, double x, double y);
  std::string Label() const;
  void Close();

  ObjectGesture m_gesture;
  std::optional<ClearWatch> m_watch;  ///< while a drag goes on
  std::vector<Dragged> m_dragged;
  std::size_t m_grabbed = 0;
  Handle m_handle = Handle::kNone;
  std::uint32_t m_mode = 0;
  Vector3D m_start, m_pivot;
  std::string m_measure;
};

/// Moves the objects by (x, y) as one gesture (unit: world units).
void Nudge(LevelEditor& editor, const std::vector<const SceneEntry*>& objects, float x, float y);

}  // namespace ZOVEngine
