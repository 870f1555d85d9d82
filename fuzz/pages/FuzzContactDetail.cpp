// Reads a contact out of any bytes, whole or cut, shows it, and saves it as the editor would: with
// everything as it was, and with everything cleared. Every request's total must be its length.
//
// Input: see FuzzReplyOf.h.
#include <cstdlib>

#include "agent/Wire.h"
#include "fuzz/agent/FuzzReplyOf.h"
#include "pages/contacts/ContactForm.h"
#include "pages/contacts/ContactFragment.h"

namespace {

void RequireFrame(const quorvi::Bytes& request) {
    constexpr std::size_t kTotalOffset = 4;
    if (quorvi::ReadUInt32(request.data() + kTotalOffset) != request.size()) {
        std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto reply = quorvi::fuzz::ReplyOf({data, size});
    const auto record = reply ? quorvi::ParseContact(*reply) : std::nullopt;
    if (!record) {
        return 0;
    }
    static_cast<void>(quorvi::ContactFragment(*record));
    const quorvi::ContactForm form = quorvi::FormOf(*record);
    RequireFrame(quorvi::UpdateContactRequest(quorvi::RecordToUpdate(*record, form)));
    RequireFrame(quorvi::UpdateContactRequest(quorvi::RecordToUpdate(*record, {})));
    if (const auto added = quorvi::RecordToAdd(form)) {
        RequireFrame(quorvi::AddContactRequest(*added));
    }
    return 0;
}
