#include "pages/kit/FileTransfers.h"

#include <QDate>
#include <QFileInfo>
#include <QPointer>
#include <QStandardPaths>
#include <array>
#include <chrono>
#include <memory>
#include <utility>

#include "base/Text.h"
#include "pages/kit/PageSession.h"
#include "ui/kit/FileDialogs.h"
#include "ui/kit/QtText.h"
#include "ui/kit/QuestionDlg.h"
#include "ui/kit/SkinMenu.h"
#include "ui/page/DisabledJob.h"

namespace quorvi {
namespace {

// Characters of a text that a file's name takes.
constexpr qsizetype kMostInName = 40;

struct KindTexts {
    FileKind kind;
    std::u8string_view noun;
    // What the dialogs show, "|" between two of them: each with one ending for a save.
    std::u8string_view saves;
    std::u8string_view opens;
};
constexpr std::array<KindTexts, 4> kKinds{{
    {FileKind::contacts, u8"联系人", u8"vCard 名片 (*.vcf)|表格 (*.csv)",
     u8"vCard 名片、表格 (*.vcf *.csv)"},
    {FileKind::messages, u8"短信", u8"网页 (*.html)|文本 (*.txt)|表格 (*.csv)", u8""},
    {FileKind::calls, u8"通话记录", u8"表格 (*.csv)", u8""},
    {FileKind::bookmarks, u8"书签", u8"浏览器书签 (*.html)", u8"浏览器书签 (*.html *.htm)"},
}};

const KindTexts& TextsOf(FileKind kind) {
    return *std::ranges::find(kKinds, kind, &KindTexts::kind);
}

QStringList Filters(std::u8string_view filters) {
    return ToQString(filters).split(QLatin1Char('|'));
}

std::filesystem::path ToPath(const QString& path) {
    return path.toStdString();
}

// Why, without the sign that the status has in front already.
QString Reason(const std::string& why) {
    const QString sign = ToQString(u8"【X】");
    const QString reason = ToQString(why);
    return reason.startsWith(sign) ? reason.mid(sign.size()) : reason;
}

// "（Ada: 手机上已经没有这个联系人）" of the first one.
QString FirstOf(const SkippedRecords& records) {
    if (records.list.empty()) {
        return {};
    }
    const SkippedRecord& first = records.list.front();
    return ToQString(u8"（%1: %2）").arg(ToShownQString(first.what), ToQString(first.why));
}

QString AndSkipped(const SkippedRecords& records, std::u8string_view saying) {
    return records.count == 0 ? QString() : ToQString(saying).arg(records.count) + FirstOf(records);
}

}  // namespace

QString AsFileName(const std::string& text) {
    QString name;
    for (const QChar c : ToShownQString(text)) {
        const bool kept = c.isPrint() && !QStringLiteral("/\\:*?\"<>|").contains(c);
        name += kept ? c : QLatin1Char('_');
    }
    name.truncate(kMostInName);
    if (!name.isEmpty() && name.back().isHighSurrogate()) {
        name.chop(1);
    }
    return name;
}

FileTransfers::FileTransfers(PageHost& host, QWidget& page, FileKind kind, Offer offer)
    : host_(host),
      page_(page),
      kind_(kind),
      offer_(std::move(offer)),
      folder_(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)) {}

QStringList FileTransfers::Icons() {
    return {QStringLiteral("save"), QStringLiteral("folder-open")};
}

void FileTransfers::AddItems(CSkinMenu& menu, int firstImage) const {
    const auto flags = atWork_ ? CSkinMenu::disabled : CSkinMenu::normal;
    const QString noun = ToQString(TextsOf(kind_).noun);
    if (!menu.isEmpty()) {
        menu.AddItem(CSkinMenu::separator, 0, -1, {});
    }
    if (offer_.write) {
        menu.AddItem(flags, menuExport, firstImage, ToQString(u8"导出%1…").arg(noun));
    }
    if (offer_.read) {
        menu.AddItem(flags, menuImport, firstImage + 1, ToQString(u8"导入%1…").arg(noun));
    }
}

bool FileTransfers::Take(int command) {
    if (command == menuExport) {
        AskAndExport(ToQString(TextsOf(kind_).noun), offer_.write);
    } else if (command == menuImport) {
        AskAndImport();
    } else {
        return false;
    }
    return true;
}

// ---- export ------------------------------------------------------------------------------------

void FileTransfers::AskAndExport(const QString& name, Export write) {
    const QStringList filters = Filters(TextsOf(kind_).saves);
    const SaveQuestion question{
        .title = ToQString(u8"导出%1").arg(ToQString(TextsOf(kind_).noun)),
        .filters = filters,
        .filter = filters.front(),
        .folder = folder_,
        .name = name + QDate::currentDate().toString(QStringLiteral(" yyyy-MM-dd"))};
    AskWhereToSave(page_, question, [this, write = std::move(write)](const QString& file) {
        folder_ = QFileInfo(file).path();
        StartExport(ToPath(file), write);
    });
}

void FileTransfers::StartExport(const std::filesystem::path& file, Export write) {
    if (atWork_) {
        return;  // two dialogs stood open
    }
    if (!CanExportTo(kind_, file.native())) {
        Fail(u8"没有导出",
             Ansi(u8"文件的扩展名应为 ") + ToAnsi(ExportEndings(kind_)) + Ansi(u8"，请换一个名字"));
        return;
    }
    atWork_ = true;
    RunJob(
        &page_,
        [write = std::move(write), file, watch = Watch(u8"正在导出%1：%2/%3")] {
            return write(file, watch);
        },
        [this, file](const ExportResult& result) {
            atWork_ = false;
            EndExport(QString::fromStdString(file.native()), result);
        });
}

void FileTransfers::EndExport(const QString& file, const ExportResult& result) {
    if (result.status.end != TransferEnd::whole) {
        Fail(u8"没有导出", result.status.why);
        return;
    }
    host_.SetStatus(ToQString(u8"已导出 ") + Counted(result.exported) +
                    AndSkipped(result.skipped, u8"，%1 项没有导出") + ToQString(u8"：") + file);
}

// ---- import ------------------------------------------------------------------------------------

void FileTransfers::AskAndImport() {
    const OpenQuestion question{.title = ToQString(u8"导入%1").arg(ToQString(TextsOf(kind_).noun)),
                                .filters = Filters(TextsOf(kind_).opens),
                                .folder = folder_};
    AskOpenFile(page_, question, [this](const QString& file) {
        folder_ = QFileInfo(file).path();
        StartImport(ToPath(file));
    });
}

void FileTransfers::StartImport(const std::filesystem::path& file) {
    if (atWork_) {
        return;
    }
    if (!CanImportFrom(kind_, file.native())) {
        Fail(u8"没有导入",
             Ansi(u8"文件的扩展名应为 ") + ToAnsi(ImportEndings(kind_)) + Ansi(u8"，请换一个文件"));
        return;
    }
    struct Plan {
        ImportContent content;
        ImportResult result;
    };
    atWork_ = true;
    RunDisabled(
        page_,
        [kind = kind_, read = offer_.read, file] {
            Plan plan{ReadImportFile(kind, file), {}};
            plan.result = read(plan.content, ImportMode::tellOnly, {});
            return plan;
        },
        [this](Plan&& plan) {
            atWork_ = false;
            AskToImport(std::move(plan.content), plan.result);
        });
}

void FileTransfers::AskToImport(ImportContent content, const ImportResult& plan) {
    if (plan.status.end != TransferEnd::whole) {
        Fail(u8"没有导入", plan.status.why);
        return;
    }
    QStringList rest;
    if (plan.there != 0) {
        rest.append(ToQString(u8"手机上已有 ") + Counted(plan.there));
    }
    if (plan.skipped.count != 0) {
        rest.append(AndSkipped(plan.skipped, u8"%1 项读不出来"));
    }
    if (plan.leftOut.count != 0) {
        rest.append(AndSkipped(plan.leftOut, u8"%1 项的一部分内容不会导入"));
    }
    if (plan.added == 0) {
        rest.prepend(
            ToQString(u8"【提示】文件里没有要导入的%1").arg(ToQString(TextsOf(kind_).noun)));
        host_.SetStatus(rest.join(ToQString(u8"，")));
        return;
    }
    auto* question =
        new ConsentDlg(ToQString(u8"要把 ") + Counted(plan.added) + ToQString(u8"导入到手机吗？"),
                       ToQString(u8"导入"), ToQString(u8"取消"), look::ButtonKind::primary, &page_);
    question->AddRemark(rest.join(u'\n'));
    auto shared = std::make_shared<const ImportContent>(std::move(content));
    question->Open([this, shared](int result) {
        if (result == QDialog::Accepted) {
            SendImport(shared);
        }
    });
}

void FileTransfers::SendImport(const std::shared_ptr<const ImportContent>& content) {
    atWork_ = true;
    RunDisabled(
        page_,
        [read = offer_.read, content, watch = Watch(u8"正在导入%1：%2/%3")] {
            return read(*content, ImportMode::send, watch);
        },
        [this](const ImportResult& result) {
            atWork_ = false;
            EndImport(result);
        });
}

void FileTransfers::EndImport(const ImportResult& result) {
    if (result.status.end == TransferEnd::whole) {
        host_.SetStatus(
            ToQString(u8"已导入 ") + Counted(result.added) +
            (result.there == 0 ? QString() : ToQString(u8"，手机上已有 ") + Counted(result.there)) +
            AndSkipped(result.skipped, u8"，%1 项没有导入") +
            AndSkipped(result.leftOut, u8"，%1 项的一部分内容没有导入"));
    } else if (result.added == 0) {
        Fail(u8"没有导入", result.status.why);
    } else {
        host_.SetStatus(ToQString(u8"【X】导入没有做完，已经导入 ") + Counted(result.added) +
                        ToQString(u8"：") + Reason(result.status.why));
    }
    // A request that was not acknowledged may have been taken all the same.
    if (result.added > 0 || result.status.outcome == SessionOutcome::noReply) {
        offer_.refresh();
    }
}

// ---- what is said ------------------------------------------------------------------------------

TransferWatch FileTransfers::Watch(std::u8string_view saying) {
    using Clock = std::chrono::steady_clock;
    TransferWatch watch;
    watch.progress = [this, saying, page = QPointer<QObject>(&page_), last = Clock::time_point{}](
                         std::size_t done, std::size_t of) mutable {
        if (const auto now = Clock::now(); now - last >= kProgressPause) {
            last = now;
            PostToWindow(page, [this, saying, done, of] {
                host_.SetStatus(
                    ToQString(saying).arg(ToQString(TextsOf(kind_).noun)).arg(done).arg(of));
            });
        }
    };
    return watch;
}

void FileTransfers::Fail(std::u8string_view saying, const std::string& why) {
    host_.SetStatus(ToQString(u8"【X】%1%2：%3")
                        .arg(ToQString(TextsOf(kind_).noun), ToQString(saying), Reason(why)));
}

QString FileTransfers::Counted(std::size_t count) const {
    return ToQString(CountedRecords(kind_, count));
}

}  // namespace quorvi
