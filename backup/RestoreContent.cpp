#include "backup/RestoreContent.h"

#include <algorithm>
#include <utility>

#include "backup/Content.h"
#include "backup/RecordFiles.h"
#include "backup/VCardReader.h"
#include "base/Text.h"

namespace quorvi {
namespace {

std::size_t BytesOf(const ContactCard& card) {
    std::size_t bytes = sizeof card + card.name.size() + card.nickname.size() + card.note.size();
    for (const CardList& list : kCardLists) {
        for (const CardItem& item : card.*list.card) {
            bytes += sizeof item + item.text.size() + item.label.size();
        }
    }
    for (const std::string& title : card.groups) {
        bytes += sizeof(std::string) + title.size();
    }
    return bytes;
}

class Reading {
  public:
    explicit Reading(const BackupReader& reader) : reader_(reader) {}

    [[nodiscard]] bool Take(const BackedUpKind& kind) {
        switch (kind.kind) {
            case BackupKind::groups:
                return TakeRecords(kind, ReadGroupRecords, [&](const ContactGroup& group) {
                    if (std::string title = CardText(group.titleCame); !title.empty()) {
                        content.groups.push_back(std::move(title));
                    }
                });
            case BackupKind::alarms:
                return TakeRecords(kind, ReadAlarmRecords, [&](const AlarmRow& row) {
                    content.alarms.push_back(SettingsToRestore(row));
                });
            case BackupKind::bookmarks:
                return TakeRecords(kind, ReadBookmarkRecords, [&](const BookmarkRow& row) {
                    content.bookmarks.push_back(SettingsToRestore(row));
                });
            case BackupKind::contacts:
                return TakeCards(kind);
            default:
                return true;
        }
    }

    RestoreContent content;
    std::string why;

  private:
    // The file of a kind by the end of its name: a kind may have others beside it, for other
    // programs.
    const BackedUpFile* FileOf(const BackedUpKind& kind, std::string_view ending) {
        const auto found = std::ranges::find_if(
            kind.files, [&](const BackedUpFile& file) { return file.name.ends_with(ending); });
        if (found == kind.files.end()) {
            why = NameOf(kind.kind) + Ansi(u8": 备份里缺少这个文件");
            return nullptr;
        }
        return &*found;
    }

    template <typename Read, typename TakeOne>
    bool TakeRecords(const BackedUpKind& kind, Read read, TakeOne take) {
        const BackedUpFile* file = FileOf(kind, ".json");
        const auto text =
            file != nullptr ? reader_.ReadWhole(*file, kMostRecordFileBytes, why) : std::nullopt;
        if (!text) {
            return false;
        }
        const auto records = read(*text);
        if (!records) {
            why = ToAnsi(file->name) + Ansi(u8": 内容读不懂");
            return false;
        }
        std::ranges::for_each(*records, take);
        return true;
    }

    bool TakeCards(const BackedUpKind& kind) {
        const BackedUpFile* file = FileOf(kind, ".vcf");
        if (file == nullptr) {
            return false;
        }
        std::size_t bytes = 0;
        VCardReader cards(
            [&](ReadCard&& read) {
                content.hadPhoto.push_back(!read.card.photo.empty());
                read.card.photo = {};
                bytes += BytesOf(read.card);
                content.cards.push_back(std::move(read.card));
            },
            [&](SkippedCard&& skipped) {
                ++(skipped.fault == CardFault::nothingInIt ? content.emptyCards
                                                           : content.unreadCards);
            });
        why = reader_.Stream(*file, [&](std::string_view piece) {
            cards.Feed(piece);
            return !cards.Refused() && content.cards.size() <= kMostRestoredCards &&
                   bytes <= kMostRestoredCardBytes;
        });
        cards.End();
        if (!why.empty() && !cards.Refused() &&
            (content.cards.size() > kMostRestoredCards || bytes > kMostRestoredCardBytes)) {
            why = ToAnsi(file->name) + Ansi(u8": 联系人太多或者太大，不读取");
        }
        return why.empty();
    }

    const BackupReader& reader_;
};

}  // namespace

std::optional<RestoreContent> ReadRestoreContent(const BackupReader& reader,
                                                 std::span<const BackupKind> kinds,
                                                 std::string& why) {
    Reading reading(reader);
    for (const BackedUpKind& kind : reader.TheManifest().kinds) {
        if (std::ranges::find(kinds, kind.kind) != kinds.end() && !reading.Take(kind)) {
            why = std::move(reading.why);
            return std::nullopt;
        }
    }
    return std::move(reading.content);
}

}  // namespace quorvi
