// Run under umockdev-wrapper, which puts the testbed's devices and events in place of the system's.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <umockdev.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <vector>

#include "link/UsbWatch.h"
#include "tests/support/FakeAdb.h"

namespace quorvi {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

// What a listener heard: "+path" and "-path".
class Heard {
  public:
    UsbWatch::Listener Listener() {
        return [this](const UsbEvent& event) {
            const std::lock_guard lock(mutex_);
            events_.push_back((event.kind == UsbEvent::Kind::arrival ? "+" : "-") +
                              event.devicePath);
            serials_.push_back(event.serial);
            changed_.notify_all();
        };
    }
    // Whether this many events came: waits for them.
    bool Came(std::size_t count) {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(lock, 60s, [&] { return events_.size() >= count; });
    }
    // The events before `last`, for which it waits.
    std::vector<std::string> Before(const std::string& last) {
        std::unique_lock lock(mutex_);
        const auto found = [&] { return std::find(events_.begin(), events_.end(), last); };
        EXPECT_TRUE(changed_.wait_for(lock, 60s, [&] { return found() != events_.end(); }));
        return {events_.begin(), found()};
    }
    std::vector<std::string> Events() {
        const std::lock_guard lock(mutex_);
        return events_;
    }

    // Of each event.
    std::vector<std::string> Serials() {
        const std::lock_guard lock(mutex_);
        return serials_;
    }

  private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<std::string> events_;
    std::vector<std::string> serials_;
};

struct Interface {
    const char* number;    // class, subclass and protocol as the attributes have them
    const char* subclass;  //
    const char* protocol;  //
    const char* property;  // the same in the event
};
constexpr Interface kAdb{"ff", "42", "01", "255/66/1"};
constexpr Interface kStorage{"08", "06", "50", "8/6/80"};
constexpr Interface kVendor{"ff", "ff", "00", "255/255/0"};

class UsbWatchTest : public testing::Test {
  protected:
    UsbWatchTest() : testbed_(umockdev_testbed_new()) {}
    ~UsbWatchTest() override { g_object_unref(testbed_); }

    std::string AddDevice(const char* name) {
        gchar* const path = umockdev_testbed_add_device(
            testbed_, "usb", name, nullptr,                    //
            "idVendor", "0bb4", "idProduct", "0c87", nullptr,  // attributes
            "DEVTYPE", "usb_device", nullptr);                 // properties
        return Take(path);
    }
    void SetSerial(const std::string& device, const char* serial) {
        umockdev_testbed_set_attribute(testbed_, device.c_str(), "serial", serial);
    }
    std::string AddInterface(const std::string& device, const char* name, const Interface& is) {
        gchar* const path = umockdev_testbed_add_device(
            testbed_, "usb", name, device.c_str(),  //
            "bInterfaceClass", is.number, "bInterfaceSubClass", is.subclass, "bInterfaceProtocol",
            is.protocol, nullptr,                                            // attributes
            "DEVTYPE", "usb_interface", "INTERFACE", is.property, nullptr);  // properties
        return Take(path);
    }
    void Remove(const std::string& path) {
        umockdev_testbed_uevent(testbed_, path.c_str(), "remove");
        umockdev_testbed_remove_device(testbed_, path.c_str());
    }
    void Tell(const std::string& path, const char* action) {
        umockdev_testbed_uevent(testbed_, path.c_str(), action);
    }

    // All that was told so far: events come in their order, and a last phone shows the end.
    std::vector<std::string> Told() {
        const std::string last = AddDevice("9-9");
        AddInterface(last, "9-9:1.0", kAdb);
        return heard_.Before("+" + last);
    }

    Heard heard_;
    UsbWatch watch_;

  private:
    static std::string Take(gchar* path) {
        std::string taken(path);
        g_free(path);
        return taken;
    }

    UMockdevTestbed* testbed_;
};

TEST_F(UsbWatchTest, PhoneInAdbModeIsRecognised) {
    const std::string phone = AddDevice("1-1");
    AddInterface(phone, "1-1:1.0", kStorage);
    EXPECT_FALSE(IsAdbUsbDevice(phone));
    AddInterface(phone, "1-1:1.1", kAdb);
    EXPECT_TRUE(IsAdbUsbDevice(phone));
}

TEST_F(UsbWatchTest, OtherDevicesAreNoPhones) {
    const std::string stick = AddDevice("1-1");
    AddInterface(stick, "1-1:1.0", kStorage);
    const std::string other = AddDevice("1-2");
    AddInterface(other, "1-2:1.0", kVendor);
    const std::string phone = AddDevice("1-3");
    AddInterface(phone, "1-3:1.0", kAdb);
    EXPECT_FALSE(IsAdbUsbDevice(stick));
    EXPECT_FALSE(IsAdbUsbDevice(other));
}

TEST_F(UsbWatchTest, PathThatIsNoDeviceIsNoPhone) {
    EXPECT_FALSE(IsAdbUsbDevice(""));
    EXPECT_FALSE(IsAdbUsbDevice("/sys/devices/9-9"));
    EXPECT_FALSE(IsAdbUsbDevice("\\\\?\\usb"));
}

TEST_F(UsbWatchTest, ArrivalIsToldOnceADevice) {
    ASSERT_TRUE(watch_.Start(heard_.Listener()));
    const std::string phone = AddDevice("1-1");
    AddInterface(phone, "1-1:1.0", kStorage);
    const std::string adb = AddInterface(phone, "1-1:1.1", kAdb);
    Tell(adb, "add");  // a second time
    EXPECT_THAT(Told(), ElementsAre("+" + phone));
}

TEST_F(UsbWatchTest, ArrivalOfAnotherDeviceIsNotTold) {
    ASSERT_TRUE(watch_.Start(heard_.Listener()));
    const std::string stick = AddDevice("1-1");
    const std::string storage = AddInterface(stick, "1-1:1.0", kStorage);
    Remove(storage);
    Remove(stick);
    const std::string phone = AddDevice("1-2");
    AddInterface(phone, "1-2:1.0", kAdb);
    EXPECT_THAT(Told(), ElementsAre("+" + phone));
}

TEST_F(UsbWatchTest, RemovalIsToldOnceADevice) {
    ASSERT_TRUE(watch_.Start(heard_.Listener()));
    const std::string phone = AddDevice("1-1");
    const std::string adb = AddInterface(phone, "1-1:1.0", kAdb);
    ASSERT_TRUE(heard_.Came(1));
    Remove(adb);
    Remove(phone);
    EXPECT_THAT(Told(), ElementsAre("+" + phone, "-" + phone));
}

TEST_F(UsbWatchTest, RemovalRemembersWhatTheArrivalShowed) {
    ASSERT_TRUE(watch_.Start(heard_.Listener()));
    const std::string phone = AddDevice("1-1");
    AddInterface(phone, "1-1:1.0", kAdb);
    ASSERT_TRUE(heard_.Came(1));
    Remove(phone);  // with all below it, and no word of the interface
    EXPECT_THAT(Told(), ElementsAre("+" + phone, "-" + phone));
}

TEST_F(UsbWatchTest, PhoneThatWasThereBeforeIsToldWhenItGoes) {
    const std::string phone = AddDevice("1-1");
    AddInterface(phone, "1-1:1.0", kAdb);
    ASSERT_TRUE(watch_.Start(heard_.Listener()));
    Remove(phone);
    EXPECT_THAT(Told(), ElementsAre("-" + phone));
}

TEST_F(UsbWatchTest, DeviceEventAloneShowsItsInterfaces) {
    const std::string phone = AddDevice("1-1");
    AddInterface(phone, "1-1:1.0", kAdb);
    ASSERT_TRUE(watch_.Start(heard_.Listener()));
    Tell(phone, "add");
    EXPECT_THAT(Told(), ElementsAre("+" + phone));
}

TEST_F(UsbWatchTest, PhoneThatComesBackIsToldAgain) {
    ASSERT_TRUE(watch_.Start(heard_.Listener()));
    std::vector<std::string> expected;
    for (int round = 0; round < 2; ++round) {
        const std::string phone = AddDevice("1-1");
        const std::string adb = AddInterface(phone, "1-1:1.0", kAdb);
        expected.push_back("+" + phone);
        ASSERT_TRUE(heard_.Came(expected.size()));
        Remove(adb);
        Remove(phone);
        expected.push_back("-" + phone);
        ASSERT_TRUE(heard_.Came(expected.size()));
    }
    EXPECT_EQ(Told(), expected);
}

TEST_F(UsbWatchTest, BothEventsBearThePhonesSerial) {
    const std::string before = AddDevice("1-1");
    SetSerial(before, "HT04CPL00123\n");
    AddInterface(before, "1-1:1.0", kAdb);
    ASSERT_TRUE(watch_.Start(heard_.Listener()));
    Remove(before + "/1-1:1.0");
    Remove(before);
    const std::string phone = AddDevice("1-2");
    SetSerial(phone, "R58M12345AB\n");
    const std::string interface = AddInterface(phone, "1-2:1.0", kAdb);
    ASSERT_TRUE(heard_.Came(2));
    Remove(interface);
    Remove(phone);
    EXPECT_THAT(Told(), ElementsAre("-" + before, "+" + phone, "-" + phone));
    // The last one, which shows the end, tells none.
    EXPECT_THAT(heard_.Serials(), ElementsAre("HT04CPL00123", "R58M12345AB", "R58M12345AB", ""));
}

TEST_F(UsbWatchTest, TwoPhonesAreToldApart) {
    ASSERT_TRUE(watch_.Start(heard_.Listener()));
    const std::string one = AddDevice("1-1");
    AddInterface(one, "1-1:1.0", kAdb);
    const std::string two = AddDevice("1-2");
    const std::string adb = AddInterface(two, "1-2:1.0", kAdb);
    ASSERT_TRUE(heard_.Came(2));
    Remove(adb);
    EXPECT_THAT(Told(), ElementsAre("+" + one, "+" + two, "-" + two));
}

TEST_F(UsbWatchTest, NothingIsHeardBehindAStop) {
    Heard stopped;
    UsbWatch other;
    ASSERT_TRUE(other.Start(stopped.Listener()));
    ASSERT_TRUE(watch_.Start(heard_.Listener()));
    other.Stop();
    const std::string phone = AddDevice("1-1");
    AddInterface(phone, "1-1:1.0", kAdb);
    EXPECT_THAT(Told(), ElementsAre("+" + phone));
    EXPECT_THAT(stopped.Events(), IsEmpty());
}

TEST_F(UsbWatchTest, StartAndStopLeaveNothingBehind) {
    ASSERT_TRUE(watch_.Start(heard_.Listener()));
    watch_.Stop();
    const int descriptors = OpenDescriptors();
    for (int run = 0; run < 50; ++run) {
        ASSERT_TRUE(watch_.Start(heard_.Listener()));
    }
    watch_.Stop();
    EXPECT_EQ(OpenDescriptors(), descriptors);
}

}  // namespace
}  // namespace quorvi
