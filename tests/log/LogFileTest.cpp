#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <thread>
#include <vector>

#include "base/os/FileLock.h"
#include "base/os/SmallFile.h"
#include "log/LogFile.h"
#include "tests/support/SmallDisk.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

using std::filesystem::path;

class LogFileTest : public testing::Test {
  protected:
    [[nodiscard]] path File() const { return folder_.Path() / "state" / "quorvi.log"; }
    [[nodiscard]] path Former() const { return folder_.Path() / "state" / "quorvi.log.1"; }

    TemporaryFolder folder_;
};

TEST_F(LogFileTest, IsMadeWithItsFolderAndBelongsToItsUserAlone) {
    const LogFile log(File());
    EXPECT_EQ(log.Append("one\n"), std::error_code());
    EXPECT_EQ(log.Append("two\n"), std::error_code());
    EXPECT_EQ(log.Read(), "one\ntwo\n");
    EXPECT_EQ(log.Size(), 8U);
    struct stat known {};
    ASSERT_EQ(stat(File().c_str(), &known), 0);
    EXPECT_EQ(known.st_mode & 0777U, 0600U);
}

TEST_F(LogFileTest, NoLogReadsAsEmpty) {
    EXPECT_EQ(LogFile(File()).Read(), "");
    EXPECT_EQ(LogFile(File()).Size(), 0U);
    EXPECT_FALSE(std::filesystem::exists(File().parent_path()));
}

TEST_F(LogFileTest, AFullOneBecomesTheFormerOneAndTheOldestLinesGo) {
    const LogFile log(File(), 20);
    for (const char* line : {"line1\n", "line2\n", "line3\n", "line4\n"}) {
        EXPECT_EQ(log.Append(line), std::error_code());
    }
    // A half holds one line of six bytes.
    EXPECT_EQ(log.Read(), "line3\nline4\n");
    EXPECT_EQ(ReadSmallFile(Former()), "line3\n");
}

TEST_F(LogFileTest, NeverHasMoreThanItsLimit) {
    constexpr std::size_t kMost = 1000;
    const LogFile log(File(), kMost);
    for (std::size_t i = 0; i < 300; ++i) {
        EXPECT_EQ(log.Append(std::string(i % 90 + 1, 'a') + "\n"), std::error_code());
        EXPECT_LE(log.Size(), kMost);
    }
    EXPECT_GT(log.Size(), kMost / 2 - 100);
}

TEST_F(LogFileTest, LinesThatAHalfDoesNotHoldAreRefused) {
    const LogFile log(File(), 20);
    EXPECT_EQ(log.Append("one\n"), std::error_code());
    EXPECT_EQ(log.Append("eleven byt\n"), std::errc::file_too_large);
    EXPECT_EQ(log.Read(), "one\n");
}

TEST_F(LogFileTest, BeginsAnewWhereTheFormerOneCannotBeReplaced) {
    std::filesystem::create_directories(Former() / "in the way");
    const LogFile log(File(), 20);
    EXPECT_EQ(log.Append("line1\n"), std::error_code());
    EXPECT_EQ(log.Append("line2\n"), std::error_code());
    EXPECT_EQ(log.Read(), "line2\n");
}

TEST_F(LogFileTest, AFolderThatCannotBeWrittenIsAnError) {
    std::ofstream(folder_.Path() / "state") << "a file in the folder's place";
    EXPECT_TRUE(LogFile(File()).Append("one\n"));
    EXPECT_EQ(LogFile(File()).Read(), "");
}

TEST_F(LogFileTest, APipeInItsPlaceHoldsNobodyUp) {
    std::filesystem::create_directories(File().parent_path());
    ASSERT_EQ(mkfifo(File().c_str(), 0600), 0);
    EXPECT_TRUE(LogFile(File()).Append("one\n"));
    EXPECT_EQ(LogFile(File()).Read(), "");
}

TEST_F(LogFileTest, AFolderThatGoesIsMadeAgain) {
    const LogFile log(File());
    EXPECT_EQ(log.Append("one\n"), std::error_code());
    std::filesystem::remove_all(File().parent_path());
    EXPECT_EQ(log.Append("two\n"), std::error_code());
    EXPECT_EQ(log.Read(), "two\n");
}

TEST_F(LogFileTest, WritersBesideEachOtherLoseNoLineAndMixNone) {
    constexpr int kWriters = 4;
    constexpr int kLines = 200;
    std::vector<std::thread> writers;
    for (int writer = 0; writer < kWriters; ++writer) {
        writers.emplace_back([this, writer] {
            const LogFile log(File());  // a lock of its own, as in a process of its own
            for (int line = 0; line < kLines; ++line) {
                const std::string text = std::string(100, static_cast<char>('a' + writer)) + "\n";
                EXPECT_EQ(log.Append(text), std::error_code());
            }
        });
    }
    for (std::thread& writer : writers) {
        writer.join();
    }
    const std::string all = LogFile(File()).Read();
    ASSERT_EQ(all.size(), 101U * kWriters * kLines);
    for (std::size_t at = 0; at < all.size(); at += 101) {
        EXPECT_EQ(all.substr(at, 100), std::string(100, all[at]));
    }
}

TEST_F(LogFileTest, WritersBesideEachOtherKeepTheLimit) {
    constexpr std::size_t kMost = 2000;
    std::vector<std::thread> writers;
    for (int writer = 0; writer < 4; ++writer) {
        writers.emplace_back([this] {
            for (int line = 0; line < 200; ++line) {
                EXPECT_EQ(LogFile(File(), kMost).Append("a line of some bytes\n"),
                          std::error_code());
            }
        });
    }
    for (std::thread& writer : writers) {
        writer.join();
    }
    const std::string all = LogFile(File(), kMost).Read();
    EXPECT_LE(all.size(), kMost);
    EXPECT_GT(all.size(), kMost / 2 - 21);
    EXPECT_EQ(all.size() % 21, 0U);
}

TEST(LogFileOnASmallDisk, AFullDiskLeavesNoPartOfALine) {
    constexpr std::size_t kDisk = 64 * 1024;
    const SmallDisk disk(kDisk);
    ASSERT_TRUE(disk.IsThere());
    const LogFile log(disk.Path() / "quorvi.log");
    ASSERT_EQ(log.Append("first\n"), std::error_code());
    disk.Fill();
    EXPECT_EQ(log.Append(std::string(2 * kDisk, 'a') + "\n"), std::errc::no_space_on_device);
    EXPECT_EQ(log.Read(), "first\n");
    disk.Empty();
    EXPECT_EQ(log.Append("last\n"), std::error_code());
    EXPECT_EQ(log.Read(), "first\nlast\n");
}

}  // namespace
}  // namespace quorvi
