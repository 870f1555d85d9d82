#include "pages/screen/PictureDrag.h"

#include <unistd.h>

#include <QDir>
#include <QTemporaryDir>
#include <QUrl>
#include <utility>

#include "pages/screen/PictureFile.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

constexpr int kPngQuality = 100;  // PNG loses nothing, whatever it is told

const QString& UriList() {
    static const QString format = QStringLiteral("text/uri-list");
    return format;
}

// "quorvi-screen-<process>-XXXXXX": by the process a later one sees whose folder it is.
QString FolderPrefix() {
    return QStringLiteral("quorvi-screen-");
}

// Takes away this user's folders of processes that are no more: a process that ends at once leaves
// its own behind.
void SweepFolders(const QString& temporary) {
    const auto folders =
        QDir(temporary).entryInfoList({FolderPrefix() + QStringLiteral("*")},
                                      QDir::Dirs | QDir::NoSymLinks | QDir::NoDotAndDotDot);
    for (const QFileInfo& folder : folders) {
        const QString process =
            folder.fileName().mid(FolderPrefix().size()).section(QLatin1Char('-'), 0, 0);
        const bool lives = QFileInfo::exists(QStringLiteral("/proc/") + process);
        if (process.toInt() > 0 && !lives && folder.ownerId() == geteuid()) {
            QDir(folder.filePath()).removeRecursively();
        }
    }
}

}  // namespace

PictureCopy::PictureCopy(ScreenPicture picture, std::string name, const Places& places) {
    auto promise = std::make_shared<std::promise<std::shared_ptr<const Written>>>();
    written_ = promise->get_future().share();
    const QString temporary = QString::fromStdString(places.temporary.string());
    // Nobody waits for the worker's end but who drops the picture.
    RunJob(
        nullptr,
        [promise, temporary, picture = std::move(picture), name = std::move(name)] {
            SweepFolders(temporary);
            auto written = std::make_shared<Written>();
            written->folder = std::make_unique<QTemporaryDir>(
                QStringLiteral("%1/%2%3-XXXXXX").arg(temporary, FolderPrefix()).arg(getpid()));
            const std::filesystem::path file =
                std::filesystem::path(written->folder->path().toStdString()) / name;
            if (written->folder->isValid() &&
                SavePicture(picture.frame, picture.rotation, file, SaveFormat::png, kPngQuality)
                    .saved) {
                written->file = QString::fromStdString(file.string());
            }
            promise->set_value(std::move(written));
            return true;
        },
        [](bool) {});
}

QString PictureCopy::Path(std::chrono::milliseconds limit) const {
    return written_.wait_for(limit) == std::future_status::ready ? written_.get()->file : QString();
}

QStringList DraggedPicture::formats() const {
    return {UriList()};
}

bool DraggedPicture::hasFormat(const QString& format) const {
    return format == UriList();
}

QVariant DraggedPicture::retrieveData(const QString& format, QMetaType /*type*/) const {
    if (format != UriList()) {
        return {};
    }
    const QString path = copy_.Path(kLongestWait);
    return path.isEmpty() ? QByteArray() : QUrl::fromLocalFile(path).toEncoded() + "\r\n";
}

}  // namespace quorvi
