#pragma once

#include <cstdint>
#include <stdexcept>
#include <vector>

namespace ZOVEngine {

/// A map from object id to T*, with the meaning of an ordered map and the cost of one indexed load.
///
/// Ids are small: they are indices into the factory's arrays. An id that holds no pointer is
/// absent. Does not own what it points to.
template <class T>
class IdTable {
 public:
  /// Stores `item` under `id`; an id that is present keeps what it has.
  void Insert(std::uint32_t id, T* item) {
    if (id >= m_items.size()) m_items.resize(static_cast<std::size_t>(id) + 1, nullptr);
    if (m_items[id] == nullptr) m_items[id] = item;
  }

  /// The pointer under `id`; throws std::out_of_range "invalid map<K, T> key" when it is absent.
  T* At(std::uint32_t id) const {
    if (id < m_items.size()) {
      if (T* item = m_items[id]) return item;
    }
    throw std::out_of_range("invalid map<K, T> key");
  }

  /// The pointer under `id`, or null when it is absent.
  T* Find(std::uint32_t id) const { return id < m_items.size() ? m_items[id] : nullptr; }

  void Erase(std::uint32_t id) {
    if (id < m_items.size()) m_items[id] = nullptr;
  }

  /// Moves the entry of `old_id` to `new_id`. Does nothing when `old_id` is absent; when `new_id`
  /// is present it keeps what it has, and the moved entry is dropped.
  void Rekey(std::uint32_t old_id, std::uint32_t new_id) {
    if (old_id >= m_items.size() || m_items[old_id] == nullptr) return;
    T* item = m_items[old_id];
    m_items[old_id] = nullptr;
    Insert(new_id, item);
  }

  void Clear() { m_items.clear(); }

 private:
  std::vector<T*> m_items;
};

}  // namespace ZOVEngine
