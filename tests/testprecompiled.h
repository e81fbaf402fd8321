#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "../cmake/precompiled.h"
