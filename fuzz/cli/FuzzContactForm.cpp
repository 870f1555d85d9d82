// Reads any text as the form of a contact, and makes of it what a save would send.
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <variant>

#include "cli/ContactFormInput.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto read = quorvi::cli::ReadContactForm(text);
    const auto* input = std::get_if<quorvi::cli::ContactFormInput>(&read);
    if (input == nullptr) {
        if (std::get<quorvi::cli::FormComplaint>(read).text.empty()) {
            std::abort();
        }
        return 0;
    }
    const auto record = quorvi::RecordToAdd(input->form);
    if (record.has_value() == input->form.name.empty()) {
        std::abort();
    }
    if (record) {
        static_cast<void>(quorvi::AddContactRequest(*record));
    }
    static_cast<void>(quorvi::UpdateContactRequest(quorvi::RecordToUpdate({}, input->form)));
    return 0;
}
