// A user's story with the phone's settings: through the window by its control numbers, to the phone
// and back.
#include <gmock/gmock.h>

#include <QAbstractButton>

#include "tests/support/PagesOnPhone.h"
#include "ui/kit/SkinFields.h"

namespace quorvi {
namespace {

using testing::HasSubstr;

constexpr int kPage = 41;
constexpr std::size_t kRefresh = 0;
constexpr int kRead = 871501;
constexpr int kWrite = 871502;

// Controls.
constexpr int kWifi = 1280;
constexpr int kGps = 1281;
constexpr int kBacklight = 1213;
constexpr int kRingVolume = 1214;
constexpr int kMusicVolume = 1215;
constexpr int kTime24 = 1204;
constexpr int kDateFormat = 1206;

// A write as the phone's log has it.
std::string Written(std::uint32_t key, std::uint32_t value) {
    return Hex(WireBytes()
                   .U32(871502)  // code
                   .U32(20)      // total
                   .U32(1)       // item count
                   .U32(key)     //
                   .U32(value));
}

class PhoneSettingsStory : public PagesOnPhone {
  protected:
    void SetUp() override {
        PagesOnPhone::SetUp();
        OpenFresh(kPage);
    }

    static QAbstractButton& Switch(int control) { return OnPage<QAbstractButton>(control); }
    static CSkinCombo& List(int control) { return OnPage<CSkinCombo>(control); }
    static void Flip(int control) {
        ClickOn(Switch(control));
        ASSERT_TRUE(WaitIdle());
    }
    static void Step(int control, Qt::Key key) {
        QTest::keyClick(&List(control), key);
        ASSERT_TRUE(WaitIdle());
    }
    static void Refresh() {
        Command(kRefresh);
        ASSERT_TRUE(WaitIdle());
    }
};

TEST_F(PhoneSettingsStory, EachKindOfSettingIsWrittenAndReadBack) {
    EXPECT_TRUE(Switch(kWifi).isChecked());
    EXPECT_FALSE(Switch(kGps).isChecked());
    EXPECT_EQ(List(kBacklight).currentText(), ToQString(u8"30 秒"));
    EXPECT_EQ(List(kRingVolume).currentIndex(), 5);
    EXPECT_EQ(List(kMusicVolume).currentIndex(), 9);
    EXPECT_TRUE(Switch(kTime24).isChecked());
    EXPECT_EQ(List(kDateFormat).currentIndex(), 0);

    Flip(kWifi);
    Step(kBacklight, Qt::Key_End);
    Step(kRingVolume, Qt::Key_Up);
    Step(kMusicVolume, Qt::Key_Home);
    Step(kDateFormat, Qt::Key_End);
    Flip(kTime24);
    EXPECT_TRUE(Requests(kRead).empty());
    const std::vector<std::string> writes = Requests(kWrite);
    ASSERT_EQ(writes.size(), 6u);
    EXPECT_THAT(writes[0], HasSubstr(Written(0, 0)));
    EXPECT_THAT(writes[1], HasSubstr(Written(6, 1'800'000)));
    EXPECT_THAT(writes[2], HasSubstr(Written(7, 4)));
    EXPECT_THAT(writes[3], HasSubstr(Written(8, 0)));
    EXPECT_THAT(writes[4], HasSubstr(Written(10, 2)));
    EXPECT_THAT(writes[5], HasSubstr(Written(9, 0)));

    Refresh();
    EXPECT_EQ(Requests(kRead).size(), 1u);
    EXPECT_FALSE(Switch(kWifi).isChecked());
    EXPECT_EQ(List(kBacklight).currentText(), ToQString(u8"30 分钟"));
    EXPECT_EQ(List(kRingVolume).currentIndex(), 4);
    EXPECT_EQ(List(kMusicVolume).currentIndex(), 0);
    EXPECT_EQ(List(kDateFormat).currentIndex(), 2);
    EXPECT_FALSE(Switch(kTime24).isChecked());
    EXPECT_EQ(Requests(kWrite).size(), 6u);  // no write follows a reading
    EXPECT_EQ(Status(), ToQString(u8"就绪"));
}

TEST_F(PhoneSettingsStory, ASettingChangedTwiceQuicklyGoesOutTwiceAndInOrder) {
    Tell("fault 871502 stall");
    ClickOn(Switch(kGps));
    ClickOn(Switch(kGps));
    Command(kRefresh);  // comes behind them
    ASSERT_TRUE(WaitFor([] { return Requests(kWrite).size() == 1; }));
    Tell("faults clear");
    Tell("release");
    ASSERT_TRUE(WaitIdle());
    const std::vector<std::string> writes = Requests(kWrite);
    ASSERT_EQ(writes.size(), 2u);
    EXPECT_THAT(writes[0], HasSubstr(Written(3, 1)));
    EXPECT_THAT(writes[1], HasSubstr(Written(3, 0)));
    EXPECT_EQ(Requests(kRead).size(), 1u);
    EXPECT_FALSE(Switch(kGps).isChecked());
}

TEST_F(PhoneSettingsStory, ValuesThatNobodyCanChooseAreShownAsFarAsTheyCanBe) {
    Tell("data hostile 1");
    Tell("log clear");
    Refresh();
    EXPECT_FALSE(Switch(kWifi).isChecked());                          // 2
    EXPECT_EQ(List(kBacklight).currentText(), ToQString(u8"15 秒"));  // 45 seconds
    EXPECT_EQ(List(kRingVolume).currentIndex(), -1);                  // 9
    EXPECT_EQ(List(kMusicVolume).currentIndex(), 0);                  // 16
    EXPECT_FALSE(Switch(kTime24).isChecked());                        // 2
    EXPECT_EQ(List(kDateFormat).currentIndex(), -1);                  // 3
    EXPECT_TRUE(Requests(kWrite).empty());
}

}  // namespace
}  // namespace quorvi
