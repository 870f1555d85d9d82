// A picture of the screen on its way to another program, as a PNG file.
#pragma once

#include <QMimeData>
#include <chrono>
#include <filesystem>
#include <future>
#include <memory>
#include <string>

#include "base/Places.h"
#include "pages/screen/ScreenPicture.h"

class QTemporaryDir;

namespace quorvi {

// A PNG file of one picture in a folder of its own, which only this user can open. It is gone with
// the last copy of this value; what an earlier process of the suite has left, the next file that is
// made takes away.
class PictureCopy {
  public:
    // Has a worker write the file, and returns at once. `name` is the file's. The window's thread.
    PictureCopy(ScreenPicture picture, std::string name, const Places& places);

    // The whole path; empty when the file could not be written, or not within `limit`.
    [[nodiscard]] QString Path(std::chrono::milliseconds limit) const;

  private:
    struct Written {
        std::unique_ptr<QTemporaryDir> folder;
        QString file;
    };
    std::shared_future<std::shared_ptr<const Written>> written_;
};

// What is dragged: the file's address, asked for when the picture is dropped. Waits for the file
// for at most kLongestWait then; mostly it has been written while the mouse was on its way.
class DraggedPicture : public QMimeData {
    Q_OBJECT
  public:
    static constexpr std::chrono::milliseconds kLongestWait = std::chrono::seconds(3);

    explicit DraggedPicture(PictureCopy copy) : copy_(std::move(copy)) {}

    [[nodiscard]] QStringList formats() const override;
    [[nodiscard]] bool hasFormat(const QString& format) const override;

  protected:
    [[nodiscard]] QVariant retrieveData(const QString& format, QMetaType type) const override;

  private:
    PictureCopy copy_;
};

}  // namespace quorvi
