// Precompiled for the tests with Qt.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cmake/pch/window.h"
