// Reads a folder of the phone out of any bytes, whole or cut, and cuts the names of its files.
//
// Input: see FuzzReplyOf.h.
#include <cstdlib>

#include "fuzz/agent/FuzzReplyOf.h"
#include "pages/files/FileList.h"
#include "pages/files/FileName.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto reply = quorvi::fuzz::ReplyOf({data, size});
    if (!reply) {
        return 0;
    }
    const quorvi::FileList list = quorvi::ParseFileList(*reply);
    if (!list.header && !list.rows.empty()) {
        std::abort();
    }
    for (const quorvi::FileRecord& row : list.rows) {
        const quorvi::FileNameParts parts = quorvi::SplitFileName(row.path);
        const std::string_view path = row.path;
        if (!path.ends_with(parts.extension) ||
            !path.substr(0, path.size() - parts.extension.size()).ends_with(parts.name) ||
            (!parts.extension.empty() && parts.extension.front() != '.')) {
            std::abort();
        }
        if (row.attributes.View().size() > quorvi::AttributeText::kLongest ||
            quorvi::ModifiedTimeText(row.modifiedTime).empty()) {
            std::abort();
        }
    }
    return 0;
}
