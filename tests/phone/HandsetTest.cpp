#include <gtest/gtest.h>

#include "base/ByteText.h"
#include "phone/Handset.h"
#include "phone/adb/Packet.h"
#include "tests/phone/MadePackage.h"

namespace quorvi::phone {
namespace {

const std::string kPushed = "/data/local/tmp/com.quorvi.Quorvi.apk";

StoredFile AgentFile(std::uint32_t version) {
    return {0100644, 0, MadePackage("com.quorvi.Quorvi", version)};
}

TEST(Handset, HasTheDeliveredAgentInstalledAndStoppedAtFirst) {
    const Handset handset(DeliveredProfile(0));
    EXPECT_EQ(handset.AgentVersion(), kDeliveredAgentVersion);
    EXPECT_FALSE(handset.AgentRuns());
    EXPECT_TRUE(handset.FindApp("com.quorvi.Quorvi"));
}

TEST(Handset, InstallsTheAgentInTheVersionThatItsFileStates) {
    Handset handset(DeliveredProfile(0));
    handset.SetAgent(std::nullopt);
    ASSERT_TRUE(handset.PutFile(kPushed, AgentFile(23)));
    EXPECT_EQ(handset.Install(kPushed, false), "Success");
    EXPECT_EQ(handset.AgentVersion(), 23u);
}

TEST(Handset, NamesAnotherPackageAfterItsFileWhateverItsManifestSays) {
    Handset handset(DeliveredProfile(0));
    ASSERT_TRUE(handset.PutFile("/sdcard/com.example.game.apk",
                                {0100644, 0, MadePackage("com.example.other", 3)}));
    EXPECT_EQ(handset.Install("/sdcard/com.example.game.apk", true), "Success");
    EXPECT_TRUE(handset.FindApp("com.example.game"));
    EXPECT_EQ(handset.AgentVersion(), kDeliveredAgentVersion);
}

TEST(Handset, AnInstallStopsTheAgent) {
    Handset handset(DeliveredProfile(0));
    handset.StartAgent();
    ASSERT_TRUE(handset.PutFile(kPushed, AgentFile(20)));
    EXPECT_EQ(handset.Install(kPushed, true), "Success");
    EXPECT_FALSE(handset.AgentRuns());
}

TEST(Handset, RefusesWhatIsThereUnlessToldToReplace) {
    Handset handset(DeliveredProfile(0));
    ASSERT_TRUE(handset.PutFile(kPushed, AgentFile(20)));
    EXPECT_EQ(handset.Install(kPushed, false), "Failure [INSTALL_FAILED_ALREADY_EXISTS]");
}

TEST(Handset, RefusesAFileThatIsNoPackage) {
    Handset handset(DeliveredProfile(0));
    ASSERT_TRUE(handset.PutFile("/data/local/tmp/notes.apk", {0100644, 0, ToBytes("notes")}));
    EXPECT_EQ(handset.Install("/data/local/tmp/notes.apk", true),
              "Failure [INSTALL_PARSE_FAILED_NOT_APK]");
}

TEST(Handset, NamesAnArchiveAfterItsFile) {
    Handset handset(DeliveredProfile(0));
    ASSERT_TRUE(
        handset.PutFile("/sdcard/com.example.game.apk", {0100644, 0, ToBytes("PK\x03\x04")}));
    EXPECT_EQ(handset.Install("/sdcard/com.example.game.apk", true), "Success");
    EXPECT_TRUE(handset.FindApp("com.example.game"));
}

TEST(Handset, AnswersTheInstallResultThatItWasTold) {
    Handset handset(DeliveredProfile(0));
    handset.SetAgent(7);
    ASSERT_TRUE(handset.PutFile(kPushed, AgentFile(20)));
    handset.SetInstallResult("INSTALL_FAILED_INSUFFICIENT_STORAGE");
    EXPECT_EQ(handset.Install(kPushed, true), "Failure [INSTALL_FAILED_INSUFFICIENT_STORAGE]");
    EXPECT_EQ(handset.AgentVersion(), 7u);
}

TEST(Handset, KeepsTheSystemsOwnPackages) {
    Handset handset(DeliveredProfile(0));
    EXPECT_FALSE(handset.Uninstall("com.android.phone"));
    EXPECT_TRUE(handset.Uninstall("com.example.weather"));
    EXPECT_FALSE(handset.Uninstall("com.example.weather"));
}

TEST(Handset, TellsOfWhatWasUninstalled) {
    Handset handset(DeliveredProfile(0));
    std::string told;
    const Subscription heard =
        handset.Uninstalled().Add([&](const std::string& package) { told += package; });
    EXPECT_FALSE(handset.Uninstall("com.android.phone"));
    EXPECT_TRUE(handset.Uninstall("com.example.weather"));
    EXPECT_EQ(told, "com.example.weather");
}

TEST(Handset, WhatReplacesAnApplicationKeepsItsNameAndItsPlace) {
    Handset handset(DeliveredProfile(0));
    ASSERT_TRUE(handset.PutFile("/sdcard/android.apk", {0100644, 0, ToBytes("PK\x03\x04")}));
    const InstalledApp before = handset.Apps().front();
    EXPECT_EQ(handset.Install("/sdcard/android.apk", true), "Success");
    const InstalledApp& after = handset.Apps().front();
    EXPECT_EQ(after.package, "android");
    EXPECT_EQ(after.name, before.name);
    EXPECT_TRUE(after.system);
    EXPECT_EQ(after.size, 4u);
}

TEST(Handset, AnAgentThatIsNotInstalledDoesNotStart) {
    Handset handset(DeliveredProfile(0));
    handset.SetAgent(std::nullopt);
    EXPECT_FALSE(handset.StartAgent());
    EXPECT_FALSE(handset.AgentRuns());
}

TEST(Handset, TakesNoMoreThanItsStorageHolds) {
    Handset handset(DeliveredProfile(0));
    StoredFile huge;
    huge.bytes.resize(kMaxStoredBytes);
    ASSERT_TRUE(handset.PutFile("/sdcard/huge", std::move(huge)));
    EXPECT_FALSE(handset.PutFile("/sdcard/more", {0100644, 0, ToBytes("x")}));
    handset.RemoveFile("/sdcard/huge");
    EXPECT_TRUE(handset.PutFile("/sdcard/more", {0100644, 0, ToBytes("x")}));
}

TEST(DeliveredProfile, TellsPhonesApartHoweverMany) {
    EXPECT_NE(DeliveredProfile(0).serial, DeliveredProfile(3).serial);
    EXPECT_EQ(DeliveredProfile(0).model, DeliveredProfile(3).model);
}

}  // namespace
}  // namespace quorvi::phone
