#include <gmock/gmock.h>

#include <fstream>

#include "base/Text.h"
#include "base/os/SmallFile.h"
#include "report/Report.h"
#include "tests/support/FakeAdb.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Unzip.h"

namespace quorvi {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr std::string_view kLine =
    "2026-11-22T09:30:12.345Z quorvi[4711] link.search result=found ms=812\n";

class ReportTest : public testing::Test {
  protected:
    [[nodiscard]] std::filesystem::path Log() const { return folder_.Path() / "quorvi.log"; }
    [[nodiscard]] std::filesystem::path Target() const { return folder_.Path() / "report.zip"; }
    void PutLog(std::string_view text) const { std::ofstream(Log()) << text; }
    [[nodiscard]] Report Collect() const {
        return CollectReport({.log = Log(),
                              .environment = [](const char*) { return std::nullopt; },
                              .link = adb_.Environment(),
                              .further = {{"screen.txt", u8"屏幕", Ansi(u8"缩放: 2\n")}}});
    }

    TemporaryFolder folder_;
    FakeAdb adb_{"echo 'Android Debug Bridge version 1.0.41'; echo 'Version 28.0.2-debian'"};
};

TEST_F(ReportTest, IsReadBackAsItWasShown) {
    PutLog(kLine);
    const Report report = Collect();
    ASSERT_TRUE(SaveReport(report, Target(), ExistingFile::refuses).saved);
    const auto files = Unzip(Target());
    ASSERT_EQ(files.size(), 4U);
    EXPECT_THAT(files.at("versions.txt"), StartsWith("奎维掌上工坊: "));
    EXPECT_THAT(files.at("adb.txt"), HasSubstr("adb: 1.0.41\nadb 的发行版本: 28.0.2-debian\n"));
    EXPECT_EQ(files.at("screen.txt"), "缩放: 2\n");
    EXPECT_EQ(files.at("quorvi.log"), kLine);
    // The preview tells each file, and all of these texts.
    const std::string preview = ToUtf8(ReportPreview(report));
    for (const auto& [name, text] : files) {
        EXPECT_THAT(preview, HasSubstr(name + ": "));
        EXPECT_THAT(preview, HasSubstr(text));
    }
}

TEST_F(ReportTest, ListNamesEachFileItsContentAndItsSize) {
    PutLog(kLine);
    const std::string list = ToUtf8(ReportList(Collect()));
    EXPECT_THAT(list, HasSubstr("\nadb.txt: adb 和手机的状态，序列号只留头尾，"));
    EXPECT_THAT(list, HasSubstr("\nscreen.txt: 屏幕，10 字节\n"));
    EXPECT_THAT(list,
                HasSubstr("quorvi.log: 运行日志，只有状态、结果和用时，没有姓名、号码和短信内容，"
                          "70 字节\n"));
}

TEST_F(ReportTest, OfTheLogOnlyItsOwnLinesAreTaken) {
    PutLog("a part of a line\n" + std::string(kLine) + "林远舟 13861234567\n" + std::string(kLine) +
           "2026-11-22T09:30:12.345Z quorvi[4711] cut");
    EXPECT_EQ(Collect().files.back().text, std::string(kLine) + std::string(kLine));
}

TEST_F(ReportTest, PreviewShowsTheLastTwentyLinesOfTheLog) {
    std::string log;
    for (int i = 0; i < 30; ++i) {
        log += "2026-11-22T09:30:12.345Z quorvi[4711] line number=" + std::to_string(i) + "\n";
    }
    PutLog(log);
    const std::string preview = ReportPreview(Collect());
    EXPECT_THAT(preview, Not(HasSubstr("number=9\n")));
    EXPECT_THAT(preview, HasSubstr("number=10\n"));
    EXPECT_THAT(preview, HasSubstr("number=29\n"));
}

TEST_F(ReportTest, WithoutALogItHasAnEmptyOne) {
    const Report report = Collect();
    EXPECT_EQ(report.files.back().name, kReportLog);
    EXPECT_EQ(report.files.back().text, "");
    ASSERT_TRUE(SaveReport(report, Target(), ExistingFile::refuses).saved);
    EXPECT_EQ(Unzip(Target()).at("quorvi.log"), "");
}

TEST_F(ReportTest, AFileThatStandsThereStays) {
    std::ofstream(Target()) << "somebody's";
    const ReportSaved saved = SaveReport(Collect(), Target(), ExistingFile::refuses);
    EXPECT_FALSE(saved.saved);
    EXPECT_EQ(ToUtf8(saved.why), "已经有这个名字的文件或文件夹，请换一个名字");
    EXPECT_EQ(ReadSmallFile(Target()), "somebody's");
}

TEST_F(ReportTest, AFileThatItsUserGaveUpIsReplaced) {
    std::ofstream(Target()) << "somebody's";
    EXPECT_TRUE(SaveReport(Collect(), Target(), ExistingFile::yields).saved);
    EXPECT_EQ(Unzip(Target()).size(), 4U);
}

TEST_F(ReportTest, AFolderThatIsNotThereIsTold) {
    const ReportSaved saved =
        SaveReport(Collect(), folder_.Path() / "none" / "report.zip", ExistingFile::refuses);
    EXPECT_FALSE(saved.saved);
    EXPECT_EQ(ToUtf8(saved.why), "没有这个文件或文件夹");
}

}  // namespace
}  // namespace quorvi
