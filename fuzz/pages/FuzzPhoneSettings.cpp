// Reads the settings of a phone out of any bytes, whole or cut, and asks what each control shows.
//
// Input: see FuzzReplyOf.h.
#include <cstdlib>

#include "fuzz/agent/FuzzReplyOf.h"
#include "pages/phonesettings/PhoneSettings.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto reply = quorvi::fuzz::ReplyOf({data, size});
    if (!reply) {
        return 0;
    }
    const auto values = quorvi::ParsePhoneSettings(*reply);
    if (!values) {
        return 0;
    }
    for (const quorvi::PhoneSettingRow& row : quorvi::PhoneSettingTable()) {
        const auto entry = quorvi::EntryShown(row.key, values->Of(row.key));
        if (entry && *entry >= row.entries.size()) {
            std::abort();
        }
    }
    return 0;
}
