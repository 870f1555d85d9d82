#include <gmock/gmock.h>

#include "backup/RestorePlan.h"
#include "base/Text.h"

namespace quorvi {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

AlarmSettings Alarm(std::uint32_t hour, std::string label, bool enabled = true) {
    return {.hour = hour,
            .minute = 30,
            .days = 0,
            .enabled = enabled,
            .vibrate = false,
            .label = std::move(label),
            .alert = "tone"};
}

std::vector<RestoreAction> Actions(const RestoreContent& backup, const PhoneContent& phone) {
    std::vector<RestoreAction> actions;
    for (const RestoreItem& item : PlanRestore(backup, phone, {}, {}).items) {
        actions.push_back(item.action);
    }
    return actions;
}

std::vector<RestoreAction> OfAlarms(std::vector<AlarmSettings> backup,
                                    std::vector<AlarmSettings> phone) {
    RestoreContent content;
    content.alarms = std::move(backup);
    PhoneContent onPhone;
    onPhone.alarms = std::move(phone);
    return Actions(content, onPhone);
}

std::vector<RestoreAction> OfBookmarks(std::vector<BookmarkSettings> backup,
                                       std::vector<BookmarkSettings> phone) {
    RestoreContent content;
    content.bookmarks = std::move(backup);
    PhoneContent onPhone;
    onPhone.bookmarks = std::move(phone);
    return Actions(content, onPhone);
}

TEST(RestorePlan, OfNothingIsEmpty) {
    EXPECT_THAT(Actions({}, {}), IsEmpty());
}

TEST(RestorePlan, AnAlarmThatIsMissingIsAdded) {
    EXPECT_THAT(OfAlarms({Alarm(7, "a")}, {Alarm(8, "a")}), ElementsAre(RestoreAction::add));
}

TEST(RestorePlan, AnAlarmThatWasSwitchedOffStaysOff) {
    EXPECT_THAT(OfAlarms({Alarm(7, "a")}, {Alarm(7, "a", false)}),
                ElementsAre(RestoreAction::there));
}

TEST(RestorePlan, TwoAlarmsOfOneTimeAndLabelAreTwo) {
    EXPECT_THAT(OfAlarms({Alarm(7, "a"), Alarm(7, "a", false)}, {Alarm(7, "a", false)}),
                ElementsAre(RestoreAction::add, RestoreAction::there));
}

TEST(RestorePlan, AnAlarmThatTheEditorWouldNotSendIsImpossible) {
    EXPECT_THAT(OfAlarms({Alarm(7, "")}, {}), ElementsAre(RestoreAction::impossible));
    EXPECT_THAT(OfAlarms({Alarm(7, "")}, {Alarm(7, "")}), ElementsAre(RestoreAction::there));
}

TEST(RestorePlan, AContactInWhichThereIsNothingIsToldApartFromOneThatCannotBeRead) {
    RestoreContent content;
    content.emptyCards = 2;
    content.unreadCards = 1;
    const std::vector<RestoreItem> items = PlanRestore(content, {}, {}, {}).items;
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(items[0].action, RestoreAction::impossible);
    EXPECT_EQ(items[0].what, Ansi(u8"2 个联系人"));
    EXPECT_EQ(items[0].why, Ansi(u8"没有姓名，也没有可以当作姓名的内容，手机不能新建"));
    EXPECT_EQ(items[1].action, RestoreAction::impossible);
    EXPECT_EQ(items[1].what, Ansi(u8"1 个联系人"));
    EXPECT_EQ(items[1].why, Ansi(u8"备份里的内容读不懂"));
}

TEST(RestorePlan, ABookmarkOfTheSameAddressIsThere) {
    EXPECT_THAT(OfBookmarks({{"title", "http://x/", 3}}, {{"other title", "http://x/", 4}}),
                ElementsAre(RestoreAction::there));
}

TEST(RestorePlan, ABookmarkThatIsMissingIsAddedOnceForEachTimeItIsMissing) {
    const BookmarkSettings one{"a", "http://x/", 1};
    EXPECT_THAT(OfBookmarks({one, one}, {one}),
                ElementsAre(RestoreAction::there, RestoreAction::add));
}

TEST(RestorePlan, GroupsStandInFrontOfContacts) {
    RestoreContent content;
    content.groups = {"g"};
    ContactCard card;
    card.name = "a";
    content.cards = {card};
    content.hadPhoto = {false};
    const RestorePlan plan = PlanRestore(content, {}, {}, {});
    ASSERT_EQ(plan.items.size(), 2u);
    EXPECT_EQ(plan.items[0].kind, BackupKind::groups);
    EXPECT_EQ(plan.items[1].kind, BackupKind::contacts);
}

TEST(RestorePlan, PhotosOfNewContactsAreNamedAsImpossible) {
    RestoreContent content;
    ContactCard card;
    card.name = "a";
    content.cards = {card};
    content.hadPhoto = {true};
    const RestorePlan plan = PlanRestore(content, {}, {}, {});
    ASSERT_EQ(plan.items.size(), 2u);
    EXPECT_EQ(plan.items[1].action, RestoreAction::impossible);
    EXPECT_EQ(plan.items[1].what, Ansi(u8"1 张头像"));
}

TEST(RestorePlan, KindsThatNoPhoneTakesAreNamed) {
    Manifest manifest;
    manifest.kinds = {{BackupKind::messages, 31, "", {}}, {BackupKind::calls, 33, "", {}}};
    const RestorePlan plan = PlanRestore({}, {}, manifest, {BackupKind::messages});
    ASSERT_EQ(plan.items.size(), 1u);
    EXPECT_EQ(plan.items[0].what, Ansi(u8"短信 31"));
    EXPECT_EQ(plan.Count(RestoreAction::impossible), 1u);
}

}  // namespace
}  // namespace quorvi
