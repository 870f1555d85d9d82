// Reads any text as the form of a bookmark, and makes of it what a save would send.
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <variant>

#include "cli/BookmarkFormInput.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto read = quorvi::cli::ReadBookmarkForm(text);
    const auto* input = std::get_if<quorvi::cli::BookmarkFormInput>(&read);
    if (input == nullptr) {
        if (std::get<quorvi::cli::FormComplaint>(read).text.empty()) {
            std::abort();
        }
        return 0;
    }
    if (input->form.visits > INT32_MAX) {
        std::abort();
    }
    static_cast<void>(quorvi::AddBookmarkRequest(input->form));
    static_cast<void>(quorvi::UpdateBookmarkRequest(1, input->form));
    return 0;
}
