#include "pages/screen/PictureSaves.h"

#include <QDir>
#include <QUrl>
#include <string>
#include <system_error>
#include <utility>

#include "pages/screen/SavePlace.h"
#include "ui/kit/FileDialogs.h"
#include "ui/kit/QtText.h"
#include "ui/page/Job.h"
#include "ui/page/OpenOnDesktop.h"

namespace quorvi {
namespace {

// Names of files are UTF-8 on the disk.
QString ToShown(const std::filesystem::path& path) {
    return QString::fromStdString(path.native());
}

std::filesystem::path ToPath(const QString& shown) {
    return shown.toStdString();
}

}  // namespace

PictureSaves::PictureSaves(PageHost& host, SaidStatus& said, QWidget& page, Places places,
                           LocalTime now)
    : QObject(&page),
      host_(host),
      said_(said),
      page_(page),
      places_(std::move(places)),
      now_(std::move(now)) {}

// ---- one after the other -----------------------------------------------------------------------

template <typename Work, typename Done>
void PictureSaves::Run(Work work, Done done) {
    jobs_.push_back([this, work = std::move(work), done = std::move(done)]() mutable {
        RunJob(this, std::move(work), [this, done = std::move(done)](auto&& result) mutable {
            done(result);
            jobs_.pop_front();
            StartNext();
        });
    });
    if (jobs_.size() == 1) {
        StartNext();
    }
}

void PictureSaves::StartNext() {
    if (!jobs_.empty()) {
        jobs_.front()();
    }
}

// `done` gets the folder into which pictures go, which is there unless it could not be made.
template <typename Done>
void PictureSaves::WithFolder(Done done) {
    Run([&settings = host_.Settings(), places = places_] { return SaveFolder(settings, places); },
        std::move(done));
}

// ---- saving ------------------------------------------------------------------------------------

namespace {

struct Saved {
    std::filesystem::path path;
    SaveResult result;
};

}  // namespace

void PictureSaves::SaveAtOnce(const SaveWish& wish) {
    Run(
        [&settings = host_.Settings(), places = places_, now = now_, wish] {
            const SaveFormat format = FormatOf(wish.formatIndex);
            const std::filesystem::path path =
                SaveFolder(settings, places) / BatchName(now(), format);
            return Saved{path, SavePicture(wish.picture.frame, wish.picture.rotation, path, format,
                                           QualityOf(wish.qualityIndex))};
        },
        [this](const Saved& saved) { Tell(ToShown(saved.path), saved.result); });
}

void PictureSaves::AskAndSave(const SaveWish& wish) {
    WithFolder([this, wish](const std::filesystem::path& folder) {
        SaveQuestion question{
            .title = ToQString(u8"保存截图文件"),
            .filters = {},
            .filter = ToQString(RowOf(FormatOf(wish.formatIndex)).filter),
            .folder = ToShown(chosen_.value_or(folder)),
            .name = QString::fromStdString(BatchName(now_(), FormatOf(wish.formatIndex)))};
        for (const SaveFormatRow& row : kSaveFormats) {
            question.filters.append(ToQString(row.filter));
        }
        AskWhereToSave(page_, question, [this, wish](const QString& name) {
            const std::filesystem::path path = ToPath(name);
            const std::optional<SaveFormat> format = FormatOfName(path.native());
            if (!format) {
                return;
            }
            Run(
                [path, wish, format = *format] {
                    return SavePicture(wish.picture.frame, wish.picture.rotation, path, format,
                                       QualityOf(wish.qualityIndex));
                },
                [this, name](const SaveResult& result) { Tell(name, result); });
        });
    });
}

// How a save has ended.
void PictureSaves::Tell(const QString& path, const SaveResult& result) {
    if (result.saved) {
        said_.Say(ToQString(u8"截图已保存：%1").arg(path));
    } else {
        said_.Say(ToQString(u8"【X】截图没有保存：%1").arg(ToQString(result.reason)));
    }
}

// ---- the folder --------------------------------------------------------------------------------

void PictureSaves::ChooseFolder() {
    WithFolder([this](const std::filesystem::path& folder) {
        AskForFolder(page_, ToQString(u8"奎维掌上工坊 截图保存目录"), ToShown(folder),
                     [this](const QString& chosen) { KeepFolder(chosen); });
    });
}

void PictureSaves::KeepFolder(const QString& folder) {
    chosen_ = ToPath(folder);
    if (!FitsCodePage(folder)) {
        said_.Say(
            ToQString(u8"【X】这个目录的名称里有当前文字编码没有的字符，下次启动后不再使用；"
                      u8"请换一个目录"));
    }
    Run(
        [&settings = host_.Settings(), path = *chosen_, keeps = FitsCodePage(folder)] {
            std::error_code unknown;
            std::filesystem::current_path(path, unknown);
            return !keeps || KeepSaveFolder(settings, path);
        },
        [this](bool kept) {
            if (!kept) {
                said_.Say(ToQString(u8"【X】保存目录没有记住：设置文件写不进去"));
            }
        });
}

void PictureSaves::OpenFolder() {
    WithFolder([this](const std::filesystem::path& folder) {
        const QString address = QUrl::fromLocalFile(ToShown(folder)).toString(QUrl::FullyEncoded);
        if (!OpenOnDesktop(address)) {
            said_.Say(
                ToQString(u8"【X】桌面没有打开这个目录，请自己到 %1 查看").arg(ToShown(folder)));
        }
    });
}

}  // namespace quorvi
