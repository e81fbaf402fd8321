#pragma once

#include <string>

namespace ZOVEngine {

/// Writes `text` to a file beside `path`, flushes it to the disk and renames it over `path`, so
/// that the file at `path` is the old one or the new one whatever happens in between. Returns
/// false, and leaves the old file and nothing beside it, when a step fails.
bool ReplaceFile(const std::string& path, const std::string& text);

}  // namespace ZOVEngine
