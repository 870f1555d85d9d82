#include "pages/files/FileList.h"

#include <utility>

#include "base/Format.h"
#include "base/Text.h"

namespace quorvi {
namespace {

FileReply Fetch(const AgentSession& session, const Bytes& request,
                const AgentSession::Progress& progress) {
    const PayloadReply reply = session.RunPayload(request, progress);
    return {reply.outcome, reply.HasPayload() ? ParseFileList(reply.buffer) : FileList()};
}

}  // namespace

FileList ParseFileList(const ReplyBuffer& reply) {
    FileList list;
    AttributeText attributes;
    ReplyCursor cursor(reply);
    do {
        const std::uint32_t kind = cursor.TakeUInt32();
        FileRecord record;
        record.isFolder = kind == 1;
        record.path = cursor.TakeTextOrEmpty();
        if (cursor.IsCut()) {
            return list;  // part of a path leads to another file
        }
        record.size = cursor.TakeUInt64();
        record.modifiedTime = cursor.TakeUInt64();
        record.readable = cursor.TakeFlag();
        record.writable = cursor.TakeFlag();
        record.hidden = cursor.TakeFlag();
        if (cursor.Overran()) {
            return list;
        }
        record.attributes = attributes.Next(record.readable, record.writable, record.hidden);
        if (list.header) {
            list.rows.push_back(std::move(record));
        } else {
            list.header = FolderHeader{std::move(record.path), kind};
        }
    } while (!cursor.AtEnd());
    return list;
}

Bytes DirectoryRequest(std::string_view path) {
    return RequestBuilder(AgentCommand::listDirectory).BeginItem().AddText(path).Take();
}

FileReply FetchFileRoots(const AgentSession& session, const AgentSession::Progress& progress) {
    return Fetch(session, BareRequest(AgentCommand::listFileRoots), progress);
}

FileReply FetchDirectory(const AgentSession& session, std::string_view path,
                         const AgentSession::Progress& progress) {
    return Fetch(session, DirectoryRequest(path), progress);
}

std::string FileTypeText(bool isFolder) {
    return Ansi(isFolder ? u8"文件夹" : u8"文件");
}

std::string ModifiedTimeText(std::uint64_t milliseconds) {
    return milliseconds == 0
               ? Ansi(u8"未知")
               : FormatUnixTime(static_cast<std::int64_t>(WholeSeconds(milliseconds)));
}

}  // namespace quorvi
