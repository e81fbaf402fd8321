#include "physics/contactlist.h"

#include <gtest/gtest.h>

#include <random>

namespace ZOVEngine {
namespace {

ContactPair Between(std::uint32_t a, std::uint32_t b) {
  return {a, b, ContactInfo()};
}

/// Whether a walk through the list finds the pair.
bool IsListed(const ContactList& list, std::uint32_t a, std::uint32_t b) {
  for (const ContactPair& pair : list) {
    if ((pair.objectA == a && pair.objectB == b) || (pair.objectA == b && pair.objectB == a)) {
      return true;
    }
  }
  return false;
}

TEST(ContactList, ContainsAPairInEitherOrder) {
  ContactList list;
  list.push_back(Between(3, 0));
  EXPECT_TRUE(list.Contains(3, 0));
  EXPECT_TRUE(list.Contains(0, 3));
  EXPECT_FALSE(list.Contains(3, 3));
  EXPECT_FALSE(list.Contains(0, 0));
}

TEST(ContactList, ANewOneContainsNothing) {
  ContactList list;
  EXPECT_TRUE(list.empty());
  EXPECT_FALSE(list.Contains(0, 0));
}

TEST(ContactList, WhatIsAddedAfterAQuestionIsFoundByTheNext) {
  ContactList list;
  list.push_back(Between(1, 2));
  EXPECT_FALSE(list.Contains(1, 3));
  list.push_back(Between(1, 3));
  EXPECT_TRUE(list.Contains(1, 3));
}

TEST(ContactList, AClearedOneContainsNothing) {
  ContactList list;
  list.push_back(Between(1, 2));
  EXPECT_TRUE(list.Contains(1, 2));
  list.clear();
  EXPECT_EQ(list.size(), 0u);
  EXPECT_FALSE(list.Contains(1, 2));
}

TEST(ContactList, SwappingSwapsWhatTheyContain) {
  ContactList one;
  ContactList other;
  one.push_back(Between(1, 2));
  EXPECT_TRUE(one.Contains(1, 2));
  one.swap(other);
  EXPECT_FALSE(one.Contains(1, 2));
  EXPECT_TRUE(other.Contains(1, 2));
  other.clear();
  other.swap(one);
  EXPECT_FALSE(one.Contains(1, 2));
}

TEST(ContactList, AnswersAsAWalkThroughTheListDoes) {
  std::mt19937 generator(5);
  const auto random = [&generator] { return static_cast<std::uint32_t>(generator()); };
  ContactList list;
  ContactList other;
  for (int round = 0; round < 40; ++round) {
    list.swap(other);
    list.clear();
    const unsigned ids = 1 + random() % 60;
    const unsigned pairs = random() % 400;
    for (unsigned i = 0; i < pairs; ++i) {
      list.push_back(Between(random() % ids, random() % ids));
      const std::uint32_t a = random() % ids;
      const std::uint32_t b = random() % ids;
      ASSERT_EQ(list.Contains(a, b), IsListed(list, a, b)) << a << " and " << b;
      ASSERT_EQ(other.Contains(a, b), IsListed(other, a, b)) << a << " and " << b;
    }
  }
}

}  // namespace
}  // namespace ZOVEngine
