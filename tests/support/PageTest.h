// What a page's test needs: a main window, and a way to let the window's thread run.
#pragma once

#include <gtest/gtest.h>

#include "tests/support/FakeHost.h"
#include "tests/support/TestServices.h"
#include "tests/support/WaitFor.h"
#include "ui/kit/QtText.h"

namespace quorvi {

// What the status says of a phone that is not found.
inline const QString kConnectError = ToQString(u8"【X】连接错误");

class PageTest : public testing::Test {
  protected:
    FakeHost host_;
    TestServices services_;
};

}  // namespace quorvi
