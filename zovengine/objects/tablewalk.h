#pragma once

#include <memory>
#include <vector>

#include "objects/gameobjfactory.h"

namespace ZOVEngine {

/// Walks a table over a copy of its dense array, so that components may create objects meanwhile.
///
/// The copy's memory is kept between walks. When a visit clears all objects, as a change of state
/// does, the rest of the copy is dead and the walk ends.
template <class T>
class TableWalk {
 public:
  explicit TableWalk(std::shared_ptr<ComponentManager<T>> table) : m_table(std::move(table)) {}

  template <class Visitor>
  void ForEach(Visitor visit) {
    // Taken out of the member, so that a walk within this one makes a copy of its own.
    std::vector<T*> copy = std::move(m_copy);
    copy.assign(m_table->Components().begin(), m_table->Components().end());
    const std::uint64_t clears = g_game_obj_factory->ClearCount();
    for (T* component : copy) {
      visit(component);
      if (g_game_obj_factory->ClearCount() != clears) break;
    }
    m_copy = std::move(copy);
  }

  ComponentManager<T>& Table() { return *m_table; }

 private:
  std::shared_ptr<ComponentManager<T>> m_table;
  std::vector<T*> m_copy;
};

}  // namespace ZOVEngine
