#pragma once

#include "zovassert.h"

// Included before any header of RapidJSON: its assertions become the engine's failure report, which
// names the file, the object and the key that were being read.

namespace ZOVEngine {

/// Reports a failed assertion of the JSON library with the current place in the data.
[[noreturn]] void JsonAssertFailed(const char* expression, const char* file, int line);

}  // namespace ZOVEngine

#define RAPIDJSON_HAS_STDSTRING 1
#define RAPIDJSON_ASSERT(x) \
  ((x) ? static_cast<void>(0) : ZOVEngine::JsonAssertFailed(#x, __FILE__, __LINE__))
