#pragma once

#include <cstdint>
#include <vector>

#include "editor/objectpath.h"
#include "editor/sceneedit.h"

namespace ZOVEngine {

class ColliderHolder;
class LevelDocument;
class Render;
class Transform;

/// An object of the open level with what the canvas asks of it.
struct SceneEntry {
  GameObj* object = nullptr;
  Transform* transform = nullptr;
  Render* render = nullptr;            ///< null without an image
  ColliderHolder* collider = nullptr;  ///< null without a collider
  ObjectPath path;
  /// The place of the unit, the hazard or the other whole thing that the object is a part of.
  std::uint32_t unit = 0;
  bool is_interface = false;  ///< belongs to the screen, not to the level's ground
  bool is_paint = false;  ///< a plain image on the floor, beneath all that the level's root holds
  bool is_level = false;  ///< the level's own root, which holds the others
};

/// The objects of the open level in the order in which they are drawn, for picking among thousands
/// of them.
///
/// Refresh finds out whether the scene was built anew; only then it walks the tree. Entries and
/// pointers are valid until the next Refresh that returns true. It also marks the objects that the
/// author may drag, by the flag of their Transform that no file keeps.
class SceneIndex {
 public:
  /// Brings the entries up to date; true if they were made anew.
  bool Refresh(const LevelDocument& document);

  const std::vector<SceneEntry>& Entries() const { return m_entries; }
  /// The entry of the object at `path`, or null.
  const SceneEntry* Find(const ObjectPath& path) const;
  /// The entries of those selected objects that are there.
  std::vector<const SceneEntry*> Selected(const Selection& selection) const;
  /// Those of Selected without a selected ancestor, which would carry them along.
  std::vector<const SceneEntry*> SelectedTopmost(const Selection& selection) const;

 private:
  void Build(const LevelDocument& document);
  void AddEntry(const PlacedObject& placed);
  void MarkPaint();
  void MarkDraggable();

  std::vector<SceneEntry> m_entries;  ///< in ascending order of the paths
  std::uint64_t m_clears = 0;         ///< of the factory when the entries were made
  std::size_t m_objects = 0;          ///< in the factory then
  bool m_built = false;
};

}  // namespace ZOVEngine
