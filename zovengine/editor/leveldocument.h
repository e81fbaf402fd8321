#pragma once

#include "jsonunserializer.h"

#include <string>
#include <vector>

#include "editor/objectpath.h"

namespace ZOVEngine {

/// Keys of an object file: the list of its roots, and the children of a record.
inline constexpr const char* kRoots = "GameObjFactory";
inline constexpr const char* kChildren = "Childs";
/// The text of an object file without objects.
inline constexpr const char* kNoObjects = "{\n    \"GameObjFactory\": []\n}";

/// The objects of the open level as the author made them: the records of its object file.
///
/// The document is the level; the objects in the factory are its picture. They are built from it,
/// and an interface element or a sound that lives in them while the editor runs changes nothing
/// here. A path names the same object in both. Tiles are not part of it, nor are the invisible
/// twins of hazards, which only files have.
class LevelDocument {
 public:
  LevelDocument();

  /// Takes the text of an object file. False, and no change, if it is none: `text` must be a JSON
  /// object whose "GameObjFactory" is an array of objects.
  bool SetText(const std::string& text);
  /// The text, laid out as the file's.
  std::string Text() const;

  /// True if there is a record at `path`.
  bool Has(const ObjectPath& path) const { return Find(path) != nullptr; }
  std::string Name(const ObjectPath& path) const;
  /// The class names of the record's components, in its order.
  std::vector<std::string> Components(const ObjectPath& path) const;
  /// The fields of one component as text, or with an empty name those of the object itself: "name"
  /// and "active". Empty if there is no such record or component.
  std::string Fields(const ObjectPath& path, const std::string& component) const;
  /// Sets the fields of a component that the record has; `fields` is text of Fields.
  void SetFields(const ObjectPath& path, const std::string& component, const std::string& fields);

  /// The record at `path`, or null.
  const Value* Find(const ObjectPath& path) const;
  /// The children of the record at `path`, the roots for an empty one; null if there is no record.
  const Value* Children(const ObjectPath& path) const;
  /// The whole document, for changes of its structure.
  rapidjson::Document& Json() { return m_json; }
  const rapidjson::Document& Json() const { return m_json; }

 private:
  /// Frees the memory of values that were replaced, once they outweigh the document.
  void Compact();

  rapidjson::Document m_json;
  std::size_t m_compact_size = 0;  ///< memory of the document after the last Compact (unit: bytes)
};

/// Parses JSON so that every number keeps its digits when it is written again; with its default the
/// library may be off in the last one. A failure leaves the document's parse error set.
void ParseExactly(rapidjson::Document* document, const std::string& text);

/// A JSON value as text.
std::string ToText(const Value& value);

}  // namespace ZOVEngine
