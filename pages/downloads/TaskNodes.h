// The nodes of the download page's tree, and which tasks the list shows for each.
#pragma once

#include <array>
#include <string_view>

#include "download/TaskStore.h"

namespace quorvi {

struct TaskNode {
    std::u8string_view caption;  // with the blanks that it has always ended in
    std::string_view icon;
    TaskFilter filter;
    bool child = false;  // of the last node above it that is none
};

// From the top, all of them open.
inline constexpr std::array<TaskNode, 5> kTaskNodes{{
    {u8"未完成的任务 ", "tasks", TaskFilter::unfinished},
    {u8"正在下载   ", "play", TaskFilter::downloading, true},
    {u8"安装转换   ", "app-manager", TaskFilter::installing, true},
    {u8"已完成的任务 ", "success", TaskFilter::done},
    {u8"已经完成   ", "select-all", TaskFilter::done, true},
}};

// The filter of the node that stands at a position among those that can be seen; that of unfinished
// tasks for any other position. The position alone counts. Kept on purpose: where the user has
// closed a node, those below it move up and take the filters of others
// (DownloadPage.BelowAClosedNodeThePositionCounts).
[[nodiscard]] constexpr TaskFilter FilterAt(int position) {
    return position >= 0 && position < static_cast<int>(kTaskNodes.size())
               ? kTaskNodes[static_cast<std::size_t>(position)].filter
               : TaskFilter::unfinished;
}

}  // namespace quorvi
