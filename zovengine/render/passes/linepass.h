#pragma once

#include <vector>

#include "render/linerecord.h"

namespace ZOVEngine {

/// Draws `lines` in their order.
void LinePass(const std::vector<LineRecord>& lines, Painter& painter);

/// Ages `lines` by `dt` (unit: seconds), drops those whose life time is over and draws the others,
/// opaque.
void TimedLinePass(float dt, std::vector<TimedLineRecord>* lines, Painter& painter);

}  // namespace ZOVEngine
