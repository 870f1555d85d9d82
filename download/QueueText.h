// What the queue tells its user, in ANSI.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "download/TaskStore.h"
#include "download/Transfer.h"
#include "link/AdbOutput.h"

namespace quorvi {

// Of a row: how far its download is; "37 %".
[[nodiscard]] std::string ProgressCell(std::int32_t percent);
// Of a row whose download has just started: there is nothing to tell yet.
inline constexpr std::string_view kNoProgressCell = "N/A";

// For the status line while a download goes on; "下载速度 1.20 MB/秒".
[[nodiscard]] std::string SpeedStatus(std::int32_t speed);

// For the status line: why a download ended without its file, and what to do; the title is the
// task's.
[[nodiscard]] std::string FaultStatus(DownloadFault fault, std::string_view title);
// What came of an installation, in the same way; `phoneChosen`: there was a phone to install on.
[[nodiscard]] std::string InstallStatus(InstallResult result, bool phoneChosen,
                                        std::string_view title);
// Why a task could not be noted; empty where it was.
[[nodiscard]] std::string StoreStatus(StoreResult result);
// Where nothing is checked that could be deleted.
[[nodiscard]] std::string NothingCheckedStatus();

}  // namespace quorvi
