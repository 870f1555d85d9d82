#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "base/Text.h"
#include "download/QueueText.h"

namespace quorvi {
namespace {

TEST(QueueText, ARowShowsItsPercentage) {
    EXPECT_EQ(ProgressCell(0), "0 %");
    EXPECT_EQ(ProgressCell(37), "37 %");
    EXPECT_EQ(ProgressCell(100), "100 %");
    EXPECT_EQ(kNoProgressCell, "N/A");
}

TEST(QueueText, TheStatusShowsTheSpeed) {
    EXPECT_EQ(SpeedStatus(532), Ansi(u8"下载速度 532 字节/秒"));
    EXPECT_EQ(SpeedStatus(1'331'200), Ansi(u8"下载速度 1.26 MB/秒"));
}

TEST(QueueText, EachFaultIsToldApartAndNamesItsTask) {
    std::set<std::string> texts;
    for (const auto fault : {DownloadFault::none, DownloadFault::noConnection,
                             DownloadFault::diskFull, DownloadFault::cannotWrite}) {
        texts.insert(FaultStatus(fault, Ansi(u8"听书")));
    }
    EXPECT_EQ(texts.size(), 4U);
    EXPECT_EQ(FaultStatus(DownloadFault::diskFull, Ansi(u8"听书")),
              Ansi(u8"【错误】下载失败：听书，磁盘空间不足，请清理磁盘后继续下载"));
}

TEST(QueueText, EachEndOfAnInstallationIsToldApart) {
    std::set<std::string> texts{InstallStatus(InstallResult::failed, false, "a")};
    for (const auto result :
         {InstallResult::success, InstallResult::noProcess, InstallResult::otherSignature,
          InstallResult::phoneFull, InstallResult::failed}) {
        texts.insert(InstallStatus(result, true, "a"));
    }
    EXPECT_EQ(texts.size(), 6U);
    EXPECT_EQ(InstallStatus(InstallResult::success, true, Ansi(u8"听书")),
              Ansi(u8"安装成功：听书"));
    // What adb itself has told counts for more than that no phone was chosen.
    EXPECT_EQ(InstallStatus(InstallResult::noProcess, false, "a"),
              InstallStatus(InstallResult::noProcess, true, "a"));
}

TEST(QueueText, ATableThatTookATaskIsNoNews) {
    EXPECT_EQ(StoreStatus(StoreResult::done), "");
    std::set<std::string> texts;
    for (const auto result : {StoreResult::refused, StoreResult::notOpen, StoreResult::diskFull,
                              StoreResult::cannotWrite, StoreResult::busy, StoreResult::failed}) {
        EXPECT_THAT(StoreStatus(result), testing::StartsWith(Ansi(u8"【错误】")));
        texts.insert(StoreStatus(result));
    }
    EXPECT_EQ(texts.size(), 6U);
    EXPECT_EQ(NothingCheckedStatus(), Ansi(u8"【提示】勾选复选框后才可删除"));
}

}  // namespace
}  // namespace quorvi
