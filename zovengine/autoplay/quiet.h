#pragma once

#include <iostream>

namespace ZOVEngine {

/// Takes away what the engine prints to std::cout, for its life. Two may be nested.
///
/// A program that has something of its own to say meanwhile keeps the buffer of std::cout in a
/// stream of its own.
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

}  // namespace ZOVEngine
