#pragma once

#include "objects/rapidjsonconfig.h"

#include <rapidjson/fwd.h>

namespace ZOVEngine {

// The names with which a component's header declares its reader and writer. Their definitions are
// in jsonunserializer.h.

/// A read-only JSON value. It lives as long as its document; readers copy what they keep.
using Value = rapidjson::Value;
struct Writer;

}  // namespace ZOVEngine
