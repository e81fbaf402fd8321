#pragma once

#include "objects/rapidjsonconfig.h"

#include <rapidjson/fwd.h>

namespace ZOVEngine {

// What a component's header needs of JSON: its readers and writers are declared with these names.
// Their definitions are in jsonunserializer.h.

using Value = rapidjson::Value;
struct Writer;

}  // namespace ZOVEngine
