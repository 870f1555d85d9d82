// Precompiled for the tests of the logic.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cmake/pch/logic.h"
