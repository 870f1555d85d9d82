// What the log holds of the link, from the services that tell it.
#include <gmock/gmock.h>

#include "link/LinkLog.h"
#include "link/PackageInstaller.h"
#include "log/EventLog.h"
#include "tests/support/Await.h"
#include "tests/support/FakeAdb.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

TEST(LinkLog, HoldsEachStepWithItsOutcomeAndNoSerialAndNoPath) {
    const TemporaryFolder folder;
    const LogFile log(folder.Path() / "quorvi.log");
    StartLog("test", folder.Path() / "quorvi.log");

    const FakeAdb adb("echo Success");
    const PackageInstaller installer(adb.Environment());
    EXPECT_EQ(installer.Install({"HT04XPL00342", "/home/lin/secret.apk"}), InstallResult::success);
    LogSearch(FindDeviceResult::noneChosen, std::chrono::steady_clock::now());
    LogForward(false);
    LogAgent(-1, false);
    LogAgent(21, true);
    LogEvent("last");

    ASSERT_TRUE(Await([&] { return log.Read().find("] last\n") != std::string::npos; }));
    const std::string text = log.Read();
    EXPECT_THAT(text, ContainsRegex("install result=success ms=[0-9]+\n"));
    EXPECT_THAT(text, ContainsRegex("link.search result=none-chosen ms=[0-9]+\n"));
    EXPECT_THAT(text, HasSubstr("link.forward stands=no\n"));
    EXPECT_THAT(text, HasSubstr("link.agent version=-1 linked=no\n"));
    EXPECT_THAT(text, HasSubstr("link.agent version=21 linked=yes\n"));
    EXPECT_THAT(text, Not(HasSubstr("HT04XPL00342")));
    EXPECT_THAT(text, Not(HasSubstr("secret")));
}

}  // namespace
}  // namespace quorvi
