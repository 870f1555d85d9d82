#include <gtest/gtest.h>

#include <fstream>
#include <thread>

#include "base/SettingsFile.h"
#include "base/Text.h"
#include "base/os/SmallFile.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

class Settings : public testing::Test {
  protected:
    TemporaryFolder folder_;
    std::filesystem::path file_ = folder_.Path() / "config" / "settings";
};

TEST_F(Settings, NumbersAndAnsiTextComeBackFromTheFile) {
    {
        SettingsFile store(file_);
        EXPECT_TRUE(store.WriteNumber(kSettingsKey, "exit_mode", 3));
        EXPECT_TRUE(store.WriteNumber(kSettingsKey, "cityIndex", 0xFFFFFFFFU));
        EXPECT_TRUE(store.WriteText(kSettingsKey, "city", Ansi(u8"北京, 海淀")));
    }
    const SettingsFile store(file_);
    EXPECT_EQ(store.ReadNumber(kSettingsKey, "exit_mode"), 3U);
    EXPECT_EQ(store.ReadNumber(kSettingsKey, "cityIndex"), 0xFFFFFFFFU);
    EXPECT_EQ(store.ReadText(kSettingsKey, "city"), Ansi(u8"北京, 海淀"));
}

TEST_F(Settings, AValueThatIsNotThereIsNothing) {
    const SettingsFile store(file_);
    EXPECT_EQ(store.ReadNumber(kSettingsKey, "exit_mode"), std::nullopt);
    EXPECT_EQ(store.ReadText(kSettingsKey, "city"), std::nullopt);
}

TEST_F(Settings, KeysAreFoundInAnyMixOfCase) {
    SettingsFile store(file_);
    store.WriteNumber("SOFTWARE\\Quorvi", "exit_mode", 3);
    EXPECT_EQ(store.ReadNumber("Software\\Quorvi", "exit_mode"), 3U);
    store.WriteNumber("Software\\Quorvi", "Exit_Mode", 0);
    EXPECT_EQ(store.ReadNumber("SOFTWARE\\Quorvi", "exit_mode"), 0U);
}

TEST_F(Settings, ATextThatIsNoNumberIsNoNumber) {
    SettingsFile store(file_);
    for (const char* const text : {"Aurora", "", "-1", "4294967296", "3x"}) {
        store.WriteText(kSettingsKey, "city", text);
        EXPECT_EQ(store.ReadNumber(kSettingsKey, "city"), std::nullopt) << text;
    }
}

TEST_F(Settings, DeletingWhatIsNotThereIsNoError) {
    SettingsFile store(file_);
    store.Delete(kSettingsKey, "exit_mode");
    EXPECT_FALSE(std::filesystem::exists(file_));
    store.WriteNumber(kSettingsKey, "exit_mode", 3);
    store.Delete(kSettingsKey, "exit_mode");
    EXPECT_EQ(store.ReadNumber(kSettingsKey, "exit_mode"), std::nullopt);
}

TEST_F(Settings, TheFileCarriesTheKeysAndNamesAsTheyAre) {
    SettingsFile store(file_);
    store.WriteNumber(kSettingsKey, "exit_mode", 3);
    EXPECT_EQ(ReadSmallFile(file_), "[Software]\nQuorvi\\exit_mode=3\n");
}

TEST_F(Settings, OthersMayNotReadTheFile) {
    SettingsFile store(file_);
    store.WriteNumber(kSettingsKey, "exit_mode", 3);
    EXPECT_EQ(std::filesystem::status(file_).permissions(), std::filesystem::perms{0600});
}

TEST_F(Settings, WhatAnotherProgramWroteMeanwhileIsReadAndKept) {
    SettingsFile window(file_);
    SettingsFile commandLine(file_);
    window.WriteNumber(kSettingsKey, "exit_mode", 3);
    commandLine.WriteText(kSettingsKey, "DownloadPath", "/home/u");
    EXPECT_EQ(window.ReadText(kSettingsKey, "DownloadPath"), "/home/u");
    window.WriteNumber(kSettingsKey, "screen_shot", 1);
    EXPECT_EQ(commandLine.ReadNumber(kSettingsKey, "exit_mode"), 3U);
    EXPECT_EQ(commandLine.ReadText(kSettingsKey, "DownloadPath"), "/home/u");
}

TEST_F(Settings, NoneOfManyWritersLosesTheValueOfAnother) {
    constexpr std::uint32_t kWrites = 50;
    const auto write = [this](const char* name) {
        SettingsFile store(file_);
        for (std::uint32_t i = 1; i <= kWrites; ++i) {
            EXPECT_TRUE(store.WriteNumber(kSettingsKey, name + std::to_string(i), i));
        }
    };
    std::thread other(write, "other");
    write("own");
    other.join();
    const SettingsFile store(file_);
    for (std::uint32_t i = 1; i <= kWrites; ++i) {
        EXPECT_EQ(store.ReadNumber(kSettingsKey, "own" + std::to_string(i)), i);
        EXPECT_EQ(store.ReadNumber(kSettingsKey, "other" + std::to_string(i)), i);
    }
}

TEST_F(Settings, AFileThatIsTooLargeIsNotReplaced) {
    std::filesystem::create_directories(file_.parent_path());
    std::ofstream(file_) << std::string(kSmallFileBytes + 1, '#');
    SettingsFile store(file_);
    EXPECT_FALSE(store.WriteNumber(kSettingsKey, "exit_mode", 3));
    EXPECT_EQ(store.ReadNumber(kSettingsKey, "exit_mode"), std::nullopt);
    EXPECT_EQ(std::filesystem::file_size(file_), kSmallFileBytes + 1);
}

TEST_F(Settings, AFolderThatCannotBeMadeIsTold) {
    std::ofstream(folder_.Path() / "config") << "a file";
    EXPECT_FALSE(SettingsFile(file_).WriteNumber(kSettingsKey, "exit_mode", 3));
}

}  // namespace
}  // namespace quorvi
