#pragma once

#include <string>

namespace ZOVEngine {

/// A text field for a string of up to 5,000 characters; a longer one keeps its length. `hint` is
/// shown while it is empty. Returns true when the text has changed.
bool TextField(const char* label, std::string* text, const char* hint = "", int flags = 0);

/// True if `text` contains `part`, whatever the case of ASCII letters; an empty part is in all.
bool ContainsIgnoringCase(const std::string& text, const std::string& part);

/// A mark that shows `text` while the mouse is over the last widget.
void HoverText(const std::string& text);

}  // namespace ZOVEngine
