// Reads a list of bookmarks out of any bytes, whole or cut, touches every thumbnail kept, and opens
// each row in the editor.
//
// Input: see FuzzReplyOf.h.
#include <cstdlib>
#include <utility>

#include "fuzz/agent/FuzzReplyOf.h"
#include "pages/bookmarks/BookmarkAddress.h"
#include "pages/bookmarks/BookmarkForm.h"
#include "pages/kit/ReplyPicture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    auto reply = quorvi::fuzz::ReplyOf({data, size});
    if (!reply) {
        return 0;
    }
    const auto list = quorvi::ParseBookmarkList(quorvi::ShareReply(std::move(*reply)));
    volatile unsigned sum = 0;
    for (const quorvi::BookmarkRow& row : list.rows) {
        const auto thumbnail = row.thumbnail.Bytes();
        const bool startsNothing = quorvi::OpeningOf(row.url) == quorvi::AddressOpening::nothing;
        if (thumbnail.size() > quorvi::kPictureCapacity || row.lastVisit.empty() ||
            startsNothing != row.url.empty() ||
            quorvi::SettingsOf(quorvi::FormOf(row)).visits != row.visits) {
            std::abort();
        }
        for (const std::byte byte : thumbnail) {
            sum = sum + static_cast<unsigned>(byte);
        }
    }
    return 0;
}
