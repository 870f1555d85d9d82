#include <gtest/gtest.h>

#include <algorithm>

#include "cli/CommandLine.h"
#include "cli/CommandTable.h"

namespace quorvi::cli {
namespace {

constexpr Command kCommands[] = {
    {.words = "plain"},
    {.words = "box show", .synopsis = "ID", .fewest = 1, .most = 1},
    {.words = "box send",
     .most = kAnyNumber,
     .options = {"--to", "--text"},
     .flags = {"--loud", "--twice"}},
};

auto Read(const std::vector<std::string>& words) {
    return ReadCommandLine(words, kCommands);
}

TEST(CommandLine, NoWordsAtAllIsWrongUsage) {
    EXPECT_TRUE(std::holds_alternative<UsageError>(Read({})));
}

TEST(CommandLine, AnUnknownCommandIsWrongUsage) {
    EXPECT_TRUE(std::holds_alternative<UsageError>(Read({"bogus"})));
    EXPECT_TRUE(std::holds_alternative<UsageError>(Read({"box"})));
    EXPECT_TRUE(std::holds_alternative<UsageError>(Read({"box", "bogus"})));
}

TEST(CommandLine, ACommandMayHaveTwoWords) {
    const auto call = std::get<Call>(Read({"box", "show", "7"}));
    EXPECT_EQ(call.command, &kCommands[1]);
    EXPECT_EQ(call.arguments.operands, std::vector<std::string>{"7"});
    EXPECT_FALSE(call.json);
}

TEST(CommandLine, JsonGoesWithEveryCommandAtAnyPlace) {
    EXPECT_TRUE(std::get<Call>(Read({"plain", "--json"})).json);
    EXPECT_TRUE(std::get<Call>(Read({"box", "show", "--json", "7"})).json);
}

TEST(CommandLine, TooFewOrTooManyOperandsAreWrongUsage) {
    EXPECT_TRUE(std::holds_alternative<UsageError>(Read({"box", "show"})));
    EXPECT_TRUE(std::holds_alternative<UsageError>(Read({"box", "show", "7", "8"})));
    EXPECT_TRUE(std::holds_alternative<UsageError>(Read({"plain", "x"})));
}

TEST(CommandLine, AnOptionTakesItsValueBehindABlankOrAnEqualsSign) {
    const auto call = std::get<Call>(Read({"box", "send", "--to", "1,2", "--text=a=b"}));
    EXPECT_EQ(call.arguments.Option("--to"), "1,2");
    EXPECT_EQ(call.arguments.Option("--text"), "a=b");
    EXPECT_EQ(call.arguments.Option("--serial"), std::nullopt);
}

TEST(CommandLine, AnOptionOfAnotherCommandOrWithoutAValueIsWrongUsage) {
    EXPECT_TRUE(std::holds_alternative<UsageError>(Read({"plain", "--to", "1"})));
    EXPECT_TRUE(std::holds_alternative<UsageError>(Read({"box", "send", "--to"})));
}

TEST(CommandLine, AFlagTakesNoValueAndStandsAnywhere) {
    const auto call = std::get<Call>(Read({"box", "send", "--loud", "x", "--to", "1"}));
    EXPECT_TRUE(call.arguments.Has("--loud"));
    EXPECT_FALSE(call.arguments.Has("--twice"));
    EXPECT_EQ(call.arguments.operands, std::vector<std::string>{"x"});
    EXPECT_EQ(call.arguments.Option("--to"), "1");
    EXPECT_TRUE(std::holds_alternative<UsageError>(Read({"box", "send", "--loud=1"})));
    EXPECT_TRUE(std::holds_alternative<UsageError>(Read({"plain", "--loud"})));
}

TEST(CommandLine, ABlankDashIsAnOperandAndTwoDashesEndTheOptions) {
    const auto call = std::get<Call>(Read({"box", "send", "-", "--", "--to"}));
    EXPECT_EQ(call.arguments.operands, (std::vector<std::string>{"-", "--to"}));
}

TEST(CommandLine, HelpAndVersionAreAskedByOption) {
    EXPECT_TRUE(std::holds_alternative<HelpWanted>(Read({"--help"})));
    EXPECT_TRUE(std::holds_alternative<HelpWanted>(Read({"box", "show", "--help"})));
    EXPECT_TRUE(std::holds_alternative<VersionWanted>(Read({"--version"})));
}

TEST(CommandLine, AnIdIsDecimalDigitsWithin32Bits) {
    EXPECT_EQ(ReadId("0"), 0u);
    EXPECT_EQ(ReadId("4294967295"), 4294967295u);
    EXPECT_EQ(ReadId("4294967296"), std::nullopt);
    EXPECT_EQ(ReadId("-1"), std::nullopt);
    EXPECT_EQ(ReadId("7x"), std::nullopt);
    EXPECT_EQ(ReadId(""), std::nullopt);
}

TEST(CommandTable, EveryRowHasItsFunctionAndAWordOfItsOwn) {
    std::vector<std::string_view> seen;
    for (const Command& command : AllCommands()) {
        EXPECT_NE(command.run, nullptr) << command.words;
        EXPECT_FALSE(command.summary.empty()) << command.words;
        EXPECT_EQ(std::count(seen.begin(), seen.end(), command.words), 0) << command.words;
        EXPECT_NE(HelpText().find(command.words), std::string::npos) << command.words;
        seen.push_back(command.words);
    }
}

TEST(CommandTable, ALongCallHasItsSummaryOnALineOfItsOwn) {
    const std::string help = HelpText();
    const std::size_t call = help.find("  cleaner clean ");
    ASSERT_NE(call, std::string::npos);
    const std::size_t end = help.find('\n', call);
    EXPECT_EQ(help.substr(end - 12, 12), "[PACKAGE...]");
    EXPECT_EQ(help.substr(end + 1, 4), "    ");
}

}  // namespace
}  // namespace quorvi::cli
