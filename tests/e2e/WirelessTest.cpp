// Phones in the network over the real adb: they are reached by an address, and no port of theirs is
// one that adb looks at by itself.
#include <gtest/gtest.h>

#include <mutex>

#include "link/DeviceList.h"
#include "link/DeviceTracker.h"
#include "link/PhonePresence.h"
#include "link/WirelessLink.h"
#include "tests/support/Await.h"
#include "tests/support/PhoneRig.h"

namespace quorvi::e2e {
namespace {

phone::PhoneOptions InTheNetwork() {
    phone::PhoneOptions phone;
    phone.profile = phone::DeliveredProfile(0);
    phone.adbPort = 0;
    phone.announce = false;
    return phone;
}

class Wireless : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(rig_.Error(), "");
        ASSERT_EQ(phones_.Error(), "");
    }
    [[nodiscard]] std::string Address() {
        return "127.0.0.1:" + std::to_string(phones_.AdbPort(0));
    }

    PhoneRig rig_{0};
    phone::RunningPhones phones_{{{InTheNetwork()}, std::nullopt}};
};

TEST_F(Wireless, AnAddressIsConnectedListedAndMarked) {
    EXPECT_EQ(ConnectWireless(Address()), ConnectResult::connected);
    EXPECT_EQ(ConnectWireless(Address()), ConnectResult::connected);  // and stays so
    const DeviceList list = ListDevices();
    ASSERT_EQ(list.rows.size(), 1U);
    EXPECT_EQ(list.rows[0].record.serial, Address());
    EXPECT_EQ(list.rows[0].record.connectionKind, 1U);
    EXPECT_FALSE(list.rows[0].properties.model.empty());
}

TEST_F(Wireless, TheServersListTellsOfItAndOfItsUsersConsent) {
    phones_.Control(0, "debugging asks");
    std::mutex mutex;
    std::vector<TrackedDevices> lists;
    const auto heard = [&] {
        const std::lock_guard lock(mutex);
        return lists.empty() ? TrackedDevices{{"nothing yet", DeviceState::other}} : lists.back();
    };
    DeviceTracker tracker(rig_.AdbServerPort());
    ASSERT_TRUE(tracker.Start([&](const TrackedDevices& devices) {
        const std::lock_guard lock(mutex);
        lists.push_back(devices);
    }));
    ASSERT_TRUE(Await([&] { return heard().empty(); }));
    EXPECT_EQ(ConnectWireless(Address()), ConnectResult::notAllowed);
    EXPECT_TRUE(Await([&] {
        return heard() == TrackedDevices{{Address(), DeviceState::unauthorized}};
    }));
    phones_.Control(0, "debugging allowed");
    EXPECT_TRUE(Await([&] { return heard() == TrackedDevices{{Address(), DeviceState::ready}}; }));
}

TEST_F(Wireless, APhoneThatDoesNotAnswerIsOffline) {
    phones_.Control(0, "debugging silent");
    EXPECT_FALSE(rig_.Adb({"connect", Address()}).output.empty());
    const std::string list = rig_.AskServer("host:devices").value_or("");
    EXPECT_EQ(TroubleOf(ParseTrackedDevices(list.substr(4))), LinkTrouble::offline) << list;
}

TEST_F(Wireless, NobodyAtAnAddressIsTold) {
    const std::string address = Address();
    phones_.Control(0, "unplug");
    EXPECT_EQ(ConnectWireless(address), ConnectResult::failed);
}

TEST_F(Wireless, AnAdbThatCannotPairIsTold) {
    const PairResult result = PairWireless(Address(), "123456");
    EXPECT_TRUE(result == PairResult::tooOld || result == PairResult::failed);
}

}  // namespace
}  // namespace quorvi::e2e
