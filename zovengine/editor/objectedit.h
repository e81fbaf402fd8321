#pragma once

#include <memory>
#include <string>
#include <vector>

#include "editor/history.h"
#include "editor/objectpath.h"

namespace ZOVEngine {

class LevelDocument;

/// The fields of one component of one object before and after a gesture. An empty component name
/// stands for the object's own fields.
struct FieldChange {
  ObjectPath path;
  std::string component;
  std::string before, after;
};

/// The command of changes that the document does not have yet: makes them, in the document and in
/// the live objects. `document` must outlive the command. Null if nothing would change.
std::unique_ptr<EditCommand> ChangeFields(LevelDocument* document, std::string label,
                                          std::vector<FieldChange> changes);

/// A gesture that changes fields of live objects and no more: moving, turning, typing into a field.
///
/// Begin takes the fields of the objects as they stand; the caller changes the live objects as it
/// likes, over as many steps as the gesture lasts; End brings what has changed into the document.
/// Only the components that `Begin` is told are looked at. Lists of components and children are
/// the business of SceneEditor.
class ObjectGesture {
 public:
  /// `component` empty means every component and the object's own fields.
  void Begin(const std::vector<ObjectPath>& paths, const std::string& component = "");
  /// Ends the gesture. Returns null if all is as it was. `label` says what was done.
  std::unique_ptr<EditCommand> End(LevelDocument* document, const std::string& label);
  /// Puts the live objects back as they were at Begin, and ends the gesture.
  void Cancel();
  bool IsOpen() const { return !m_before.empty(); }

 private:
  std::vector<FieldChange> m_before;  ///< `after` not yet filled
};

}  // namespace ZOVEngine
