#include <gtest/gtest.h>

#include <fstream>

#include "base/Text.h"
#include "pages/screen/SavePlace.h"
#include "tests/support/MemorySettings.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

class SavePlace : public testing::Test {
  protected:
    SavePlace() {
        places_.home = home_.Path();
        places_.config = home_.Path() / ".config";
    }

    TemporaryFolder home_;
    Places places_;
    MemorySettings settings_;
};

TEST_F(SavePlace, DefaultIsAFolderOfOurOwnAmongTheDocumentsAndIsCreated) {
    const std::filesystem::path folder = SaveFolder(settings_, places_);
    EXPECT_EQ(folder, home_.Path() / "Documents" / u8"奎维掌上工坊");
    EXPECT_TRUE(std::filesystem::is_directory(folder));
}

TEST_F(SavePlace, DefaultIsNotCreatedByNamingIt) {
    EXPECT_FALSE(std::filesystem::exists(DefaultSaveFolder(places_)));
}

TEST_F(SavePlace, ChosenFolderIsUsedWhileItExists) {
    const std::filesystem::path chosen = home_.Path() / u8"截图";
    std::filesystem::create_directory(chosen);
    EXPECT_TRUE(KeepSaveFolder(settings_, chosen));
    EXPECT_EQ(settings_.ReadText("Software\\Quorvi", "screen_shot"), ToAnsi(chosen.native()));
    EXPECT_EQ(SaveFolder(settings_, places_), chosen);
    std::filesystem::remove(chosen);
    EXPECT_EQ(SaveFolder(settings_, places_), DefaultSaveFolder(places_));
}

TEST_F(SavePlace, EmptyChoiceIsNoFolder) {
    settings_.WriteText(kSettingsKey, kSaveFolderSetting, "");
    EXPECT_EQ(SaveFolder(settings_, places_), DefaultSaveFolder(places_));
}

// Whatever exists counts, as the setting has always been read; saving then says what is wrong.
TEST_F(SavePlace, PathThatExistsCountsEvenIfItIsNoFolder) {
    const std::filesystem::path file = home_.Path() / "file";
    std::ofstream(file) << "x";
    KeepSaveFolder(settings_, file);
    EXPECT_EQ(SaveFolder(settings_, places_), file);
}

TEST_F(SavePlace, BatchNameHasMonthDayAndTimeAndNoYear) {
    std::tm time{};
    time.tm_year = 126;
    time.tm_mon = 0;  // January
    time.tm_mday = 2;
    time.tm_hour = 3;
    time.tm_min = 4;
    time.tm_sec = 5;
    EXPECT_EQ(BatchName(time, SaveFormat::jpg), "0102-030405.jpg");
    time.tm_mon = 11;
    time.tm_mday = 31;
    time.tm_hour = 23;
    time.tm_min = 59;
    time.tm_sec = 58;
    EXPECT_EQ(BatchName(time, SaveFormat::png), "1231-235958.png");
}

TEST_F(SavePlace, TwoPicturesOfOneSecondHaveOneName) {
    std::tm time{};
    time.tm_mday = 1;
    std::tm anotherYear = time;
    anotherYear.tm_year = 126;
    EXPECT_EQ(BatchName(time, SaveFormat::gif), BatchName(anotherYear, SaveFormat::gif));
}

}  // namespace
}  // namespace quorvi
