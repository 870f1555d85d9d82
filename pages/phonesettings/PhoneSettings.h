// The settings of the phone as command 871501 reads them, what each control shows of a value, and
// the request that writes one.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "agent/AgentSession.h"
#include "agent/PhoneSettings.h"
#include "agent/Reply.h"
#include "agent/Request.h"

namespace quorvi {

// The values as the phone sent them.
class PhoneSettingValues {
  public:
    [[nodiscard]] std::uint32_t Of(PhoneSetting setting) const {
        return values_[static_cast<std::size_t>(setting)];
    }
    void Set(PhoneSetting setting, std::uint32_t value) {
        values_[static_cast<std::size_t>(setting)] = value;
    }

  private:
    std::array<std::uint32_t, kPhoneSettings> values_{};  // in the order of the keys
};

// Reads the single record of the reply. Nothing when the reply is too short to hold it: what is
// shown then stays as it is. Any thread.
[[nodiscard]] std::optional<PhoneSettingValues> ParsePhoneSettings(const ReplyBuffer& reply);

struct PhoneSettingsReply {
    SessionOutcome outcome = SessionOutcome::connectFailed;
    std::optional<PhoneSettingValues> values;
};

// One session that reads the settings. Any thread.
[[nodiscard]] PhoneSettingsReply FetchPhoneSettings(const AgentSession& session);

// A toggle is on for exactly 1.
[[nodiscard]] constexpr bool IsSettingOn(std::uint32_t value) {
    return value == 1;
}

// Which entry of a setting's list a value selects; nothing when none is selected.
//
// Backlight: by whole seconds, the first entry for any time that has none. Volumes: the first entry
// for a step beyond the limit. The limit of the ring volume is 10, though its list ends at 7, so
// that 8 to 10 select nothing: kept on purpose, as it has always been
// (SettingEntryShown.ARingVolumeOfNineSelectsNothing). Date format: nothing outside the list.
[[nodiscard]] std::optional<std::size_t> EntryShown(PhoneSetting setting, std::uint32_t value);

// The request of command 871502. What the phone answers to it is not looked at but for its coming:
// a control keeps what its user chose.
[[nodiscard]] Bytes WriteSettingRequest(PhoneSetting setting, std::uint32_t value);

}  // namespace quorvi
