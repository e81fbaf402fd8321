#include "objects/idtable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <random>

namespace ZOVEngine {
namespace {

using ::testing::StrEq;
using ::testing::ThrowsMessage;

TEST(IdTable, AnAbsentIdThrows) {
  IdTable<int> table;
  int number = 0;
  table.Insert(3, &number);
  for (const std::uint32_t id : {0u, 2u, 4u, 4'000'000'000u}) {
    EXPECT_THAT([&] { table.At(id); },
                ThrowsMessage<std::out_of_range>(StrEq("invalid map<K, T> key")));
  }
  EXPECT_EQ(table.At(3), &number);
}

TEST(IdTable, AnIdThatIsPresentKeepsWhatItHas) {
  IdTable<int> table;
  int first = 0;
  int second = 0;
  table.Insert(1, &first);
  table.Insert(1, &second);
  EXPECT_EQ(table.At(1), &first);
}

TEST(IdTable, ErasingAnAbsentIdDoesNothing) {
  IdTable<int> table;
  table.Erase(9);
  EXPECT_THROW(table.At(9), std::out_of_range);
}

TEST(IdTable, BehavesAsAnOrderedMap) {
  std::vector<int> items(50);
  std::map<std::uint32_t, int*> reference;
  IdTable<int> table;
  std::mt19937 random(11);
  for (int round = 0; round < 4000; ++round) {
    const auto id = static_cast<std::uint32_t>(random() % 50);
    const auto other = static_cast<std::uint32_t>(random() % 50);
    switch (random() % 8) {
      case 0:
      case 1:
      case 2:
        table.Insert(id, &items[other]);
        reference.insert({id, &items[other]});
        break;
      case 3:
      case 4:
        table.Erase(id);
        reference.erase(id);
        break;
      case 5:
      case 6: {
        table.Rekey(id, other);
        auto node = reference.extract(id);
        if (!node.empty()) {
          node.key() = other;
          reference.insert(std::move(node));
        }
        break;
      }
      default:
        if (random() % 100 == 0) {
          table.Clear();
          reference.clear();
        }
    }
    for (std::uint32_t i = 0; i < 50; ++i) {
      if (reference.count(i) != 0) {
        ASSERT_EQ(table.At(i), reference.at(i)) << "round " << round;
      } else {
        ASSERT_THROW(table.At(i), std::out_of_range) << "round " << round;
      }
    }
  }
}

}  // namespace
}  // namespace ZOVEngine
