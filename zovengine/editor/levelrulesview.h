#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/base/noncopyable.h"
#include "core/base/vector3d.h"
#include "editor/levelrules.h"
#include "jsonunserializer.h"

namespace ZOVEngine {

/// One record of an object file, read in place and without trust: what is missing or of another
/// type is answered by a default, as the form of the file is checked on its own.
class ObjectView {
 public:
  ObjectView(const Value& value, LevelFile in_file, std::uint32_t place, const ObjectView* above);

  /// True if the record lists the component and has its key, so that the game reads it.
  bool Has(std::string_view component) const { return Part(component) != nullptr; }
  /// The value of a component's key; null for a component that the game would not read.
  const Value* Part(std::string_view component) const;

  float Number(const char* component, const char* key, float otherwise) const;
  int Whole(const char* component, const char* key, int otherwise) const;
  bool Flag(const char* component, const char* key, bool otherwise) const;
  /// The text lives as long as the level's file.
  std::string_view Text(const char* component, const char* key, const char* otherwise) const;
  Vector3D Vector(const char* component, const char* key, const Vector3D& otherwise) const;
  std::vector<Vector3D> Vectors(const char* component, const char* key) const;
  std::vector<std::string> Texts(const char* component, const char* key) const;

  bool IsUnit() const { return Has("Player") || Has("Enemy"); }
  bool IsShot() const;
  /// Where the object begins: its position moved by those of its ancestors (unit: world units).
  Vector3D Place() const;
  /// The records of the children; empty if there are none.
  std::vector<const Value*> Children() const;
  bool HasChild(std::string_view child) const;
  /// Its name behind that of its parent.
  std::string Title() const;
  std::vector<std::uint32_t> Address() const;

  const Value* record;
  std::string name;
  bool active;
  const ObjectView* parent;  ///< null for a record of the file itself
  LevelFile file;
  std::uint32_t index;  ///< among the records of the file or the children of the parent

 private:
  std::vector<std::pair<std::string_view, const Value*>> m_parts;  ///< by the listed components
};

/// A reader of values that may be of any type.
float NumberIn(const Value* value, float otherwise);
int WholeIn(const Value* value, int otherwise);
/// True for an array of three numbers.
bool IsVector(const Value& value);
/// What `key` holds as a text; `otherwise` if it holds none.
std::string_view TextIn(const Value& object, const char* key, std::string_view otherwise);

/// All records of an object file, parents before children.
class ObjectsView : private NonCopyable {
 public:
  ObjectsView(const std::string& text, LevelFile file);

  const Value& Root() const { return m_document.Root(); }
  const std::vector<ObjectView>& All() const { return m_objects; }

 private:
  void Count(const Value& records);
  void Add(const Value& records, const ObjectView* parent, LevelFile file);

  JsonDocument m_document;
  std::size_t m_count = 0;
  std::vector<ObjectView> m_objects;
};

/// A level as its rules see it.
struct LevelView {
  explicit LevelView(const LevelText& text);

  const std::string name;
  // In the order in which they are parsed: documents nest.
  ObjectsView tiles;
  ObjectsView objects;
  JsonDocument level;
  JsonDocument map;
  /// The texts that are no JSON.
  std::vector<LevelFile> broken;
  const ObjectView* root = nullptr;  ///< the first object with a GameController; null without one
  bool has_units = false;
};

}  // namespace ZOVEngine
