#pragma once

#include <iostream>

#include "core/base/noncopyable.h"

namespace ZOVEngine {

/// Takes away what the engine prints to std::cout, for its life. Two may be nested.
///
/// A program that has something of its own to say meanwhile keeps the buffer of std::cout in a
/// stream of its own.
class Quiet : private NonCopyable {
 public:
  Quiet() : m_before(std::cout.rdbuf(nullptr)) {}
  ~Quiet() {
    std::cout.rdbuf(m_before);
    std::cout.clear();
  }

 private:
  std::streambuf* m_before;
};

}  // namespace ZOVEngine
