// The files: the root, and each folder.
#include <fmt/format.h>

#include <array>

#include "phone/agent/AgentData.h"
#include "phone/agent/Commands.h"

namespace quorvi::phone {
namespace {

constexpr std::uint32_t kFolder = 1;
constexpr std::uint32_t kFile = 0;

void WriteRecord(ReplyWriter& reply, std::string_view path, const FileEntry& entry) {
    reply.UInt32(entry.isFolder ? kFolder : kFile)
        .Text(path)
        .UInt64(entry.size)
        .UInt64(entry.modified)
        .UInt32(entry.readable ? 1 : 0)
        .UInt32(entry.writable ? 1 : 0)
        .UInt32(entry.hidden ? 1 : 0);
}

// The header, which is a record of the folder's parent, then the entries. Of what is no folder the
// agent has no data.
void ListFolder(Exchange& exchange, std::string_view path) {
    const std::vector<FileEntry>* entries = exchange.data.files.EntriesOf(path);
    exchange.note = fmt::format("folder \"{}\"{}", path, entries ? "" : ", unknown");
    if (!entries) {
        return;
    }
    WriteRecord(exchange.reply, FileSystem::ParentOf(path), {.isFolder = true});
    for (const FileEntry& entry : *entries) {
        WriteRecord(exchange.reply, FileSystem::PathOf(FileSystem::WithoutEnd(path), entry.name),
                    entry);
    }
}

void ListFileRoots(Exchange& exchange) {
    ListFolder(exchange, FileSystem::kRoot);
}

void ListDirectory(Exchange& exchange) {
    exchange.ExpectOneItem();
    const std::string path = exchange.request.Text();
    if (!exchange.request.Overran()) {
        ListFolder(exchange, path);
    }
}

constexpr std::array kRows{
    AgentCommandRow{AgentCommand::listFileRoots, "listFileRoots", RequestForm::bare, ListFileRoots},
    AgentCommandRow{AgentCommand::listDirectory, "listDirectory", RequestForm::framed,
                    ListDirectory},
};

}  // namespace

std::span<const AgentCommandRow> FileCommands() {
    return kRows;
}

}  // namespace quorvi::phone
