// The program's log, and the report of it. No adb server runs here.
#include <gmock/gmock.h>

#include <fstream>

#include "base/Json.h"
#include "base/Version.h"
#include "base/os/SmallFile.h"
#include "tests/support/RunProgram.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/ToldAdb.h"
#include "tests/support/Unzip.h"

namespace quorvi::cli {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::StartsWith;

class ReportCommand : public testing::Test {
  protected:
    ReportCommand() {
        adb_.Print("version", "Android Debug Bridge version 1.0.41\nVersion 28.0.2-debian\n");
    }
    [[nodiscard]] std::string Target() const { return (folder_.Path() / "report.zip").native(); }

    TemporaryFolder folder_;
    ToldAdb adb_;
};

TEST_F(ReportCommand, ListsWhatIsInItAndSavesIt) {
    ASSERT_EQ(Out("number 10086").status, 0);
    const Ended ended = Out("report " + Target());
    EXPECT_EQ(ended.status, 0);
    EXPECT_THAT(ended.output, StartsWith("versions.txt: 软件和系统的版本，"));
    EXPECT_THAT(ended.output, HasSubstr("\nadb.txt: adb 和手机的状态，序列号只留头尾，"));
    EXPECT_THAT(ended.output, HasSubstr("\nquorvi.log: 运行日志，"));
    EXPECT_TRUE(ended.output.ends_with("\n已保存到 " + Target() + "\n")) << ended.output;

    auto files = Unzip(Target());
    EXPECT_EQ(files.size(), 3U);
    EXPECT_THAT(files["versions.txt"], HasSubstr("奎维掌上工坊: " + std::string(ProductVersion())));
    EXPECT_THAT(files["adb.txt"], HasSubstr("adb: 1.0.41\nadb 的发行版本: 28.0.2-debian\n"));
    // The command before, from its start to its end, and the start of this one.
    EXPECT_THAT(files["quorvi.log"], ContainsRegex("quorvictl.[0-9]+. start version=[0-9.]+\n"));
    EXPECT_THAT(files["quorvi.log"], ContainsRegex("quorvictl.[0-9]+. end status=0 ms=[0-9]+\n"));
}

TEST_F(ReportCommand, AFileThatStandsThereIsNotReplaced) {
    std::ofstream(Target()) << "somebody's";
    EXPECT_EQ(Out("report " + Target()).status, 1);
    EXPECT_THAT(Err("report " + Target()).output,
                HasSubstr("没有保存，已经有这个名字的文件或文件夹，请换一个名字"));
    EXPECT_EQ(ReadSmallFile(Target()), "somebody's");
}

TEST_F(ReportCommand, AsJsonItTellsItsFiles) {
    const auto document = ParseJson(Out("report --json " + Target()).output);
    ASSERT_TRUE(document);
    EXPECT_TRUE((*document)["saved"].asBool());
    ASSERT_EQ((*document)["files"].size(), 3U);
    EXPECT_EQ((*document)["files"][2]["name"].asString(), "quorvi.log");
    EXPECT_EQ((*document)["files"][2]["bytes"].asUInt(), Unzip(Target())["quorvi.log"].size());
}

TEST_F(ReportCommand, ALogThatCannotBeWrittenIsNoHindrance) {
    std::ofstream(folder_.Path() / "state") << "a file in the folder's place";
    const EnvironmentVariable state("XDG_STATE_HOME", (folder_.Path() / "state").native());
    EXPECT_EQ(Out("report " + Target()).status, 0);
    EXPECT_EQ(Unzip(Target())["quorvi.log"], "");
    EXPECT_EQ(Err("number 10086").output, "");
}

}  // namespace
}  // namespace quorvi::cli
