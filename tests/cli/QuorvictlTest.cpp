// Runs the built program with no phone about.
#include <gtest/gtest.h>

#include "tests/support/BuildPlaces.h"
#include "tests/support/RunProgram.h"

namespace quorvi::cli {
namespace {

TEST(Program, WrongUsageIsStatusOneAndSaidOnStandardErrorAlone) {
    for (const char* arguments : {"", "bogus", "info extra", "info --bogus"}) {
        EXPECT_EQ(Out(arguments).status, 1) << arguments;
        EXPECT_EQ(Out(arguments).output, "") << arguments;
        EXPECT_NE(Err(arguments).output, "") << arguments;
    }
}

TEST(Program, HelpIsStatusZeroOnStandardOutput) {
    const Ended ended = Out("--help");
    EXPECT_EQ(ended.status, 0);
    EXPECT_NE(ended.output.find("quorvictl"), std::string::npos);
    EXPECT_NE(ended.output.find("info"), std::string::npos);
}

TEST(Program, HelpSaysThatAMemberLeftOutOfAFormDeletesItsField) {
    const Ended ended = RunLine(QUORVI_BIN_DIR "/quorvictl --help | grep 'contacts update'");
    EXPECT_NE(ended.output.find("没有写出的成员，手机上的那一栏会被删除"), std::string::npos);
}

TEST(Program, LinksNothingOfTheWindow) {
    const Ended ended = RunLine("ldd " QUORVI_BIN_DIR "/quorvictl");
    EXPECT_EQ(ended.status, 0);
    EXPECT_NE(ended.output.find("libjsoncpp"), std::string::npos);
    EXPECT_EQ(ended.output.find("libQt"), std::string::npos);
}

}  // namespace
}  // namespace quorvi::cli
