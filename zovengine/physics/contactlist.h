#pragma once

#include <cstdint>
#include <vector>

#include "core/contactinfo.h"

namespace ZOVEngine {

/// Two objects in contact, with a copy of the contact.
struct ContactPair {
  std::uint32_t objectA = 0;
  std::uint32_t objectB = 0;
  ContactInfo contact;
};

/// The contacts of one step in the order in which they were resolved, one entry a contact point.
///
/// Used as a list. Whether a pair is in it is answered from a hash table of open addressing that
/// catches up with the list when it is asked; both keep their memory when they are emptied.
class ContactList {
 public:
  void push_back(const ContactPair& pair) { m_pairs.push_back(pair); }
  void clear();
  void swap(ContactList& other) noexcept;

  std::size_t size() const { return m_pairs.size(); }
  bool empty() const { return m_pairs.empty(); }
  const ContactPair& operator[](std::size_t i) const { return m_pairs[i]; }
  ContactPair& operator[](std::size_t i) { return m_pairs[i]; }
  auto begin() const { return m_pairs.begin(); }
  auto end() const { return m_pairs.end(); }

  /// True if a record of the list names these two objects, in either order.
  bool Contains(std::uint32_t one, std::uint32_t other);

 private:
  /// A place of the hash table: taken when its round is the list's.
  struct Slot {
    std::uint64_t key = 0;
    std::uint64_t round = 0;
  };

  std::size_t Find(std::uint64_t key) const;
  void CatchUp();
  void Grow();

  std::vector<ContactPair> m_pairs;
  std::vector<Slot> m_slots;  ///< a power of two of them, at most half of them taken
  std::size_t m_indexed = 0;  ///< how many records of the list are in the table
  std::size_t m_taken = 0;    ///< slots
  std::uint64_t m_round = 1;  ///< grows when the list is emptied
};

}  // namespace ZOVEngine
