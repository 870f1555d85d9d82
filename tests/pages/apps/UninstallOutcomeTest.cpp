#include <gtest/gtest.h>

#include <array>
#include <ostream>
#include <set>

#include "base/Text.h"
#include "pages/apps/UninstallOutcome.h"

namespace quorvi {
namespace {

struct Said {
    const char* name;
    std::string_view text;
    UninstallOutcome outcome;
};

void PrintTo(const Said& said, std::ostream* out) {
    *out << said.name;
}

constexpr auto kSaid = std::to_array<Said>({
    {"Success", "Success\n", UninstallOutcome::done},
    {"SuccessOfAnOldAdb", "Success\r\n", UninstallOutcome::done},
    {"SuccessBehindTheStartOfTheServer",
     "* daemon not running; starting now at tcp:5037\n* daemon started successfully\nSuccess\n",
     UninstallOutcome::done},
    {"DeviceAdministrator", "Failure [DELETE_FAILED_DEVICE_POLICY_MANAGER]\n",
     UninstallOutcome::deviceAdmin},
    {"RestrictedUser", "Failure [DELETE_FAILED_USER_RESTRICTED]\n", UninstallOutcome::notAllowed},
    {"BlockedByTheOwner", "Failure [DELETE_FAILED_OWNER_BLOCKED]\n", UninstallOutcome::notAllowed},
    {"Pinned", "Failure [DELETE_FAILED_APP_PINNED]\n", UninstallOutcome::pinned},
    {"UsedLibrary", "Failure [DELETE_FAILED_USED_SHARED_LIBRARY]\n", UninstallOutcome::needed},
    {"Aborted", "Failure [DELETE_FAILED_ABORTED]\n", UninstallOutcome::aborted},
    {"SystemApplication", "Failure [DELETE_FAILED_INTERNAL_ERROR]\n", UninstallOutcome::refused},
    {"WithoutAReason", "Failure\n", UninstallOutcome::refused},
    {"NotInstalled", "Failure [not installed for 0]\n", UninstallOutcome::notInstalled},
    {"UnknownPackage", "Error: java.lang.IllegalArgumentException: Unknown package: com.a\n",
     UninstallOutcome::notInstalled},
    {"TwoPhones", "adb: more than one device/emulator\n", UninstallOutcome::severalPhones},
    {"TwoPhonesOfAnOldAdb", "error: more than one device and emulator\n",
     UninstallOutcome::severalPhones},
    {"TwoEmulators", "error: more than one emulator\n", UninstallOutcome::severalPhones},
    {"NoPhone", "adb: no devices/emulators found\n", UninstallOutcome::noPhone},
    {"NoPhoneOfAnOldAdb", "error: device not found\n", UninstallOutcome::noPhone},
    {"Offline", "adb: device offline\n", UninstallOutcome::offline},
    {"Connecting", "adb: device still connecting\n", UninstallOutcome::offline},
    {"Unauthorized",
     "adb: device unauthorized.\nThis adb server's $ADB_VENDOR_KEYS is not set\nTry 'adb "
     "kill-server' if that seems wrong.\n",
     UninstallOutcome::unauthorized},
    {"Authorizing", "adb: device still authorizing\n", UninstallOutcome::unauthorized},
    {"NoPermissions", "adb: no permissions (user in plugdev group; are your udev rules wrong?)\n",
     UninstallOutcome::noPermission},
    {"InsufficientPermissions", "error: insufficient permissions for device: verify udev rules\n",
     UninstallOutcome::noPermission},
    {"NoServer", "adb: cannot connect to daemon\n", UninstallOutcome::noServer},
    {"ServerFails", "* failed to start daemon\n", UninstallOutcome::noServer},
    {"ConnectionGone", "adb: protocol fault (couldn't read status): Success\n",
     UninstallOutcome::brokenOff},
    {"Closed", "error: closed\n", UninstallOutcome::brokenOff},
    {"SomethingElse", "adb: the moon is full\n", UninstallOutcome::unknown},
    {"TheWordOfSuccessWithinALine", "Successor of com.a\n", UninstallOutcome::unknown},
    {"Nothing", "", UninstallOutcome::unknown},
});

class ParseUninstallTest : public testing::TestWithParam<Said> {};

TEST_P(ParseUninstallTest, ReadsWhatAdbSaid) {
    EXPECT_EQ(ParseUninstall(GetParam().text), GetParam().outcome);
}

INSTANTIATE_TEST_SUITE_P(Each, ParseUninstallTest, testing::ValuesIn(kSaid),
                         [](const auto& test) { return std::string(test.param.name); });

std::string ReasonOf(std::string_view said) {
    return UninstallReason(UninstallOutcome::unknown, said);
}

TEST(UninstallReasonTest, EachOutcomeHasWordsOfItsOwn) {
    std::set<std::string> reasons;
    for (const Said& said : kSaid) {
        reasons.insert(UninstallReason(said.outcome, {}));
    }
    reasons.insert(UninstallReason(UninstallOutcome::noAdb, {}));
    // From the first one, which is the empty text of what is done, to the last.
    EXPECT_EQ(reasons.size(), static_cast<std::size_t>(UninstallOutcome::unknown) + 1);
}

TEST(UninstallReasonTest, WhatIsDoneNeedsNone) {
    EXPECT_EQ(UninstallReason(UninstallOutcome::done, "Success\n"), "");
}

TEST(UninstallReasonTest, SaysWhatToDoNext) {
    EXPECT_EQ(UninstallReason(UninstallOutcome::severalPhones, {}),
              Ansi(u8"电脑连着不止一部手机，请只留下一部再试"));
}

TEST(UninstallReasonTest, WhatIsNotKnownIsQuotedByItsLastLine) {
    EXPECT_EQ(ReasonOf("one\ntwo\r\n\n"), Ansi(u8"adb 说：two"));
}

TEST(UninstallReasonTest, AQuoteIsOneLineOfPlainCharacters) {
    EXPECT_EQ(ReasonOf(std::string_view("a\x1b[1m\0b\t", 8)), Ansi(u8"adb 说：a [1m b"));
}

TEST(UninstallReasonTest, ALongQuoteIsCutBetweenCharacters) {
    const std::string reason = ReasonOf(std::string(95, 'a') + "\xe5\xa5\x8e");
    EXPECT_EQ(reason, Ansi(u8"adb 说：") + std::string(95, 'a') + "...");
}

TEST(UninstallReasonTest, WithoutAWordItSaysSo) {
    EXPECT_EQ(ReasonOf(" \n"), Ansi(u8"adb 没有说明原因，请再试一次"));
}

}  // namespace
}  // namespace quorvi
