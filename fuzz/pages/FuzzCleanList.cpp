// Reads a list of caches out of any bytes, whole or cut, and touches every icon kept.
//
// Input: see FuzzReplyOf.h.
#include <cstdlib>

#include "fuzz/agent/FuzzReplyOf.h"
#include "pages/cleaner/CleanList.h"
#include "pages/kit/ReplyPicture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    auto reply = quorvi::fuzz::ReplyOf({data, size});
    if (!reply) {
        return 0;
    }
    const auto list = quorvi::ParseCleanList(quorvi::ShareReply(std::move(*reply)));
    if (list.rows.size() < quorvi::kFixedCleanRows) {
        std::abort();
    }
    volatile unsigned sum = 0;
    std::vector<std::string> packages;
    std::size_t length = quorvi::kFrameHeaderBytes + quorvi::kFixedCleanRows;
    for (std::size_t i = quorvi::kFixedCleanRows; i < list.rows.size(); ++i) {
        const quorvi::CleanItem& row = list.rows[i];
        const auto icon = row.icon.Bytes();
        if (row.fixed != nullptr || icon.size() > quorvi::kPictureCapacity ||
            quorvi::CleanSizeText(row).empty()) {
            std::abort();
        }
        for (const std::byte byte : icon) {
            sum = sum + static_cast<unsigned>(byte);
        }
        packages.push_back(row.description);
        length += sizeof(std::uint32_t) + row.description.size();
    }
    if (quorvi::CleanRequest({}, packages).size() != length) {
        std::abort();
    }
    return 0;
}
