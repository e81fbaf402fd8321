#pragma once

#include <cstddef>
#include <iterator>
#include <vector>

namespace ZOVEngine {

class GameComponentBase;

/// The dense array of one half of a component table, each entry as a pointer to its own class T.
///
/// A view: it costs nothing to make, and shows the array as it stands. It is valid as long as the
/// table; an iterator, as long as nothing is added to the table or removed from it. T must be
/// complete where an entry is read.
template <class T>
class ComponentArray {
 public:
  using Entries = std::vector<GameComponentBase*>;

  class const_iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = T*;
    using difference_type = std::ptrdiff_t;
    using pointer = T* const*;
    using reference = T*;

    const_iterator() = default;
    explicit const_iterator(GameComponentBase* const* entry) : m_entry(entry) {}
    T* operator*() const { return static_cast<T*>(*m_entry); }
    const_iterator& operator++() {
      ++m_entry;
      return *this;
    }
    const_iterator operator++(int) { return const_iterator(m_entry++); }
    bool operator==(const const_iterator&) const = default;

   private:
    GameComponentBase* const* m_entry = nullptr;
  };

  // What standard containers name, for code that works with any.
  using value_type = T*;
  using iterator = const_iterator;

  /// Shows `entries`, all of which are of class T.
  explicit ComponentArray(const Entries& entries) : m_entries(&entries) {}

  std::size_t size() const { return m_entries->size(); }
  bool empty() const { return m_entries->empty(); }
  T* operator[](std::size_t index) const { return static_cast<T*>((*m_entries)[index]); }
  T* front() const { return (*this)[0]; }
  const_iterator begin() const { return const_iterator(m_entries->data()); }
  const_iterator end() const { return const_iterator(m_entries->data() + m_entries->size()); }

 private:
  const Entries* m_entries;
};

}  // namespace ZOVEngine
