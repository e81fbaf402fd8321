#pragma once

#include <iostream>

namespace carapace_test {

/// Takes away what the engine prints to the standard output, for its life. Two may be nested.
class Quiet {
 public:
  Quiet() : m_before(std::cout.rdbuf(nullptr)) {}
  ~Quiet() {
    std::cout.rdbuf(m_before);
    std::cout.clear();
  }
  Quiet(const Quiet&) = delete;
  Quiet& operator=(const Quiet&) = delete;

 private:
  std::streambuf* m_before;
};

}  // namespace carapace_test
