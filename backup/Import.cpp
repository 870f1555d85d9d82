#include "backup/Import.h"

#include <algorithm>
#include <fstream>
#include <optional>
#include <set>
#include <utility>

#include "backup/ContactTable.h"
#include "backup/FileEnding.h"
#include "backup/ImportGroups.h"
#include "backup/PhoneLists.h"
#include "backup/VCardReader.h"
#include "base/CodePageScope.h"
#include "base/Text.h"
#include "base/os/SmallFile.h"
#include "pages/bookmarks/BookmarkForm.h"
#include "pages/bookmarks/BookmarkList.h"
#include "pages/contacts/ContactForm.h"
#include "pages/contacts/ContactList.h"

namespace quorvi {
namespace {

// A piece of a file that is read in pieces.
constexpr std::size_t kPieceBytes = 64 * 1024;

constexpr std::u8string_view kCannotRead = u8"文件打不开，请检查文件是否还在";
constexpr std::u8string_view kTooLarge = u8"文件太大，没有导入，请分成几个文件再试";

std::u8string_view WhyOf(CardFault fault) {
    switch (fault) {
        case CardFault::nothingInIt:
            return u8"名片里没有姓名，也没有号码和邮箱";
        case CardFault::tooLarge:
            return u8"名片太大";
        case CardFault::cut:
            return u8"文件在这张名片的中间断开";
    }
    return {};
}

std::string NameOf(const SkippedCard& card) {
    return card.name.empty() ? Ansi(u8"第 ") + std::to_string(card.number) + Ansi(u8" 张名片")
                             : ToAnsi(card.name);
}

// Photos are not kept: a file of many would fill the memory for nothing.
void TakeCard(ReadCard&& read, ImportContent& content) {
    if (!read.card.photo.empty()) {
        const std::string dropped = std::move(read.card.photo);  // and its memory with it
        read.card.photo.clear();
        read.leftOut.emplace_back("PHOTO");
    }
    content.cards.push_back(std::move(read));
}

void ReadCards(const std::filesystem::path& file, ImportContent& content) {
    std::ifstream in(file, std::ios::binary);
    VCardReader reader(
        [&](ReadCard&& card) { TakeCard(std::move(card), content); },
        [&](const SkippedCard& card) { content.skipped.Add(NameOf(card), WhyOf(card.fault)); });
    std::string piece(kPieceBytes, '\0');
    std::size_t bytes = 0;
    while (in.read(piece.data(), static_cast<std::streamsize>(piece.size())), in.gcount() > 0) {
        const auto count = static_cast<std::size_t>(in.gcount());
        bytes += count;
        if (bytes > kMostImportedBytes || content.cards.size() > kMostImportedCards) {
            content.status = FileFailed(kTooLarge);
            return;
        }
        reader.Feed(std::string_view(piece).substr(0, count));
    }
    reader.End();
    if (content.cards.size() > kMostImportedCards) {
        content.status = FileFailed(kTooLarge);
    } else if (in.bad()) {
        content.status = FileFailed(kCannotRead);
    } else if (reader.Refused()) {
        content.status = FileFailed(u8"名片一层套一层，太深了，没有导入");
    } else if (content.cards.empty() && content.skipped.count == 0) {
        content.status = FileFailed(u8"文件里没有名片");
    }
}

void ReadTable(std::string_view text, ImportContent& content) {
    ContactTable table = ReadContactTable(text);
    if (!table.hasHeading) {
        content.status = FileFailed(u8"表格的第一行没有“姓名”“电话”这样的列名，请加上列名后再试");
        return;
    }
    if (table.tooMany) {
        content.status = FileFailed(kTooLarge);
        return;
    }
    if (table.tooWide) {
        content.status = FileFailed(u8"表格的列太多，没有导入");
        return;
    }
    for (const std::size_t row : table.skipped) {
        content.skipped.Add(Ansi(u8"第 ") + std::to_string(row) + Ansi(u8" 行"),
                            u8"没有姓名，也没有号码和邮箱");
    }
    for (ContactCard& card : table.cards) {
        content.cards.push_back({std::move(card)});
    }
}

void ReadBookmarks(std::string_view text, ImportContent& content) {
    BookmarkFile file = ReadBookmarkFile(text);
    if (file.tooMany) {
        content.status = FileFailed(kTooLarge);
        return;
    }
    for (std::string& title : file.tooLong) {
        content.skipped.Add(ToAnsi(title), u8"名称或网址太长");
    }
    for (FileBookmark& bookmark : file.bookmarks) {
        if (bookmark.title.empty()) {
            bookmark.title = bookmark.url;
        }
        if (IsWebAddress(bookmark.url)) {
            content.bookmarks.push_back(std::move(bookmark));
        } else {
            content.skipped.Add(ToAnsi(bookmark.title), u8"不是网页的地址");
        }
    }
    if (content.bookmarks.empty() && content.skipped.count == 0) {
        content.status = FileFailed(u8"文件里没有书签");
    }
}

std::string FirstNumber(const ContactCard& card) {
    return card.phones.empty() ? std::string() : ToAnsi(card.phones.front().text);
}

// Whether no contact of `known` is this one, which is among them from then on. A contact that has
// no name has one after its import: it may be there as either.
bool IsNew(const ContactCard& card, const std::string& name, std::set<ContactKey>& known) {
    const std::string number = FirstNumber(card);
    const bool isThere = card.name.empty() && known.contains(KeyOfContact({}, number));
    return known.insert(KeyOfContact(name, number)).second && !isThere;
}

// Adds one record; false when the import ends with it.
bool SendOne(AgentAddress agent, const Bytes& request, const std::string& what,
             ImportResult& result) {
    const SessionOutcome outcome = AgentSession(agent).RunAcknowledged(request).outcome;
    if (outcome == SessionOutcome::complete) {
        return true;
    }
    result.status = LinkLost(outcome);
    if (outcome == SessionOutcome::noReply) {
        result.status.why =
            what + Ansi(u8": 手机没有确认。请重新连接手机，再导入一次，已经有的不会重复");
    }
    return false;
}

std::string LeftOutText(const ReadCard& read) {
    std::string text;
    const auto add = [&](std::string_view word) {
        text.append(text.empty() ? "" : Ansi(u8"、")).append(word);
    };
    for (const std::string& name : read.leftOut) {
        add(name == "PHOTO" ? Ansi(u8"照片") : ToAnsi(name));
    }
    return text;
}

// Adds what is not known, to the end or as far as it goes; those that it has added.
std::vector<AddedContact> AddContacts(AgentAddress agent, const std::vector<ReadCard>& cards,
                                      std::set<ContactKey>& known, ImportMode mode,
                                      const TransferWatch& watch, ImportResult& result) {
    std::vector<AddedContact> added;
    std::size_t done = 0;
    for (const ReadCard& read : cards) {
        if (watch.IsStopped()) {
            result.status = Stopped();
            break;
        }
        const std::optional<ContactRecord> record = RecordOf(read.card);
        const std::string name = record ? ToAnsi(record->name.text) : std::string();
        if (!record) {
            result.skipped.Add(name, WhyOf(CardFault::nothingInIt));
        } else if (!IsNew(read.card, name, known)) {
            ++result.there;
        } else {
            if (mode == ImportMode::send &&
                !SendOne(agent, AddContactRequest(*record), name, result)) {
                break;
            }
            ++result.added;
            added.push_back({KeyOfContact(name, FirstNumber(read.card)), read.card.groups});
            if (const std::string left = LeftOutText(read); !left.empty()) {
                result.leftOut.Add(std::string(name).append(": ").append(left),
                                   u8"手机的新联系人不接受这些内容");
            }
        }
        watch.Tell(++done, cards.size());
    }
    return added;
}

}  // namespace

ImportContent ReadImportFile(FileKind kind, const std::filesystem::path& file) {
    const WholeTextScope wholeText;
    ImportContent content{};
    std::error_code failed;
    if (!std::filesystem::is_regular_file(file, failed)) {
        content.status = FileFailed(kCannotRead);
        return content;
    }
    if (kind == FileKind::contacts && EndingOf(file.native()) != "csv") {
        ReadCards(file, content);
    } else {
        const auto text = ReadSmallFile(file, kMostImportedTableBytes);
        if (!text) {
            const bool large = std::filesystem::file_size(file, failed) > kMostImportedTableBytes;
            content.status = FileFailed(large ? kTooLarge : kCannotRead);
            return content;
        }
        kind == FileKind::contacts ? ReadTable(*text, content) : ReadBookmarks(*text, content);
    }
    return content;
}

ImportResult ImportContacts(AgentAddress agent, const ImportContent& content, ImportMode mode,
                            const TransferWatch& watch) {
    const WholeTextScope wholeText;
    ImportResult result{.status = content.status, .skipped = content.skipped};
    if (result.status.end != TransferEnd::whole) {
        return result;
    }
    const ContactListReply list = FetchContactList(AgentSession(agent), NoAttribution);
    result.status = StatusOfList(list);
    if (result.status.end != TransferEnd::whole) {
        return result;
    }
    std::set<ContactKey> known;
    std::set<std::uint32_t> before;
    for (const ContactListRow& row : list.list.rows) {
        before.insert(row.contactId);
        known.insert(KeyOfContact(row.name, row.number));
    }
    const std::vector<AddedContact> added =
        AddContacts(agent, content.cards, known, mode, watch, result);
    if (mode == ImportMode::tellOnly) {
        return result;
    }
    if (result.status.end == TransferEnd::whole) {
        result.status = PutIntoGroups(agent, added, before, watch, result.leftOut);
    } else {
        TellNotInGroups(added, result.leftOut);
    }
    return result;
}

ImportResult ImportBookmarks(AgentAddress agent, const ImportContent& content, ImportMode mode,
                             const TransferWatch& watch) {
    const WholeTextScope wholeText;
    ImportResult result{.status = content.status, .skipped = content.skipped};
    if (result.status.end != TransferEnd::whole) {
        return result;
    }
    const BookmarkListReply list = FetchBookmarkList(AgentSession(agent));
    result.status = StatusOfList(list);
    if (result.status.end != TransferEnd::whole) {
        return result;
    }
    std::set<std::string> known;
    for (const BookmarkRow& row : list.list.rows) {
        known.insert(row.url);
    }
    std::size_t done = 0;
    for (const FileBookmark& bookmark : content.bookmarks) {
        if (watch.IsStopped()) {
            result.status = Stopped();
            return result;
        }
        const BookmarkSettings settings{ToAnsi(bookmark.title), ToAnsi(bookmark.url),
                                        bookmark.visits};
        if (!known.insert(settings.url).second) {
            ++result.there;
        } else {
            if (mode == ImportMode::send &&
                !SendOne(agent, AddBookmarkRequest(settings), settings.title, result)) {
                return result;
            }
            ++result.added;
        }
        watch.Tell(++done, content.bookmarks.size());
    }
    return result;
}

}  // namespace quorvi
