#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "editor/history.h"
#include "editor/objectpath.h"
#include "objects/jsonforward.h"

namespace ZOVEngine {

class LevelDocument;

/// Which objects are selected, the one whose fields the inspector shows last.
using Selection = std::vector<ObjectPath>;

/// Changes of the level's structure: objects come, go and move in the tree, components come and go.
///
/// Each verb changes the document, builds the scene anew from it and gives the command. If it
/// cannot be done it gives null, Fault says why, and nothing has changed. The command restores the
/// selection too. Document and selection must outlive the commands.
class SceneEditor {
 public:
  /// The place behind all children.
  static constexpr std::size_t kLast = static_cast<std::size_t>(-1);

  SceneEditor(LevelDocument* document, Selection* selection)
      : m_document(document), m_selection(selection) {}

  /// Destroys the objects at `paths` with their children.
  std::unique_ptr<EditCommand> Delete(const std::vector<ObjectPath>& paths);
  /// Puts a copy of each object behind it among its siblings, moved by (x, y), and selects the
  /// copies (unit: world units).
  std::unique_ptr<EditCommand> Duplicate(const std::vector<ObjectPath>& paths, float x, float y);
  /// Adds objects, given as records, as children of the object at `parent`, or as roots if it is
  /// empty, and selects them. They stand before the child at `place`, without one at the end.
  std::unique_ptr<EditCommand> Insert(const ObjectPath& parent,
                                      const std::vector<std::string>& records,
                                      const std::string& label, std::size_t place = kLast);
  /// Puts a record in the place of the object at `path`, which with its children is gone.
  std::unique_ptr<EditCommand> Replace(const ObjectPath& path, const std::string& record,
                                       const std::string& label);
  /// Makes `child` the last child of `parent`, or a root if that is empty. Its fields stay, so it
  /// keeps its local place. An object cannot become a child of itself or of a descendant.
  std::unique_ptr<EditCommand> Reparent(const ObjectPath& child, const ObjectPath& parent);
  /// Adds a component with the fields of `text`, a JSON object.
  std::unique_ptr<EditCommand> AddComponent(const ObjectPath& path, const std::string& component,
                                            const std::string& text);
  std::unique_ptr<EditCommand> RemoveComponent(const ObjectPath& path,
                                               const std::string& component);

  /// Why the last verb gave null.
  const std::string& Fault() const { return m_fault; }

 private:
  /// Changes the document of the level's objects; false if it cannot.
  using Change = std::function<bool(rapidjson::Document& document, Selection* selected)>;
  std::unique_ptr<EditCommand> Edit(const std::string& label, const Change& change);
  bool Refuse(const std::string& sentence);

  LevelDocument* m_document;
  Selection* m_selection;
  std::string m_fault;
};

}  // namespace ZOVEngine
