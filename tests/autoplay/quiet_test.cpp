#include "autoplay/quiet.h"

#include <gtest/gtest.h>

#include "support/reports.h"

namespace ZOVEngine {
namespace {

TEST(Quiet, WhatIsPrintedMeanwhileIsDropped) {
  const std::string output = carapace_test::OutputOf([] {
    std::cout << "before ";
    {
      const Quiet outer;
      std::cout << "dropped";
      {
        const Quiet inner;
        std::cout << "dropped" << std::endl;
      }
      std::cout << "dropped";
    }
    std::cout << "after";
  });
  EXPECT_EQ(output, "before after");
}

TEST(Quiet, AStreamWithTheBufferOfTheOutputIsHeard) {
  const std::string output = carapace_test::OutputOf([] {
    std::ostream results(std::cout.rdbuf());
    const Quiet quiet;
    std::cout << "dropped";
    results << "heard";
  });
  EXPECT_EQ(output, "heard");
}

}  // namespace
}  // namespace ZOVEngine
