// The files on the phone, folder by folder, as commands 870601 and 870602 list them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "agent/AgentSession.h"
#include "agent/Reply.h"
#include "agent/Request.h"
#include "pages/files/AttributeText.h"

namespace quorvi {

// One row. Texts are ANSI.
struct FileRecord {
    bool isFolder = false;
    std::string path;                // the whole of it, on the phone
    std::uint64_t size = 0;          // bytes
    std::uint64_t modifiedTime = 0;  // milliseconds since 1970; 0: not known
    bool readable = false;
    bool writable = false;
    bool hidden = false;
    SharedText attributes;
};

// What the first record of a reply says of the folder itself. It has no row.
struct FolderHeader {
    std::string parentPath;        // where 向上 leads
    std::uint32_t parentFlag = 0;  // its first word, in which no meaning is known
};

struct FileList {
    std::optional<FolderHeader> header;  // nothing where not even its path came whole
    std::vector<FileRecord> rows;
};

struct FileReply {
    SessionOutcome outcome = SessionOutcome::connectFailed;
    FileList list;
};

// Reads the run of records: the folder's header, then its entries in the order of the agent. A
// record with a length that points outside the reply, or in whose path the reply was cut, ends the
// run and is dropped. Any thread.
[[nodiscard]] FileList ParseFileList(const ReplyBuffer& reply);

// The request of command 870602, for the folder of an ANSI path. That of 870601 is bare.
[[nodiscard]] Bytes DirectoryRequest(std::string_view path);

// One session that reads the root, or a folder. Any thread.
[[nodiscard]] FileReply FetchFileRoots(const AgentSession& session,
                                       const AgentSession::Progress& progress = {});
[[nodiscard]] FileReply FetchDirectory(const AgentSession& session, std::string_view path,
                                       const AgentSession::Progress& progress = {});

// What the column 文件类型 says. ANSI.
[[nodiscard]] std::string FileTypeText(bool isFolder);
// Local time, or 未知 for 0. ANSI.
[[nodiscard]] std::string ModifiedTimeText(std::uint64_t milliseconds);

}  // namespace quorvi
