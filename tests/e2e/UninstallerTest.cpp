// What the real adb says of an uninstall without a serial: to phones, and to a server that fails.
#include <gtest/gtest.h>

#include <functional>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "pages/apps/Uninstaller.h"
#include "tests/support/Await.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/support/PhoneRig.h"

namespace quorvi::e2e {
namespace {

constexpr const char* kPackage = "com.example.notes";

// Starts an uninstall, does something meanwhile, and waits until adb has ended by itself.
UninstallEnd UninstallByAdb(
    const char* package = kPackage, const std::function<void()>& meanwhile = [] {}) {
    std::mutex mutex;
    std::optional<UninstallEnd> ended;
    Uninstaller uninstaller({}, [&](UninstallEnd&& end) {
        const std::lock_guard lock(mutex);
        ended = std::move(end);
    });
    EXPECT_TRUE(uninstaller.Start({"notes", package}));
    meanwhile();
    EXPECT_TRUE(Await([&] {
        const std::lock_guard lock(mutex);
        return ended.has_value();
    }));
    EXPECT_EQ(uninstaller.Pending(), 0);
    const std::lock_guard lock(mutex);
    return ended.value_or(UninstallEnd{});
}

bool IsInstalled(PhoneRig& rig, std::size_t phone) {
    return rig.Adb({"-s", rig.Serial(phone), "shell", "pm", "path", kPackage})
        .output.starts_with("package:");
}

TEST(UninstallByAdb, OnePhoneLosesTheApplication) {
    PhoneRig rig(1);
    ASSERT_EQ(rig.Error(), "");
    ASSERT_TRUE(IsInstalled(rig, 0));
    EXPECT_EQ(UninstallByAdb().outcome, UninstallOutcome::done);
    EXPECT_FALSE(IsInstalled(rig, 0));
}

TEST(UninstallByAdb, OneThatIsPartOfThePhoneIsRefused) {
    const PhoneRig rig(1);
    ASSERT_EQ(rig.Error(), "");
    EXPECT_EQ(UninstallByAdb("com.android.phone").outcome, UninstallOutcome::refused);
}

TEST(UninstallByAdb, OfTwoPhonesNoneLosesAnything) {
    PhoneRig rig(2);
    ASSERT_EQ(rig.Error(), "");
    EXPECT_EQ(UninstallByAdb().outcome, UninstallOutcome::severalPhones);
    EXPECT_TRUE(IsInstalled(rig, 0));
    EXPECT_TRUE(IsInstalled(rig, 1));
}

TEST(UninstallByAdb, WithoutAPhoneAdbWaitsForOne) {
    PhoneRig rig(1);
    ASSERT_EQ(rig.Error(), "");
    rig.Control(0, "unplug");
    ASSERT_TRUE(rig.WaitForDevices(0));
    EXPECT_EQ(UninstallByAdb(kPackage, [&] { rig.Control(0, "plug"); }).outcome,
              UninstallOutcome::done);
}

// What a server that fails says to whatever adb asks it.
UninstallEnd UninstallWithServerThatSays(std::string_view answer) {
    const auto bytes = std::as_bytes(std::span(answer));
    LoopbackAgent server({.bytes = {bytes.begin(), bytes.end()}, .end = Answer::End::close});
    const EnvironmentVariable port("ANDROID_ADB_SERVER_PORT", std::to_string(server.Port()));
    return UninstallByAdb();
}

TEST(UninstallByAdb, AServerThatSaysFailIsQuoted) {
    const UninstallEnd end = UninstallWithServerThatSays("FAIL0004oops");
    EXPECT_EQ(end.outcome, UninstallOutcome::unknown);
    EXPECT_NE(UninstallReason(end.outcome, end.said).find("oops"), std::string::npos);
}

TEST(UninstallByAdb, AServerThatClosesAtOnceOrWithinItsWordBreaksOff) {
    for (const std::string_view answer : {"", "OK", "XXXX"}) {
        EXPECT_EQ(UninstallWithServerThatSays(answer).outcome, UninstallOutcome::brokenOff)
            << answer;
    }
}

}  // namespace
}  // namespace quorvi::e2e
