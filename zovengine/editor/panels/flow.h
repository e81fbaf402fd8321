#pragma once

namespace ZOVEngine {

/// Places the next item behind the last one if it fits into the window there, else in a new line
/// (unit: pixels). For rows of small widgets in panels of any width.
void FlowTo(float width);

/// The width of a radio button and of a plain button with this label (unit: pixels).
float RadioWidth(const char* label);
float ButtonWidth(const char* label);

}  // namespace ZOVEngine
