// Reads a list of processes out of any bytes, whole or cut, and touches every icon kept.
//
// Input: see FuzzReplyOf.h.
#include <cstdlib>

#include "fuzz/agent/FuzzReplyOf.h"
#include "pages/kit/ReplyPicture.h"
#include "pages/tasks/TaskList.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    auto reply = quorvi::fuzz::ReplyOf({data, size});
    if (!reply) {
        return 0;
    }
    const auto list = quorvi::ParseTaskList(quorvi::ShareReply(std::move(*reply)));
    volatile unsigned sum = 0;
    std::vector<std::string> packages;
    std::size_t length = quorvi::kFrameHeaderBytes;
    for (const quorvi::TaskRecord& row : list.rows) {
        const auto icon = row.icon.Bytes();
        if (icon.size() > quorvi::kPictureCapacity ||
            quorvi::ImportanceText(row.importance).empty()) {
            std::abort();
        }
        for (const std::byte byte : icon) {
            sum = sum + static_cast<unsigned>(byte);
        }
        packages.push_back(row.package);
        length += sizeof(std::uint32_t) + row.package.size();
    }
    if (quorvi::EndProcessesRequest(packages).size() != length) {
        std::abort();
    }
    return 0;
}
