#include <gmock/gmock.h>

#include "link/LinkAdvice.h"
#include "link/PhonePresence.h"

namespace quorvi {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr PresenceEvent kArrival = PresenceEvent::arrival;
constexpr PresenceEvent kCableRemoval = PresenceEvent::cableRemoval;
constexpr PresenceEvent kWirelessRemoval = PresenceEvent::wirelessRemoval;
constexpr PresenceEvent kConnect = PresenceEvent::connect;

TrackedDevice Ready(const char* serial) {
    return {serial, DeviceState::ready};
}
TrackedDevice Waiting(const char* serial) {
    return {serial, DeviceState::unauthorized};
}

class PhonePresenceTest : public testing::Test {
  protected:
    auto Plug(const char* serial, const char* path = "/sys/devices/1-1") {
        return presence_.OnUsb({UsbEvent::Kind::arrival, path, serial});
    }
    auto Pull(const char* serial, const char* path = "/sys/devices/1-1") {
        return presence_.OnUsb({UsbEvent::Kind::removal, path, serial});
    }
    auto List(const TrackedDevices& devices) { return presence_.OnDevices(devices); }
    // A link procedure from its start to its end.
    auto Run(FindDeviceResult found, const char* linked = "") {
        presence_.OnLinkStarted();
        presence_.OnSearched(found);
        if (*linked != '\0') {
            presence_.OnLinkUp(linked);
        }
        return presence_.OnLinkEnded();
    }
    // The program has started without a phone, and adb lists none.
    void StartAlone() {
        EXPECT_THAT(Run(FindDeviceResult::noDevice), IsEmpty());
        EXPECT_THAT(List({}), IsEmpty());
    }

    PhonePresence presence_;
};

TEST_F(PhonePresenceTest, PhonesOfTheFirstListRaiseNoArrival) {
    presence_.OnLinkStarted();
    EXPECT_THAT(List({Ready("one"), Waiting("two")}), IsEmpty());
}

TEST_F(PhonePresenceTest, APhoneThatOnlyAdbSeesArrivesAndGoes) {
    StartAlone();
    EXPECT_THAT(List({Ready("one")}), ElementsAre(kArrival));
    EXPECT_THAT(List({Ready("one")}), IsEmpty());
    EXPECT_THAT(List({}), ElementsAre(kCableRemoval));
    EXPECT_THAT(List({Ready("one")}), ElementsAre(kArrival));
}

TEST_F(PhonePresenceTest, APhoneInTheNetworkGoesAsOne) {
    StartAlone();
    EXPECT_THAT(List({Ready("10.0.0.2:5555")}), ElementsAre(kArrival));
    EXPECT_THAT(List({}), ElementsAre(kWirelessRemoval));
}

TEST_F(PhonePresenceTest, OneThatBothSeeIsToldOnceWhoeverIsFirst) {
    StartAlone();
    EXPECT_THAT(Plug("one"), ElementsAre(kArrival));
    presence_.OnLinkStarted();
    EXPECT_THAT(List({Waiting("one")}), IsEmpty());
    EXPECT_THAT(Pull("one"), ElementsAre(kCableRemoval));
    EXPECT_THAT(List({}), IsEmpty());

    EXPECT_THAT(List({Waiting("one")}), ElementsAre(kArrival));
    EXPECT_THAT(Plug("one"), IsEmpty());
    EXPECT_THAT(List({}), IsEmpty());  // the cable is still in
    EXPECT_THAT(Pull("one"), ElementsAre(kCableRemoval));
}

TEST_F(PhonePresenceTest, ARemovalIsToldOnceForAPhoneThatWasThereBefore) {
    presence_.OnLinkStarted();
    static_cast<void>(List({Ready("one"), Ready("two")}));
    EXPECT_THAT(Pull("one", "/sys/devices/1-1"), ElementsAre(kCableRemoval));
    EXPECT_THAT(List({Ready("one"), Ready("two"), Waiting("three")}), ElementsAre(kArrival));
    EXPECT_THAT(List({Ready("two"), Waiting("three")}), IsEmpty());
    // adb's list is the first to lose it.
    EXPECT_THAT(List({Waiting("three")}), ElementsAre(kCableRemoval));
    EXPECT_THAT(Pull("two", "/sys/devices/1-2"), IsEmpty());
}

TEST_F(PhonePresenceTest, ARemovalIsToldWhereNoServerRuns) {
    EXPECT_THAT(Pull("one"), ElementsAre(kCableRemoval));
}

TEST_F(PhonePresenceTest, APhoneThatIsPulledAndPluggedQuicklyArrivesAgain) {
    presence_.OnLinkStarted();
    static_cast<void>(List({Ready("one")}));
    EXPECT_THAT(Pull("one"), ElementsAre(kCableRemoval));
    EXPECT_THAT(Plug("one"), ElementsAre(kArrival));
    // adb has seen neither.
    EXPECT_THAT(List({Ready("one")}), IsEmpty());
}

TEST_F(PhonePresenceTest, ACableWithoutASerialIsTheOneThatAdbNames) {
    StartAlone();
    EXPECT_THAT(Plug(""), ElementsAre(kArrival));
    presence_.OnLinkStarted();
    EXPECT_THAT(List({Waiting("10.0.0.2:5555"), Waiting("(no serial number)")}),
                ElementsAre(kArrival));  // the wireless one
    EXPECT_THAT(Pull(""), ElementsAre(kCableRemoval));
}

TEST_F(PhonePresenceTest, TwoCablesAreToldApartByTheirPaths) {
    StartAlone();
    EXPECT_THAT(Plug("one", "/sys/devices/1-1"), ElementsAre(kArrival));
    EXPECT_THAT(Plug("two", "/sys/devices/1-2"), ElementsAre(kArrival));
    EXPECT_THAT(Pull("", "/sys/devices/1-2"), ElementsAre(kCableRemoval));
    EXPECT_THAT(Pull("", "/sys/devices/1-1"), ElementsAre(kCableRemoval));
}

TEST_F(PhonePresenceTest, TheLinkComesUpOnceThePhoneAllowsIt) {
    StartAlone();
    EXPECT_THAT(Plug("one"), ElementsAre(kArrival));
    EXPECT_THAT(Run(FindDeviceResult::noDevice), IsEmpty());
    EXPECT_THAT(List({Waiting("one")}), IsEmpty());
    EXPECT_THAT(List({Ready("one")}), ElementsAre(kConnect));
    EXPECT_THAT(Run(FindDeviceResult::found, "one"), IsEmpty());
    EXPECT_THAT(List({Ready("one")}), IsEmpty());
}

TEST_F(PhonePresenceTest, APhoneThatAllowsItWhileASearchRunsIsSearchedForAgain) {
    StartAlone();
    EXPECT_THAT(Plug("one"), ElementsAre(kArrival));
    presence_.OnLinkStarted();
    presence_.OnSearched(FindDeviceResult::noDevice);
    EXPECT_THAT(List({Waiting("one")}), IsEmpty());
    EXPECT_THAT(List({Ready("one")}), IsEmpty());
    EXPECT_THAT(presence_.OnLinkEnded(), ElementsAre(kConnect));
    // Once: the second search that finds nothing is the last.
    EXPECT_THAT(Run(FindDeviceResult::noDevice), IsEmpty());
}

TEST_F(PhonePresenceTest, APhoneThatASearchFindsIsNotSearchedForAgainWhenTheLinkFails) {
    StartAlone();
    EXPECT_THAT(Plug("one"), ElementsAre(kArrival));
    presence_.OnLinkStarted();
    EXPECT_THAT(List({Ready("one")}), IsEmpty());
    presence_.OnSearched(FindDeviceResult::found);
    EXPECT_THAT(presence_.OnLinkEnded(), IsEmpty());
}

TEST_F(PhonePresenceTest, AServerThatListsItsPhonesOnlyAfterTheFirstSearchIsWaitedFor) {
    EXPECT_THAT(Run(FindDeviceResult::noDevice), IsEmpty());
    EXPECT_THAT(List({Ready("one")}), ElementsAre(kConnect));
}

TEST_F(PhonePresenceTest, TheFirstListBringsNoSecondSearchWhereTheFirstFoundAPhone) {
    EXPECT_THAT(Run(FindDeviceResult::found), IsEmpty());
    EXPECT_THAT(List({Ready("one")}), IsEmpty());
}

TEST_F(PhonePresenceTest, AStandingLinkIsLeftAloneWhenAnotherPhoneBecomesReady) {
    presence_.OnLinkStarted();
    static_cast<void>(List({Ready("one"), Waiting("two")}));
    EXPECT_THAT(Run(FindDeviceResult::found, "one"), IsEmpty());
    EXPECT_THAT(List({Ready("one"), Ready("two")}), IsEmpty());
}

TEST_F(PhonePresenceTest, APhoneThatAnswersAgainIsLinkedAgain) {
    presence_.OnLinkStarted();
    static_cast<void>(List({Ready("one")}));
    EXPECT_THAT(Run(FindDeviceResult::found, "one"), IsEmpty());
    EXPECT_THAT(List({{"one", DeviceState::offline}}), IsEmpty());
    EXPECT_THAT(List({Ready("one")}), ElementsAre(kConnect));
}

TEST_F(PhonePresenceTest, NothingIsStartedBeforeTheProgramsOwnFirstSearch) {
    EXPECT_THAT(List({Ready("one")}), IsEmpty());
}

TEST_F(PhonePresenceTest, AUserWhoChoseNoPhoneIsNotAskedAgain) {
    presence_.OnLinkStarted();
    static_cast<void>(List({Ready("one"), Ready("two")}));
    EXPECT_THAT(Run(FindDeviceResult::noneChosen), IsEmpty());
}

TEST_F(PhonePresenceTest, ALinkThatCouldNotStartEndsToo) {
    presence_.OnLinkStarted();
    EXPECT_THAT(presence_.OnLinkEnded(), IsEmpty());
    static_cast<void>(List({}));
    EXPECT_THAT(List({Ready("one")}), ElementsAre(kArrival));
}

TEST_F(PhonePresenceTest, OfTwoPhonesOfOneSerialTheReadyOneCounts) {
    StartAlone();
    EXPECT_THAT(List({Ready("one"), {"one", DeviceState::offline}}), ElementsAre(kArrival));
    EXPECT_THAT(Run(FindDeviceResult::found, "one"), IsEmpty());
    EXPECT_THAT(List({{"one", DeviceState::offline}, Ready("one")}), IsEmpty());
}

TEST(LinkTrouble, TheOneNearestToMendingIsTold) {
    const TrackedDevice offline{"a", DeviceState::offline};
    const TrackedDevice closed{"b", DeviceState::noPermissions};
    const TrackedDevice starting{"c", DeviceState::other};
    EXPECT_EQ(TroubleOf({}), LinkTrouble::none);
    EXPECT_EQ(TroubleOf({starting}), LinkTrouble::none);
    EXPECT_EQ(TroubleOf({offline}), LinkTrouble::offline);
    EXPECT_EQ(TroubleOf({offline, closed}), LinkTrouble::noPermissions);
    EXPECT_EQ(TroubleOf({offline, closed, Waiting("d")}), LinkTrouble::unauthorized);
    EXPECT_EQ(TroubleOf({offline, Ready("e"), Waiting("d")}), LinkTrouble::none);
}

TEST(LinkAdvice, EachTroubleSaysWhatToDo) {
    EXPECT_TRUE(AdviceOn(LinkTrouble::none).tip.empty());
    for (const LinkTrouble trouble :
         {LinkTrouble::unauthorized, LinkTrouble::noPermissions, LinkTrouble::offline}) {
        const LinkAdvice& advice = AdviceOn(trouble);
        EXPECT_FALSE(advice.tip.empty());
        EXPECT_FALSE(advice.headline.empty());
        EXPECT_FALSE(advice.remark.empty());
        for (const std::u8string_view step : advice.steps) {
            EXPECT_FALSE(step.empty());
        }
    }
    EXPECT_NE(AdviceOn(LinkTrouble::noPermissions).tip.find(u8"android-sdk-platform-tools-common"),
              std::u8string_view::npos);
}

}  // namespace
}  // namespace quorvi
