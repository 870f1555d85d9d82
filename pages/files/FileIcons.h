// The icons of files, by what their names say that they are.
#pragma once

#include <QHash>
#include <QIcon>
#include <QString>
#include <string_view>

namespace quorvi {

// What is drawn before the name of an entry.
struct FileIcon {
    QIcon theme;  // of the desktop's icon theme; null where that has none
    QString own;  // a name of look::icon, drawn in its place then
};

// Finds the icon of a MIME type once, when it is asked for first. MIME types are told from the
// extension alone: no file of the PC is looked at. The window's thread.
class FileIcons {
  public:
    // Bytes of the longest extension that is looked up; what is longer is none.
    static constexpr std::size_t kLongestExtension = 16;

    // Reads the PC's table of MIME types, once in a process, so that the window does not wait for
    // it. Any thread.
    static void Prepare();

    // Of an entry with this extension ("", ".gz"), in ANSI.
    [[nodiscard]] const FileIcon& Of(bool isFolder, std::string_view extension);

  private:
    [[nodiscard]] const FileIcon& OfType(const QString& type);

    QHash<QString, QString> types_;   // of extensions
    QHash<QString, FileIcon> icons_;  // of MIME types
};

}  // namespace quorvi
