#include "ui/kit/FileDialogs.h"

#include <QFileDialog>
#include <utility>

namespace quorvi {
namespace {

// "jpg" of "JPG图片 (*.jpg)".
QString EndingOf(const QString& filter) {
    const qsizetype dot = filter.lastIndexOf(QLatin1Char('.'));
    return filter.mid(dot + 1).chopped(1);
}

void Open(QFileDialog* dialog, std::function<void(const QString&)> done) {
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog,
                     [done = std::move(done)](const QString& path) { done(path); });
    dialog->open();
}

}  // namespace

void AskWhereToSave(QWidget& parent, const SaveQuestion& question,
                    std::function<void(const QString&)> done) {
    auto* dialog = new QFileDialog(parent.window(), question.title, question.folder);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->setNameFilters(question.filters);
    dialog->selectNameFilter(question.filter);
    dialog->setDefaultSuffix(EndingOf(question.filter));
    dialog->selectFile(question.name);
    QObject::connect(dialog, &QFileDialog::filterSelected, dialog, [dialog](const QString& filter) {
        dialog->setDefaultSuffix(EndingOf(filter));
    });
    Open(dialog, std::move(done));
}

void AskOpenFile(QWidget& parent, const OpenQuestion& question,
                 std::function<void(const QString&)> done) {
    auto* dialog = new QFileDialog(parent.window(), question.title, question.folder);
    dialog->setAcceptMode(QFileDialog::AcceptOpen);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilters(question.filters);
    Open(dialog, std::move(done));
}

void AskForFolder(QWidget& parent, const QString& title, const QString& folder,
                  std::function<void(const QString&)> done) {
    auto* dialog = new QFileDialog(parent.window(), title);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    dialog->setDirectory(folder);
    Open(dialog, std::move(done));
}

}  // namespace quorvi
