// Reads any text as what an alarm is set to, and makes of it what a save would send.
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <variant>

#include "cli/AlarmFormInput.h"
#include "pages/alarms/AlarmDays.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto read = quorvi::cli::ReadAlarmForm(text);
    const auto* input = std::get_if<quorvi::cli::AlarmFormInput>(&read);
    if (input == nullptr) {
        if (std::get<quorvi::cli::FormComplaint>(read).text.empty()) {
            std::abort();
        }
        return 0;
    }
    const quorvi::AlarmSettings& settings = input->form;
    if (!quorvi::CanBeSent(settings) || settings.hour > 23 || settings.minute > 59 ||
        settings.days > quorvi::kEveryAlarmDay) {
        std::abort();
    }
    static_cast<void>(quorvi::AddAlarmRequest(settings));
    static_cast<void>(quorvi::UpdateAlarmRequest(1, settings));
    return 0;
}
