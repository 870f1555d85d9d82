#include "phone/agent/AgentData.h"

#include "base/Utf8.h"

namespace quorvi::phone {
namespace {

// The phone had been on for two days and some hours when the cable was plugged in.
constexpr std::uint64_t kUpBefore = ((2 * 24 + 7) * 60 + 41) * 60'000ULL;

PhoneFacts DeliveredFacts() {
    return {
        .imei = "355402041234567",
        .imsi = "460002512345678",
        .cpu = "ARMv7 Processor rev 2 (v7l) 1.0 GHz",
        .ram = "341 MB",
        .rom = "612 MB / 1.07 GB",
        .sdCard = "5.62 GB / 7.39 GB",
        .mobileNetwork = Utf8(u8"中国移动 (EDGE)"),
        .wifiNetwork = Utf8(u8"三号楼的家 (72 Mbps)"),
    };
}

constexpr std::array<std::uint32_t, kPhoneSettings> kDeliveredSettings{
    1,       // WiFi
    0,       // Bluetooth
    0,       // aeroplane mode
    0,       // GPS
    1,       // gravity sensor
    1,       // vibration
    30'000,  // backlight, milliseconds
    5,       // ring volume
    9,       // music volume
    1,       // 24 hours
    0,       // date format
};

// Values that no user can choose.
constexpr std::array<std::uint32_t, kPhoneSettings> kHostileSettings{
    2, 0xFFFFFFFF, 0, 0, 1, 1, 45'000, 9, 16, 2, 3};

}  // namespace

AgentData::AgentData(Handset& phone)
    : handset(phone),
      facts(DeliveredFacts()),
      uninstalled_(
          phone.Uninstalled().Add([this](const std::string& package) { Forget(package); })) {
    Fill({});
}

void AgentData::Fill(const DataAmounts& amounts) {
    amounts_ = amounts;
    book = amounts.contacts ? LargeAddressBook(*amounts.contacts, amounts.photoBytes)
                            : DeliveredAddressBook();
    messages = amounts.conversations ? LargeMessageStore(*amounts.conversations, amounts.messages)
                                     : DeliveredMessages();
    calls = amounts.calls ? LargeCallRecords(*amounts.calls) : DeliveredCalls(book);
    clock = amounts.alarms ? LargeAlarmClock(*amounts.alarms) : DeliveredAlarms();
    bookmarks = amounts.bookmarks ? LargeBookmarkStore(*amounts.bookmarks, amounts.photoBytes)
                                  : DeliveredBookmarks();
    autoStarts = amounts.autoStarts ? LargeAutoStarts(*amounts.autoStarts) : DeliveredAutoStarts();
    files = amounts.files ? LargeFileSystem(*amounts.files) : DeliveredFiles();
    processes = amounts.processes ? LargeProcesses(*amounts.processes, amounts.iconBytes)
                                  : DeliveredProcesses();
    cleaning = amounts.caches ? LargeCleanRecords(*amounts.caches, amounts.iconBytes)
                              : DeliveredCleanRecords();
    handset.SetApps(amounts.applications ? LargeApps(*amounts.applications, amounts.iconBytes)
                                         : DeliveredApps());
    claimedApps = amounts.hostile ? HostileApps() : std::vector<InstalledApp>();
    settings_ = amounts.hostile ? kHostileSettings : kDeliveredSettings;
    if (amounts.hostile) {
        AddHostileContacts(book);
        AddHostileMessages(messages);
        AddHostileAlarms(clock);
        AddHostileBookmarks(bookmarks);
        AddHostileAutoStarts(autoStarts);
        AddHostileProcesses(processes);
        AddHostileFiles(files);
        AddHostileCaches(cleaning);
    }
}

void AgentData::Forget(const std::string& package) {
    processes.End(package);
    cleaning.Clean(package);
    std::erase_if(autoStarts, [&](const AutoStart& start) { return start.package == package; });
}

std::uint64_t AgentData::MillisecondsSinceBoot() const {
    const auto up = std::chrono::steady_clock::now() - start_;
    return kUpBefore + static_cast<std::uint64_t>(
                           std::chrono::duration_cast<std::chrono::milliseconds>(up).count());
}

}  // namespace quorvi::phone
