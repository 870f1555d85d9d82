#include <gtest/gtest.h>

#include "base/Text.h"
#include "pages/downloads/EndedTasks.h"

namespace quorvi {
namespace {

using Kind = QueueEvent::Kind;

QueueEvent Installed(InstallResult result = InstallResult::success) {
    return {.kind = Kind::installEnded, .install = result};
}

class EndedTasksTest : public testing::Test {
  protected:
    std::string Notice(bool tasksLeft = false) {
        return ToUtf8(ended_.TakeNotice(tasksLeft).value_or("none"));
    }
    EndedTasks ended_;
};

TEST_F(EndedTasksTest, WithNothingEndedThereIsNoNotice) {
    ended_.Hear({.kind = Kind::started});
    ended_.Hear({.kind = Kind::complete});
    ended_.Hear({.kind = Kind::stopped});
    ended_.Hear({.kind = Kind::reload});
    EXPECT_EQ(Notice(), "none");
}

TEST_F(EndedTasksTest, WhileTasksAreLeftThereIsNoNotice) {
    ended_.Hear(Installed());
    EXPECT_EQ(Notice(true), "none");
    EXPECT_EQ(Notice(), "1 个应用已经安装到手机");
}

TEST_F(EndedTasksTest, ANoticeComesOnce) {
    ended_.Hear(Installed());
    EXPECT_NE(Notice(), "none");
    EXPECT_EQ(Notice(), "none");
}

TEST_F(EndedTasksTest, WhatFailedIsCountedApart) {
    ended_.Hear({.kind = Kind::failed});
    ended_.Hear(Installed(InstallResult::phoneFull));
    EXPECT_EQ(Notice(), "2 个任务没有成功，请打开“当前任务”查看原因");
    ended_.Hear(Installed());
    ended_.Hear(Installed(InstallResult::failed));
    EXPECT_EQ(Notice(), "1 个应用已经安装到手机，1 个任务没有成功，请打开“当前任务”查看原因");
}

}  // namespace
}  // namespace quorvi
