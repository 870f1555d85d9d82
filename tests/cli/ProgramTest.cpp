// Runs the built program with no phone about.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <string>

#include "tests/support/PrivateNetwork.h"

namespace {

const auto* const kNetwork = testing::AddGlobalTestEnvironment(new quorvi::PrivateNetwork);

struct Ended {
    int status = -1;
    std::string output;
};

Ended RunLine(const std::string& line) {
    Ended ended;
    std::FILE* pipe = popen(line.c_str(), "r");
    if (pipe == nullptr) {
        return ended;
    }
    char piece[256];
    for (std::size_t count; (count = std::fread(piece, 1, sizeof piece, pipe)) > 0;) {
        ended.output.append(piece, count);
    }
    const int status = pclose(pipe);
    ended.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return ended;
}

// Each reads one of the program's two streams.
Ended Out(const std::string& arguments) {
    return RunLine(QUORVI_BIN_DIR "/quorvictl " + arguments + " 2>/dev/null");
}
Ended Err(const std::string& arguments) {
    return RunLine(QUORVI_BIN_DIR "/quorvictl " + arguments + " 2>&1 >/dev/null");
}

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

TEST(Program, WithoutALinkItSaysSoWithStatusTwo) {
    const Ended out = Out("info --json");
    EXPECT_EQ(out.status, 2);
    EXPECT_EQ(out.output, "");
    EXPECT_EQ(Err("info --json").output, "quorvictl: 【X】连接错误\n");
}

TEST(Program, LinksNothingOfTheWindow) {
    const Ended ended = RunLine("ldd " QUORVI_BIN_DIR "/quorvictl");
    EXPECT_EQ(ended.status, 0);
    EXPECT_NE(ended.output.find("libjsoncpp"), std::string::npos);
    EXPECT_EQ(ended.output.find("libQt"), std::string::npos);
}

}  // namespace
