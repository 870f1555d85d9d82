// What a page's test needs: a main window, and a way to let the window's thread run.
#pragma once

#include <gtest/gtest.h>

#include "tests/pages/FakeHost.h"
#include "tests/ui/WaitFor.h"

namespace quorvi {

class PageTest : public testing::Test {
  protected:
    FakeHost host_;
};

}  // namespace quorvi
