#include <gtest/gtest.h>

#include "pages/downloads/TaskNodes.h"

namespace quorvi {
namespace {

TEST(TaskNodes, EachPositionHasItsFilter) {
    EXPECT_EQ(FilterAt(0), TaskFilter::unfinished);
    EXPECT_EQ(FilterAt(1), TaskFilter::downloading);
    EXPECT_EQ(FilterAt(2), TaskFilter::installing);
    EXPECT_EQ(FilterAt(3), TaskFilter::done);
    EXPECT_EQ(FilterAt(4), TaskFilter::done);
}

TEST(TaskNodes, AnyOtherPositionShowsTheUnfinishedTasks) {
    EXPECT_EQ(FilterAt(-1), TaskFilter::unfinished);
    EXPECT_EQ(FilterAt(5), TaskFilter::unfinished);
}

TEST(TaskNodes, TheCaptionsEndInTheirBlanks) {
    EXPECT_EQ(kTaskNodes[0].caption, u8"未完成的任务 ");
    EXPECT_EQ(kTaskNodes[1].caption, u8"正在下载   ");
    EXPECT_EQ(kTaskNodes[2].caption, u8"安装转换   ");
    EXPECT_EQ(kTaskNodes[3].caption, u8"已完成的任务 ");
    EXPECT_EQ(kTaskNodes[4].caption, u8"已经完成   ");
}

}  // namespace
}  // namespace quorvi
