// All that the agent reads from and changes on its phone. Text is UTF-8.
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "agent/PhoneSettings.h"
#include "phone/Handset.h"
#include "phone/agent/AddressBook.h"
#include "phone/agent/AlarmClock.h"
#include "phone/agent/AutoStartRecords.h"
#include "phone/agent/BookmarkStore.h"
#include "phone/agent/CallRecords.h"
#include "phone/agent/CleanRecords.h"
#include "phone/agent/FileSystem.h"
#include "phone/agent/MessageStore.h"
#include "phone/agent/ProcessRecords.h"

namespace quorvi::phone {

// What stands in the record of all system information, beside what the profile says.
struct PhoneFacts {
    std::string imei;
    std::string imsi;
    std::string cpu;
    std::string ram;  // the whole of it
    std::string rom;
    std::string sdCard;
    std::string mobileNetwork;
    std::string wifiNetwork;
    std::uint32_t brightness = 112;  // 0 to 255
};

// How much the phone holds: what is delivered, or made up in the number asked for.
struct DataAmounts {
    std::optional<std::uint32_t> contacts{};
    // Of made-up contacts and bookmarks: bytes of each photo or thumbnail, 0 for none.
    std::uint32_t photoBytes = 0;
    std::optional<std::uint32_t> conversations{};
    // Of the newest made-up conversation.
    std::uint32_t messages = 1;
    std::optional<std::uint32_t> calls{};
    std::optional<std::uint32_t> alarms{};
    std::optional<std::uint32_t> bookmarks{};
    std::optional<std::uint32_t> autoStarts{};
    std::optional<std::uint32_t> files{};
    std::optional<std::uint32_t> processes{};
    std::optional<std::uint32_t> caches{};
    std::optional<std::uint32_t> applications{};  // beside the agent
    // Of made-up processes, caches and applications: bytes of each icon, 0 for none.
    std::uint32_t iconBytes = 0;
    bool hostile = false;
};

class AgentData {
  public:
    // `handset` is the phone that the agent runs on, and must live longer.
    explicit AgentData(Handset& handset);

    // Fills the phone anew; what was changed on it is gone, applications that adb installed too.
    void Fill(const DataAmounts& amounts);
    [[nodiscard]] const DataAmounts& Amounts() const { return amounts_; }

    Handset& handset;
    // Applications that the agent lists and that are not installed.
    std::vector<InstalledApp> claimedApps;
    PhoneFacts facts;
    AddressBook book;
    MessageStore messages;
    CallRecords calls;
    AlarmClock clock;
    BookmarkStore bookmarks;
    AutoStartRecords autoStarts;
    FileSystem files;
    ProcessRecords processes;
    CleanRecords cleaning;

    [[nodiscard]] std::uint32_t& Setting(PhoneSetting setting) {
        return settings_[static_cast<std::size_t>(setting)];
    }

    [[nodiscard]] std::uint64_t MillisecondsSinceBoot() const;

  private:
    // What belongs to an application goes with it.
    void Forget(const std::string& package);

    Subscription uninstalled_;
    DataAmounts amounts_;
    std::array<std::uint32_t, kPhoneSettings> settings_{};  // in the order of the keys
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

}  // namespace quorvi::phone
