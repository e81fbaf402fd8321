#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "editor/objectpath.h"
#include "editor/panels/objectkind.h"

namespace ZOVEngine {

class LevelEditor;

/// The tree of the level's objects: select, search, rename, move in the tree, duplicate, delete.
///
/// A level that was opened is scrolled to the object that runs it, past the paint on its floor.
/// Shows the document, so objects of the running interface are not in it. The rows are gathered
/// when level, search or open nodes change; a frame draws only those that are in sight, so a level
/// of thousands of objects costs no more than a small one. Objects are changed after the rows, by
/// commands of the session.
class HierarchyPanel {
 public:
  /// Fills the window that the layout has begun.
  void Show(LevelEditor& editor);

 private:
  struct Row {
    ObjectPath path;
    std::string name;
    ObjectKind kind = ObjectKind::kOther;
    bool has_children = false;
    bool open = false;
  };
  /// What the rows were gathered for.
  struct Key {
    std::size_t changes = 0;
    std::string level;
    std::string search;
    bool operator==(const Key&) const = default;
  };
  enum class Verb { kRename, kDuplicate, kDelete, kMoveToTop, kMoveBelow };
  /// What the author asked for in this frame.
  struct Request {
    Verb verb = Verb::kDelete;
    ObjectPath path;
    ObjectPath parent;  ///< of kMoveBelow
  };

  void ShowSearch();
  void GatherRows(const LevelEditor& editor);
  void AppendRow(const LevelEditor& editor, const ObjectPath& path);
  bool Matches(const LevelEditor& editor, const ObjectPath& path) const;
  void FollowSelection(const LevelEditor& editor);
  void ScrollToRoot(const LevelEditor& editor);
  void ScrollToSelection(const LevelEditor& editor);
  void ShowRows(LevelEditor& editor);
  void ShowRow(LevelEditor& editor, std::size_t index);
  void ShowNode(LevelEditor& editor, std::size_t index);
  void ShowNameField(LevelEditor& editor, const Row& row);
  void ShowContextMenu(LevelEditor& editor, const Row& row);
  void DragRow(const Row& row);
  void DropOnRow(const Row& row);
  void ShowTopLevel();
  void TakeKeys(const LevelEditor& editor);
  void Select(LevelEditor& editor, std::size_t index);
  void SelectRange(LevelEditor& editor, std::size_t index) const;
  void StartRenaming(const LevelEditor& editor, const ObjectPath& path);
  void Serve(LevelEditor& editor);

  std::vector<Row> m_rows;
  Key m_key;
  bool m_stale = true;
  std::set<ObjectPath> m_open;
  std::string m_search;
  ObjectPath m_followed;  ///< the selected object that the tree was opened for last
  bool m_scroll = false;
  bool m_level_is_new = false;  ///< no frame has shown it yet
  ObjectPath m_anchor;          ///< where a range of the Shift key begins
  bool m_toggled = false;       ///< the press that is held has opened or closed a node
  ObjectPath m_dragged;
  ObjectPath m_renamed;  ///< empty while no name is typed
  std::string m_name;
  bool m_name_is_new = false;  ///< its field does not have the keyboard yet
  std::optional<Request> m_request;
};

/// Why `name` cannot be given to an object, as a sentence; empty if it can. Loader and save treat
/// some names in their own way.
std::string FaultOfObjectName(const std::string& name);

}  // namespace ZOVEngine
