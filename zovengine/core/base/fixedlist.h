#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>

#include "zovassert.h"

namespace ZOVEngine {

/// A list of at most `Capacity` items that stand in the list itself, so that copying it allocates
/// nothing. Used like a std::vector; an item too many ends the program with a report.
template <class T, std::size_t Capacity>
class FixedList {
 public:
  // What standard containers name, for code that works with any.
  using value_type = T;
  using size_type = std::size_t;
  using iterator = T*;
  using const_iterator = const T*;
  using reference = T&;
  using const_reference = const T&;

  constexpr FixedList() = default;
  FixedList(std::initializer_list<T> items) {
    for (const T& item : items) push_back(item);
  }

  void push_back(const T& item) {
    ZOV_ASSERT(m_size < Capacity, "FixedList is full");
    m_items[m_size++] = item;
  }
  void clear() { m_size = 0; }

  std::size_t size() const { return m_size; }
  bool empty() const { return m_size == 0; }
  const T& operator[](std::size_t i) const { return m_items[i]; }
  T& operator[](std::size_t i) { return m_items[i]; }
  const T* begin() const { return m_items.data(); }
  const T* end() const { return m_items.data() + m_size; }
  T* begin() { return m_items.data(); }
  T* end() { return m_items.data() + m_size; }

 private:
  std::array<T, Capacity> m_items{};
  std::size_t m_size = 0;
};

}  // namespace ZOVEngine
