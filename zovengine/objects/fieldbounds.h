#pragma once

#include <optional>

namespace ZOVEngine {

/// The ends of a field's slider in the inspector. They guide the author; a value beyond them is
/// kept.
struct FieldBounds {
  std::optional<double> min;
  std::optional<double> max;
};

}  // namespace ZOVEngine
