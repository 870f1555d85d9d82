#include "pages/files/FileIcons.h"

#include <QMimeDatabase>
#include <algorithm>
#include <array>

#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

constexpr QStringView kFolderType = u"inode/directory";

// The most extensions that are remembered; a phone may have a different one on each file.
constexpr qsizetype kMostExtensions = 1024;

struct OwnPicture {
    QStringView of;
    QStringView picture;
};
// By a MIME type, then by the icon that stands for a group of them.
constexpr std::array<OwnPicture, 15> kOwnPictures{{
    {kFolderType, u"file-folder"},
    {u"application/vnd.android.package-archive", u"file-app"},
    {u"application/x-mimearchive", u"file-web"},
    {u"application/xhtml+xml", u"file-web"},
    {u"text/html", u"file-web"},
    {u"application/pdf", u"file-text"},
    {u"image-x-generic", u"file-image"},
    {u"audio-x-generic", u"file-audio"},
    {u"video-x-generic", u"file-video"},
    {u"package-x-generic", u"file-archive"},
    {u"text-x-generic", u"file-text"},
    {u"text-x-script", u"file-text"},
    {u"x-office-document", u"file-text"},
    {u"x-office-presentation", u"file-text"},
    {u"x-office-spreadsheet", u"file-text"},
}};

QString OwnPictureOf(const QMimeType& type) {
    for (const QString& name : {type.name(), type.genericIconName()}) {
        const auto* found = std::ranges::find(kOwnPictures, name, &OwnPicture::of);
        if (found != kOwnPictures.end()) {
            return found->picture.toString();
        }
    }
    return QStringLiteral("file");
}

QMimeType TypeOf(const QString& extension) {
    return QMimeDatabase().mimeTypeForFile(QLatin1Char('x') + extension,
                                           QMimeDatabase::MatchExtension);
}

}  // namespace

void FileIcons::Prepare() {
    (void)TypeOf(QStringLiteral(".txt"));
}

const FileIcon& FileIcons::Of(bool isFolder, std::string_view extension) {
    if (isFolder) {
        return OfType(kFolderType.toString());
    }
    const QString known =
        extension.size() > kLongestExtension ? QString() : ToShownQString(extension);
    if (types_.size() >= kMostExtensions) {
        types_.clear();
    }
    auto type = types_.constFind(known);
    if (type == types_.constEnd()) {
        type = types_.insert(known, TypeOf(known).name());
    }
    return OfType(*type);
}

const FileIcon& FileIcons::OfType(const QString& type) {
    auto icon = icons_.constFind(type);
    if (icon == icons_.constEnd()) {
        const QMimeType mime = QMimeDatabase().mimeTypeForName(type);
        QIcon theme = QIcon::fromTheme(mime.iconName());
        if (theme.isNull()) {
            theme = QIcon::fromTheme(mime.genericIconName());
        }
        icon = icons_.insert(type, {theme, OwnPictureOf(mime)});
    }
    return *icon;
}

}  // namespace quorvi
