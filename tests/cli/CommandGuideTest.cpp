// The manual page and the completion that are made from the table of commands.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "cli/CommandTable.h"
#include "cli/tool/CommandGuide.h"
#include "tests/support/Process.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi::cli {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr Command kCommands[] = {
    {.words = "plain", .summary = u8"平常"},
    {.words = "box", .synopsis = "[FILE]", .summary = u8"盒子", .most = 1},
    {.words = "box show", .synopsis = "ID", .summary = u8".一个\\盒子", .fewest = 1, .most = 1},
    {.words = "box send", .synopsis = "--to T", .options = {"--to", "--text"}, .flags = {"--loud"}},
};

// What bash offers behind these words, the last of which is being typed.
std::vector<std::string> Completed(const std::vector<std::string>& words) {
    const TemporaryFolder folder;
    const auto script = folder.Path() / "completion";
    std::ofstream(script) << BashCompletion(kCommands);
    std::ofstream(folder.Path() / "a file") << "";
    std::string line = "cd '" + folder.Path().string() + "' && source '" + script.string() +
                       "' && COMP_WORDS=(quorvictl";
    for (const std::string& word : words) {
        line += " '" + word + "'";
    }
    line += ") COMP_CWORD=" + std::to_string(words.size()) +
            " && _quorvictl && printf '%s\\n' \"${COMPREPLY[@]}\"";
    std::istringstream output(
        e2e::RunProgram({"bash", "-c", line}, {}, std::chrono::minutes(1)).output);
    std::vector<std::string> offered;
    for (std::string each; std::getline(output, each);) {
        offered.push_back(each);
    }
    return offered;
}

TEST(CommandGuide, TheManualHasEachCommandWithItsOperandsAndSummary) {
    const std::string page = ManualPage(kCommands, "1.0");
    EXPECT_THAT(page, HasSubstr(".TP\n.B plain\n平常\n"));
    EXPECT_THAT(page, HasSubstr(".TP\n.B box send \\-\\-to T\n"));
}

TEST(CommandGuide, TheManualTakesNoTextForAWordOfItsFormatter) {
    EXPECT_THAT(ManualPage(kCommands, "1.0"), HasSubstr("\n\\&.一个\\e盒子\n"));
}

TEST(CommandGuide, TheManualOfTheRealTableNamesEveryCommand) {
    const std::string page = ManualPage(AllCommands(), "1.0");
    for (const Command& command : AllCommands()) {
        EXPECT_THAT(page, HasSubstr(".B " + std::string(command.words))) << command.words;
    }
}

TEST(CommandGuide, TheFirstWordsOfCommandsAreCompletedOnceEach) {
    EXPECT_THAT(Completed({""}), ElementsAre("plain", "box", "--help", "--version"));
    EXPECT_THAT(Completed({"pl"}), ElementsAre("plain"));
}

TEST(CommandGuide, TheSecondWordOfACommandIsCompleted) {
    EXPECT_THAT(Completed({"box", "s"}), ElementsAre("show", "send"));
}

TEST(CommandGuide, TheOptionsAreThoseOfTheCommand) {
    EXPECT_THAT(Completed({"box", "send", "--"}),
                ElementsAre("--json", "--to", "--text", "--loud"));
    EXPECT_THAT(Completed({"box", "show", "--"}), ElementsAre("--json"));
    EXPECT_THAT(Completed({"plain", "-"}), ElementsAre("--json"));
}

TEST(CommandGuide, WhatIsNoOptionIsTheNameOfAFile) {
    EXPECT_THAT(Completed({"box", "show", "a"}), ElementsAre("a file"));
    EXPECT_THAT(Completed({"box", "a"}), ElementsAre("a file"));
}

}  // namespace
}  // namespace quorvi::cli
