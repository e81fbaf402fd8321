#pragma once

#include <algorithm>
#include <cstddef>

namespace ZOVEngine {

/// A string literal as a template argument, such as `Show<"ui_pause">`.
template <std::size_t N>
struct Literal {
  // NOLINTNEXTLINE(google-explicit-constructor): the literal itself is the argument.
  constexpr Literal(const char (&literal)[N]) { std::copy_n(literal, N, text); }

  char text[N] = {};
};

}  // namespace ZOVEngine
