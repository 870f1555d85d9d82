#include <gtest/gtest.h>

#include "phone/Options.h"

namespace quorvi::phone {
namespace {

TEST(ParseCommandLine, WithoutWordsIsOnePhone) {
    const CommandLine line = ParseCommandLine({});
    ASSERT_EQ(line.server.phones.size(), 1u);
    EXPECT_EQ(line.server.phones[0].profile.fullModel, "Aurora S2");
    EXPECT_FALSE(line.server.phones[0].adbPort);
    EXPECT_FALSE(line.server.controlPort);
}

TEST(ParseCommandLine, OptionsAreForThePhoneInFrontOfThem) {
    const CommandLine line = ParseCommandLine(
        {"--phone", "--model", "A1", "--phone", "--adb-port", "6001", "--fault", "870101:cut:9"});
    ASSERT_EQ(line.server.phones.size(), 2u);
    EXPECT_EQ(line.server.phones[0].profile.model, "A1");
    EXPECT_EQ(line.server.phones[1].profile.model, "M52");
    EXPECT_EQ(line.server.phones[1].adbPort, 6001);
    EXPECT_EQ(line.server.phones[1].commands, std::vector<std::string>{"fault 870101 cut 9"});
}

TEST(ParseCommandLine, AnOptionThatIsForNoPhoneMakesNone) {
    const CommandLine line = ParseCommandLine({"--control", "0", "--phone", "--model", "A1"});
    ASSERT_EQ(line.server.phones.size(), 1u);
    EXPECT_EQ(line.server.phones[0].profile.model, "A1");
}

TEST(ParseCommandLine, CountsPhones) {
    EXPECT_EQ(ParseCommandLine({"--phones", "3"}).server.phones.size(), 3u);
    EXPECT_EQ(ParseCommandLine({"--phones", "0"}).error, "--phones cannot be 0");
    EXPECT_EQ(ParseCommandLine({"--phones", "17"}).error, "--phones cannot be 17");
}

TEST(ParseCommandLine, ReadsAScreen) {
    const CommandLine line = ParseCommandLine({"--screen", "320x480x16"});
    EXPECT_EQ(line.server.phones[0].profile.screenWidth, 320);
    EXPECT_EQ(line.server.phones[0].profile.screenBits, 16);
    for (const char* wrong : {"0x4", "320", "320x480x0", "320x480x65", "99999x1", "320x480x16x1"}) {
        EXPECT_FALSE(ParseCommandLine({"--screen", wrong}).error.empty()) << wrong;
    }
}

TEST(ParseCommandLine, TurnsTheScreensFormIntoACommand) {
    const CommandLine line = ParseCommandLine({"--screen-form", "version:2:fault:cut:100"});
    EXPECT_EQ(line.server.phones[0].commands,
              std::vector<std::string>{"screen version 2 fault cut 100"});
}

TEST(ParseCommandLine, SaysWhatIsWrong) {
    EXPECT_EQ(ParseCommandLine({"--dance"}).error, "unknown option --dance");
    EXPECT_EQ(ParseCommandLine({"--model"}).error, "--model needs TEXT");
    EXPECT_EQ(ParseCommandLine({"--control", "x"}).error, "--control cannot be x");
    EXPECT_EQ(ParseCommandLine({"--control", "70000"}).error, "--control cannot be 70000");
}

TEST(ParseCommandLine, AllAmountsAreOneCommand) {
    const CommandLine line =
        ParseCommandLine({"--processes", "5", "--icon-bytes", "9", "--caches", "2"});
    EXPECT_EQ(line.server.phones[0].commands,
              std::vector<std::string>{"data processes 5 icon-bytes 9 caches 2"});
}

TEST(HelpText, NamesEveryFaultAndCommand) {
    const std::string help = HelpText();
    for (const char* word : {"--agent-port", "trickle [N", "length L", "deviations", "unplug"}) {
        EXPECT_NE(help.find(word), std::string::npos) << word;
    }
}

}  // namespace
}  // namespace quorvi::phone
