// Asks the user for a place on the disk.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

class QWidget;

namespace quorvi {

// What a save dialog opens with.
struct SaveQuestion {
    QString title;
    QStringList filters;  // "JPG图片 (*.jpg)": each with one ending
    QString filter;       // the one chosen at first
    QString folder;       // where it opens
    QString name;         // what it suggests
};

// Shows the save dialog of the desktop, or Qt's where the desktop has none, modal to the window of
// `parent`, and returns at once. A name that is typed without an ending gets that of the filter; an
// ending that is typed stays, whatever it is. `done` is called with the whole path, on the window's
// thread, and not at all when the user gives up or the window goes.
void AskWhereToSave(QWidget& parent, const SaveQuestion& question,
                    std::function<void(const QString& path)> done);

// What a dialog that asks for a file opens with.
struct OpenQuestion {
    QString title;
    QStringList filters;  // "通讯录 (*.vcf *.csv)"; the first one is chosen at first
    QString folder;       // where it opens
};

// The same for a file that exists, and that is to be read.
void AskOpenFile(QWidget& parent, const OpenQuestion& question,
                 std::function<void(const QString& path)> done);

// The same for a folder that exists; `folder` is selected when the dialog opens.
void AskForFolder(QWidget& parent, const QString& title, const QString& folder,
                  std::function<void(const QString& path)> done);

}  // namespace quorvi
