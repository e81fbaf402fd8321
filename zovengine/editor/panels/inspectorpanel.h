#pragma once

#include <rttr/type>

#include <string>
#include <vector>

#include "editor/panels/fieldedit.h"

namespace ZOVEngine {

class GameComponentBase;
class LevelEditor;

/// The fields of the object that was selected last, and its components, to add and remove. What is
/// set in a field is set in all selected objects that have it.
///
/// A property that reflection knows has its row of the inspector's tables; the other fields of the
/// component's record, and those that hold one of a list of names, are edited in the document. A
/// property that is not saved is shown, but cannot be changed. Each gesture over a field is one
/// step of the history.
class InspectorPanel {
 public:
  /// Fills the window that the layout has begun.
  void Show(LevelEditor& editor);

 private:
  void ShowHead(LevelEditor& editor);
  void ShowComponents(LevelEditor& editor);
  void ShowComponent(LevelEditor& editor, const std::string& name);
  void ShowReflected(LevelEditor& editor, const std::string& name, GameComponentBase* component);
  void ShowProperty(LevelEditor& editor, const std::string& component,
                    const rttr::property& property, const rttr::instance& instance);
  void ShowStored(LevelEditor& editor, const std::string& name);
  void ShowAdd(LevelEditor& editor);

  ObjectPath m_path;  ///< of the shown object
  FieldEdit m_edit;
  std::string m_removed;  ///< the component that the author takes away in this frame
  std::string m_added;    ///< the one that is added
};

/// The classes of components that the object at `path` does not have yet, in alphabetical order.
std::vector<std::string> AddableComponents(const LevelEditor& editor, const ObjectPath& path);
/// Adds a component as its class makes it. False, with a line in the log, if the object has it
/// already or lacks what it needs.
bool AddDefaultComponent(LevelEditor& editor, const ObjectPath& path, const std::string& name);
/// Takes a component away. False, with a line in the log, if another one of the object needs it.
bool RemoveComponentIfFree(LevelEditor& editor, const ObjectPath& path, const std::string& name);

}  // namespace ZOVEngine
