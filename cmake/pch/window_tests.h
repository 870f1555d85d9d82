// Precompiled for the tests of what shows itself in a window.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cmake/pch/window.h"
