#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace ZOVEngine {

/// Shows a box with a title and a text and returns when the user has closed it.
using AssertBox = std::function<void(const std::string& title, const std::string& text)>;

/// Sets what ZOVAssert shows its report with. The window system installs the platform's message
/// box; before that, and with an empty function, the text goes to standard error alone.
void SetAssertBox(AssertBox box);

/// The one failure report of the program; it does not return.
///
/// Appends "[" time "] " message " (" file ", Line " line ")" to log_file.log in the working
/// directory, shows the line in a message box, and ends the process through the runtime's assertion
/// failure. A log that cannot be opened loses the line; the box is shown all the same.
[[noreturn]] void ZOVAssert(std::string file, std::uint32_t line, std::string message);

/// The last component of a source path, after its last slash or backslash.
constexpr const char* SourceFileName(const char* path) {
  const char* name = path;
  for (const char* c = path; *c != '\0'; ++c) {
    if (*c == '/' || *c == '\\') name = c + 1;
  }
  return name;
}

}  // namespace ZOVEngine

/// Reports `message` with the place of the macro when `condition` is false.
#define ZOV_ASSERT(condition, message)                                     \
  ((condition) ? static_cast<void>(0)                                      \
               : ZOVEngine::ZOVAssert(ZOVEngine::SourceFileName(__FILE__), \
                                      static_cast<std::uint32_t>(__LINE__), (message)))
