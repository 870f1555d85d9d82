// Exports of a page's records into a file of the user's choice, and imports from one: the
// questions, the work, and what the status says of it.
#pragma once

#include <QString>
#include <QStringList>
#include <filesystem>
#include <functional>
#include <memory>

#include "backup/Export.h"
#include "backup/FileTransfer.h"
#include "backup/Import.h"
#include "ui/page/Page.h"

namespace quorvi {

class CSkinMenu;

// A member of a page. One transfer at a time: while one is under way its items are disabled. The
// window's thread.
class FileTransfers {
  public:
    // Both on a worker.
    using Export =
        std::function<ExportResult(const std::filesystem::path& file, const TransferWatch& watch)>;
    using Import = std::function<ImportResult(const ImportContent& content, ImportMode mode,
                                              const TransferWatch& watch)>;
    // What a page's menu offers: nothing for what is empty.
    struct Offer {
        Export write{};
        Import read{};
        std::function<void()> refresh{};  // behind an import that has sent something
    };
    FileTransfers(PageHost& host, QWidget& page, FileKind kind, Offer offer);
    FileTransfers(const FileTransfers&) = delete;
    FileTransfers& operator=(const FileTransfers&) = delete;

    // Commands of the items, beside which a page's own begin at 1.
    enum MenuCommand { menuExport = 101, menuImport };
    // The icons of the items, to stand in the menu's strip behind the page's own.
    [[nodiscard]] static QStringList Icons();
    // Appends the items, behind a line where the menu has items already; `firstImage` is the place
    // of Icons in the strip.
    void AddItems(CSkinMenu& menu, int firstImage) const;
    // Does what an item of AddItems says; false for any other command.
    bool Take(int command);

    [[nodiscard]] bool AtWork() const { return atWork_; }

    // Asks where to, suggesting `name` with the day, and exports there.
    void AskAndExport(const QString& name, Export write);
    // Asks for a file, says what of it would come to the phone, asks whether it is to, and imports
    // it. The page is disabled while something is under way.
    void AskAndImport();

  private:
    void StartExport(const std::filesystem::path& file, Export write);
    void EndExport(const QString& file, const ExportResult& result);
    void StartImport(const std::filesystem::path& file);
    void AskToImport(ImportContent content, const ImportResult& plan);
    void SendImport(const std::shared_ptr<const ImportContent>& content);
    void EndImport(const ImportResult& result);
    // Says how far a transfer has come.
    [[nodiscard]] TransferWatch Watch(std::u8string_view saying);
    void Fail(std::u8string_view saying, const std::string& why);
    [[nodiscard]] QString Counted(std::size_t count) const;

    PageHost& host_;
    QWidget& page_;
    FileKind kind_;
    Offer offer_;
    QString folder_;  // where the last dialog ended
    bool atWork_ = false;
};

// A text of the phone's (ANSI) as a part of a file's name.
[[nodiscard]] QString AsFileName(const std::string& text);

}  // namespace quorvi
