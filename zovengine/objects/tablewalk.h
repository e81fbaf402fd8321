#pragma once

#include <memory>
#include <vector>

#include "core/base/noncopyable.h"
#include "objects/gameobjfactory.h"

namespace ZOVEngine {

/// The components of a table as a walk found them, in memory that is kept between walks.
///
/// The memory is taken out of its place for the walk, so that a walk within this one makes a copy
/// of its own.
class WalkCopy : private NonCopyable {
 public:
  using Entries = std::vector<GameComponentBase*>;

  WalkCopy(const ComponentManagerBase& table, Entries* memory);
  ~WalkCopy() { *m_memory = std::move(m_entries); }

  auto begin() const { return m_entries.begin(); }
  auto end() const { return m_entries.end(); }

 private:
  Entries* m_memory;
  Entries m_entries;
};

/// Walks a table over a copy of its dense array, so that components may create objects meanwhile.
///
/// When a visit clears all objects, as a change of state does, the rest of the copy is dead and the
/// walk ends.
template <class T>
class TableWalk {
 public:
  /// Walks the registered table; throws as FetchTable.
  TableWalk() : m_table(FetchTable<T>()) {}

  /// Calls `visit` with each component that is there now.
  template <class Visitor>
  void ForEach(Visitor visit) {
    const WalkCopy copy(*m_table, &m_memory);
    const ClearWatch watch;
    for (GameComponentBase* component : copy) {
      visit(static_cast<T*>(component));
      if (watch.Cleared()) break;
    }
  }

  ComponentManager<T>& Table() { return *m_table; }

 private:
  std::shared_ptr<ComponentManager<T>> m_table;
  WalkCopy::Entries m_memory;
};

/// A walk for each table of a list, one table after another.
///
/// Each table's copy is taken when its turn comes, so when a visit clears all objects, the tables
/// that follow are empty.
template <class... T>
class TableWalks : private TableWalk<T>... {
 public:
  /// Calls `visit` with each component of all tables.
  template <class Visitor>
  void ForEach(Visitor visit) {
    (TableWalk<T>::ForEach(visit), ...);
  }
  /// The same for some of the tables, in the given order.
  template <class... Some, class Visitor>
  void ForEach(TypeList<Some...>, Visitor visit) {
    (TableWalk<Some>::ForEach(visit), ...);
  }
};

}  // namespace ZOVEngine
