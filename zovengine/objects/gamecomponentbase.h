#pragma once

#include <rttr/rttr_enable.h>

#include <cstdint>

#include "objects/jsonforward.h"

namespace ZOVEngine {

class GameObj;

/// Base of all components: the data that one object has of one kind.
///
/// A component is a plain struct with public fields that lives in the table of its type and is
/// owned by it. Its reader and writer carry the fields to and from files; the reflection record,
/// where a class has one, serves the editor's inspector. A pointer to a component does not survive
/// a state change.
class GameComponentBase {
  RTTR_ENABLE()

 public:
  explicit GameComponentBase(GameObj* owner) : m_owner(owner) {}
  GameComponentBase(const GameComponentBase&) = default;
  GameComponentBase& operator=(const GameComponentBase&) = default;

  /// Reads the fields from the value of the component's key. Missing keys keep their fields.
  virtual void Unserialize(const Value& value) = 0;
  /// Writes the keys that Unserialize reads, into an object that the caller has opened.
  virtual void Serialize(Writer& writer) = 0;
  virtual ~GameComponentBase() = default;

  /// Tells a component that its object was switched on or off; does nothing by default.
  virtual void OwnerSetActive(bool) {}

  std::uint32_t m_index = static_cast<std::uint32_t>(-1);  ///< place in the table's dense array
  GameObj* m_owner;
  bool m_active = true;
};

}  // namespace ZOVEngine

/// Declares a component's list of fields, and the reader and the writer of its record. The source
/// of the class defines them by the list, with the macros of objects/fields.h.
#define ZOV_DECLARE_FIELDS()                     \
  template <class Visitor>                       \
  static void Fields(Visitor& visit);            \
  void Unserialize(const Value& value) override; \
  void Serialize(Writer& writer) override;
