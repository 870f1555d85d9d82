#include <gmock/gmock.h>

#include <algorithm>
#include <optional>

#include "base/ByteText.h"
#include "base/Utf8.h"
#include "phone/adb/Packet.h"
#include "tests/support/Ask.h"
#include "tests/support/Bytes.h"

namespace quorvi::phone {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AppCommands : public testing::Test {
  protected:
    struct Listed {
        std::string name;
        std::string package;
        std::string version;
        std::uint64_t size;
        std::uint64_t iconBytes;
        std::uint64_t installed;
    };

    std::vector<Listed> List() {
        const Outcome outcome = Ask(data_, BareRequest(AgentCommand::listApplications));
        EXPECT_THAT(outcome.deviations, IsEmpty());
        const ReplyBuffer reply = PayloadOf(outcome);
        ReplyCursor cursor(reply);
        std::vector<Listed> apps;
        do {
            Listed one{};
            cursor.SkipBytes(4);  // reserved
            one.name = cursor.TakeUtf8().value_or("absent");
            one.package = cursor.TakeUtf8().value_or("absent");
            one.version = cursor.TakeUtf8().value_or("absent");
            cursor.SkipBytes(4);  // whether it came with the phone
            one.size = cursor.TakeUInt64();
            one.iconBytes = cursor.TakeUInt64();
            cursor.SkipBytes(one.iconBytes);
            cursor.SkipText();    // its package file
            cursor.SkipBytes(4);  // reserved
            one.installed = cursor.TakeUInt64();
            apps.push_back(one);
        } while (!cursor.AtEnd());
        EXPECT_FALSE(cursor.Overran());
        return apps;
    }
    std::optional<Listed> Find(std::string_view package) {
        for (const Listed& one : List()) {
            if (one.package == package) {
                return one;
            }
        }
        return std::nullopt;
    }
    // What the agent acknowledges the start of a package with.
    std::uint32_t Start(const char* package) {
        const auto name = static_cast<int>(std::string_view(package).size());
        const Outcome outcome = Ask(data_, Join({
                                               {0, 0x0d, 0x49, 0x95},  // 870805
                                               {0, 0, 0, 1},           // count
                                               {0, 0, 0, 16 + name},   // total
                                               {0, 0, 0, name},        // bytes of the name
                                               package,                //
                                           }));
        EXPECT_THAT(outcome.deviations, IsEmpty());
        return ReadUInt32(outcome.reply.bytes.data());
    }
    std::size_t Processes(std::string_view package) const {
        return static_cast<std::size_t>(
            std::ranges::count(data_.processes.running, package, &Process::package));
    }

    Handset handset_{DeliveredProfile(0)};
    AgentData data_{handset_};
};

TEST_F(AppCommands, ListHoldsWhatIsInstalledButTheAgent) {
    const auto apps = List();
    ASSERT_EQ(apps.size(), handset_.Apps().size() - 1);
    EXPECT_EQ(apps[0].package, "android");
    EXPECT_FALSE(Find(kAgentPackage));
    const Listed weather = Find("com.example.weather").value();
    EXPECT_EQ(weather.name, Utf8(u8"小区天气"));
    EXPECT_EQ(weather.version, "3.2");
    EXPECT_EQ(weather.size, 1'364u * 1024);
    EXPECT_GT(weather.iconBytes, 0u);
    EXPECT_GT(weather.installed, 0u);
}

TEST_F(AppCommands, OneHasNoTimeAndOneNoIconAndOneIsLargerThanFourGigabytes) {
    EXPECT_EQ(Find("android").value().installed, 0u);
    EXPECT_EQ(Find("com.example.notes").value().iconBytes, 0u);
    EXPECT_GT(Find("com.example.audiobooks").value().size, 1ULL << 32);
}

TEST_F(AppCommands, WhatAdbInstallsIsListed) {
    ASSERT_TRUE(handset_.PutFile("/sdcard/com.example.game.apk",
                                 {0100644, 0, ToBytes("PK\x03\x04 and more")}));
    ASSERT_EQ(handset_.Install("/sdcard/com.example.game.apk", false), "Success");
    const Listed game = Find("com.example.game").value();
    EXPECT_EQ(game.size, 13u);
    EXPECT_GT(game.installed, Find("com.example.gomoku").value().installed);
    EXPECT_EQ(List().back().package, "com.example.game");
}

TEST_F(AppCommands, WhatAdbUninstallsIsListedNoMore) {
    ASSERT_TRUE(handset_.Uninstall("com.example.weather"));
    EXPECT_FALSE(Find("com.example.weather"));
}

TEST_F(AppCommands, WhatBelongsToAnUninstalledApplicationGoesWithIt) {
    const std::uint32_t before = data_.processes.freeMemory;
    ASSERT_EQ(Processes("com.example.weather"), 1u);
    ASSERT_TRUE(handset_.Uninstall("com.example.weather"));
    EXPECT_EQ(Processes("com.example.weather"), 0u);
    EXPECT_GT(data_.processes.freeMemory, before);
    EXPECT_EQ(std::ranges::count(data_.autoStarts, "com.example.weather", &AutoStart::package), 0);
    EXPECT_EQ(std::ranges::count(data_.cleaning.caches, "com.example.weather", &Cache::package), 0);
}

TEST_F(AppCommands, AnEmptyListIsARecordWithoutAName) {
    data_.Fill({.applications = 0});
    const Outcome outcome = Ask(data_, BareRequest(AgentCommand::listApplications));
    EXPECT_EQ(Bytes(outcome.reply.bytes.begin() + 8, outcome.reply.bytes.end()),
              Join({
                  {0, 0, 0, 0},              // reserved
                  {0x0d, 0xf0, 0xad, 0xba},  // no name
              }));
}

TEST_F(AppCommands, AStartedApplicationRuns) {
    const std::uint32_t before = data_.processes.freeMemory;
    ASSERT_EQ(Processes("com.example.notes"), 0u);
    EXPECT_EQ(Start("com.example.notes"), 1u);
    EXPECT_EQ(Processes("com.example.notes"), 1u);
    EXPECT_EQ(data_.processes.running.back().name, Utf8(u8"便笺"));
    EXPECT_LT(data_.processes.freeMemory, before);
}

TEST_F(AppCommands, AnApplicationThatRunsComesToTheFront) {
    const std::size_t before = data_.processes.running.size();
    EXPECT_EQ(Start("com.example.weather"), 1u);
    EXPECT_EQ(data_.processes.running.size(), before);
    const auto weather = std::ranges::find(data_.processes.running,
                                           std::string("com.example.weather"), &Process::package);
    EXPECT_EQ(weather->importance, 100u);
}

TEST_F(AppCommands, StartingWhatIsNotInstalledChangesNothing) {
    const std::size_t before = data_.processes.running.size();
    EXPECT_EQ(Start("com.example.gone"), 0u);
    EXPECT_EQ(data_.processes.running.size(), before);
}

TEST_F(AppCommands, AStartTakesNoMoreThanTheMemoryThatIsFree) {
    data_.processes.freeMemory = 4096;
    EXPECT_EQ(Start("com.example.notes"), 1u);
    EXPECT_EQ(data_.processes.running.back().memory, 4096u);
    EXPECT_EQ(data_.processes.freeMemory, 0u);
}

TEST_F(AppCommands, ACountThatIsNotOneIsNamed) {
    const Outcome outcome = Ask(data_, Join({
                                           {0, 0x0d, 0x49, 0x95},  // 870805
                                           {0, 0, 0, 21},  // the total in place of the count
                                           {0, 0, 0, 21},  // total
                                           {0, 0, 0, 5},   // bytes of the name
                                           "com.a",
                                       }));
    EXPECT_THAT(outcome.deviations, ElementsAre("item count 21 for a single object"));
}

TEST_F(AppCommands, AFrameShorterThanItsNameIsNamed) {
    const Outcome outcome =
        Ask(data_, Join({{0, 0x0d, 0x49, 0x95}, {0, 0, 0, 1}, {0, 0, 0, 16}, {0, 0, 0, 9}}));
    EXPECT_THAT(outcome.deviations,
                ElementsAre("the frame ends before the fields of its 1 items do"));
}

TEST_F(AppCommands, MadeUpApplicationsAreAsManyAsAskedFor) {
    data_.Fill({.applications = 1'000, .iconBytes = 20'000});
    const auto apps = List();
    ASSERT_EQ(apps.size(), 1'000u);
    EXPECT_EQ(apps.back().iconBytes, 20'000u);
    EXPECT_TRUE(handset_.FindApp(apps.back().package));
}

TEST_F(AppCommands, FillingAnewLeavesTheAgentAsItIs) {
    handset_.SetAgent(7);
    data_.Fill({});
    EXPECT_TRUE(handset_.FindApp(kAgentPackage));
    handset_.SetAgent(std::nullopt);
    data_.Fill({});
    EXPECT_FALSE(handset_.FindApp(kAgentPackage));
}

TEST_F(AppCommands, HostileApplicationsAreListedAndNotInstalled) {
    data_.Fill({.hostile = true});
    const auto apps = List();
    EXPECT_EQ(apps.size(), handset_.Apps().size() - 1 + data_.claimedApps.size());
    EXPECT_TRUE(Find("com.example.chat; reboot"));
    EXPECT_FALSE(handset_.FindApp("com.example.chat; reboot"));
    EXPECT_EQ(Start("-k"), 0u);
}

}  // namespace
}  // namespace quorvi::phone
