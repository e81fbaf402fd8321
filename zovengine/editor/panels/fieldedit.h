#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "editor/objectedit.h"
#include "editor/objectpath.h"
#include "jsonunserializer.h"

namespace ZOVEngine {

class LevelEditor;

/// A gesture over a field that is going on.
struct OpenField {
  ObjectPath path;
  std::string component, key;
  std::size_t changes = 0;            ///< of the history when it began
  ObjectGesture gesture;              ///< of a live row
  std::optional<std::string> stored;  ///< text of the new value, of a stored row
  std::vector<ObjectPath> others;     ///< the other objects that were selected when it began
  bool seen = true;                   ///< its row was shown in this frame
};

/// Makes one step of the history of each gesture over a field: from the moment in which its widget
/// gets active to the moment in which it is left.
///
/// Rows that write to the live component and rows that edit a stored value go through it. What is
/// set in the shown object is set in the other selected ones too, as far as they have the field; of
/// a vector only the parts that were changed, and never a name. A value over which the program
/// would end is refused with a line in the log. Frames are bracketed by BeginFrame and EndFrame; at
/// most one field is being edited. What an undo or a rebuild of the scene overtakes is dropped.
class FieldEdit {
 public:
  /// The rows of this frame are those of the object at `shown`.
  void BeginFrame(LevelEditor& editor, const ObjectPath& shown);
  /// Ends a gesture whose row is gone.
  void EndFrame(LevelEditor& editor);

  /// Runs a row that writes the field `key` of the live component, as the rows of the reflected
  /// properties do.
  void LiveRow(LevelEditor& editor, const std::string& component, const std::string& key,
               const std::function<void()>& row);
  /// Runs a row that edits a copy of the stored value of `key` and returns true if it changed it.
  /// An empty key stands for all fields of the component, an empty component for the object itself.
  void StoredRow(LevelEditor& editor, const std::string& component, const std::string& key,
                 const std::function<bool(rapidjson::Document& value)>& row);

 private:
  bool IsOpenFor(const std::string& component, const std::string& key) const;
  void Start(const LevelEditor& editor, const std::string& component, const std::string& key);
  void End(LevelEditor& editor);
  static void EndStored(LevelEditor& editor, const OpenField& open);
  static void EndLive(LevelEditor& editor, OpenField& open);
  static void Preview(LevelEditor& editor, const OpenField& open);

  ObjectPath m_shown;
  std::optional<OpenField> m_open;
};

/// The text of the fields of a component with the value of `key` replaced; `value` is JSON text. An
/// empty key replaces all.
std::string ReplaceField(const std::string& fields, const std::string& key,
                         const std::string& value);
/// The text of the fields of another component of the class with what differs in `key` between
/// `before` and `after`, both texts of all fields: of two vectors of one length only the parts that
/// differ. Fields without that key stay as they are.
std::string ApplyDifference(const std::string& fields, const std::string& key,
                            const std::string& before, const std::string& after);

}  // namespace ZOVEngine
