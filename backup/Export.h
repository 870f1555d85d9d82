// Records of one kind from the phone into one file, for other programs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

#include "agent/AgentAddress.h"
#include "backup/FileTransfer.h"
#include "refdata/NumberAttribution.h"

namespace quorvi {

struct ExportResult {
    TransferStatus status;
    std::size_t exported = 0;
    // Records that the phone did not give, and why.
    SkippedRecords skipped{};
};

// Each writes into a file whose ending CanExportTo knows. The file is there whole or not at all:
// with any end but `whole` what stood there is as it was. A phone without such records gives a file
// without any. They block, and run on a worker.

// Contacts with their photos, in the order of the list: vCards, or a table. Those of these ids; all
// where there is none.
[[nodiscard]] ExportResult ExportContacts(AgentAddress agent, const std::filesystem::path& file,
                                          const TransferWatch& watch = {},
                                          const std::vector<std::uint32_t>& only = {});
// All conversations, or the one of this id. What is counted are messages.
[[nodiscard]] ExportResult ExportMessages(AgentAddress agent, const AttributionOf& attribution,
                                          std::optional<std::uint32_t> conversation,
                                          const std::filesystem::path& file,
                                          const TransferWatch& watch = {});
[[nodiscard]] ExportResult ExportCalls(AgentAddress agent, const AttributionOf& attribution,
                                       const std::filesystem::path& file,
                                       const TransferWatch& watch = {});
[[nodiscard]] ExportResult ExportBookmarks(AgentAddress agent, const std::filesystem::path& file,
                                           const TransferWatch& watch = {});

}  // namespace quorvi
