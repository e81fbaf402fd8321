#pragma once

// The headers that most sources share and that cost the most to read.
#include <rttr/rttr_enable.h>
#include <rttr/registration>

#include <cmath>
#include <cstdint>
#include <functional>
#include <iostream>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "objects/rapidjsonconfig.h"

#include <rapidjson/document.h>
#include <rapidjson/prettywriter.h>
