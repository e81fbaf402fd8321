#include "physics/contactlist.h"

#include <algorithm>
#include <utility>

namespace ZOVEngine {
namespace {

constexpr std::size_t kFewestSlots = 64;

/// One key for both orders of two ids.
std::uint64_t PairKey(std::uint32_t one, std::uint32_t other) {
  return (std::uint64_t{std::min(one, other)} << 32) | std::max(one, other);
}

/// Fibonacci hashing: the upper half of the product with 2^64 divided by the golden ratio.
std::size_t Hash(std::uint64_t key) {
  return static_cast<std::size_t>((key * 0x9E3779B97F4A7C15u) >> 32);
}

}  // namespace

void ContactList::clear() {
  m_pairs.clear();
  m_indexed = 0;
  m_taken = 0;
  ++m_round;
}

void ContactList::swap(ContactList& other) noexcept {
  std::swap(m_pairs, other.m_pairs);
  std::swap(m_slots, other.m_slots);
  std::swap(m_indexed, other.m_indexed);
  std::swap(m_taken, other.m_taken);
  std::swap(m_round, other.m_round);
}

bool ContactList::Contains(std::uint32_t one, std::uint32_t other) {
  CatchUp();
  return !m_slots.empty() && m_slots[Find(PairKey(one, other))].round == m_round;
}

/// The slot of `key`, or the free one where it would go.
std::size_t ContactList::Find(std::uint64_t key) const {
  const std::size_t mask = m_slots.size() - 1;
  std::size_t at = Hash(key) & mask;
  while (m_slots[at].round == m_round && m_slots[at].key != key) at = (at + 1) & mask;
  return at;
}

void ContactList::CatchUp() {
  for (; m_indexed < m_pairs.size(); ++m_indexed) {
    if (2 * (m_taken + 1) > m_slots.size()) Grow();
    const ContactPair& pair = m_pairs[m_indexed];
    const std::uint64_t key = PairKey(pair.objectA, pair.objectB);
    Slot& slot = m_slots[Find(key)];
    if (slot.round == m_round) continue;
    slot = {key, m_round};
    ++m_taken;
  }
}

void ContactList::Grow() {
  const std::vector<Slot> old = std::move(m_slots);
  m_slots.assign(std::max(2 * old.size(), kFewestSlots), Slot());
  for (const Slot& slot : old) {
    if (slot.round == m_round) m_slots[Find(slot.key)] = slot;
  }
}

}  // namespace ZOVEngine
