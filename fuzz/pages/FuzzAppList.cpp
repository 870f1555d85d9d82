// Reads a list of applications out of any bytes, whole or cut, and touches every icon kept.
//
// Input: see FuzzReplyOf.h.
#include <cstdlib>

#include "fuzz/agent/FuzzReplyOf.h"
#include "pages/apps/AppActions.h"
#include "pages/apps/AppList.h"
#include "pages/kit/ReplyPicture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    auto reply = quorvi::fuzz::ReplyOf({data, size});
    if (!reply) {
        return 0;
    }
    const auto list = quorvi::ParseAppList(quorvi::ShareReply(std::move(*reply)));
    volatile unsigned sum = 0;
    for (const quorvi::AppRecord& row : list.rows) {
        const auto icon = row.icon.Bytes();
        if (icon.size() > quorvi::kPictureCapacity ||
            quorvi::InstalledText(row.installed).empty()) {
            std::abort();
        }
        for (const std::byte byte : icon) {
            sum = sum + static_cast<unsigned>(byte);
        }
        if (quorvi::RunApplicationRequest(row.package).size() != 16 + row.package.size()) {
            std::abort();
        }
    }
    return 0;
}
