#include "pages/phonesettings/PhoneSettings.h"

#include "base/Format.h"

namespace quorvi {
namespace {

// The highest steps that a read value may have.
constexpr std::uint32_t kRingVolumeLimit = 10;
constexpr std::uint32_t kMusicVolumeLimit = 15;

constexpr std::size_t kFirstEntry = 0;

std::size_t BacklightEntry(std::uint32_t milliseconds) {
    const std::int32_t seconds = WholeSeconds(static_cast<std::int32_t>(milliseconds));
    const auto entries = RowOf(PhoneSetting::backlight).entries;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (WholeSeconds(static_cast<std::int32_t>(entries[i].value)) == seconds) {
            return i;
        }
    }
    return kFirstEntry;
}

}  // namespace

std::optional<PhoneSettingValues> ParsePhoneSettings(const ReplyBuffer& reply) {
    ReplyCursor cursor(reply);
    std::array<std::uint32_t, kPhoneSettings> fields{};
    for (std::uint32_t& field : fields) {
        field = cursor.TakeUInt32();
    }
    if (cursor.Overran()) {
        return std::nullopt;
    }
    PhoneSettingValues values;
    for (const PhoneSettingRow& row : PhoneSettingTable()) {
        values.Set(row.key, fields[row.place]);
    }
    return values;
}

PhoneSettingsReply FetchPhoneSettings(const AgentSession& session) {
    const PayloadReply reply = session.RunPayload(BareRequest(AgentCommand::readSettings));
    return {reply.outcome, reply.HasPayload() ? ParsePhoneSettings(reply.buffer) : std::nullopt};
}

std::optional<std::size_t> EntryShown(PhoneSetting setting, std::uint32_t value) {
    std::size_t entry = value;
    if (setting == PhoneSetting::backlight) {
        entry = BacklightEntry(value);
    } else if ((setting == PhoneSetting::ringVolume && value > kRingVolumeLimit) ||
               (setting == PhoneSetting::musicVolume && value > kMusicVolumeLimit)) {
        entry = kFirstEntry;
    }
    return entry < RowOf(setting).entries.size() ? std::optional(entry) : std::nullopt;
}

Bytes WriteSettingRequest(PhoneSetting setting, std::uint32_t value) {
    return RequestBuilder(AgentCommand::writeSetting)
        .BeginItem()
        .AddUInt32(static_cast<std::uint32_t>(setting))
        .AddUInt32(value)
        .Take();
}

}  // namespace quorvi
