// Saves pictures of the screen, and knows the folder that they go to.
#pragma once

#include <QObject>
#include <QString>
#include <ctime>
#include <deque>
#include <filesystem>
#include <functional>
#include <optional>

#include "base/Places.h"
#include "pages/screen/PictureFile.h"
#include "pages/screen/SaidStatus.h"
#include "pages/screen/SaveFormats.h"
#include "pages/screen/ScreenPicture.h"

namespace quorvi {

// What a picture is to be saved as.
struct SaveWish {
    ScreenPicture picture;
    int formatIndex = kFirstFormat;
    int qualityIndex = kFirstQuality;
};

// Belongs to a page, over whose window its dialogs open. All that touches the disk runs on workers,
// one after the other; the status says how each save has ended. The window's thread.
class PictureSaves : public QObject {
    Q_OBJECT
  public:
    using LocalTime = std::function<std::tm()>;  // any thread

    // `host` and `said` outlive it.
    PictureSaves(PageHost& host, SaidStatus& said, QWidget& page, Places places, LocalTime now);

    // Saves into the folder, under a name made of the time, without asking.
    void SaveAtOnce(const SaveWish& wish);
    // Asks for a name first. Its ending decides the format, over the format list. A name with
    // another ending writes nothing and says nothing: kept on purpose
    // (ScreenshotPageSaves.ANameWithAnUnknownEndingWritesNothingAndSaysNothing).
    void AskAndSave(const SaveWish& wish);

    // Asks for the folder, goes there with the process's working directory, and keeps it.
    void ChooseFolder();
    // Opens the folder on the desktop.
    void OpenFolder();

    [[nodiscard]] bool AtWork() const { return !jobs_.empty(); }

  private:
    // Runs `work` behind those that are on their way, then `done` with what it gives.
    template <typename Work, typename Done>
    void Run(Work work, Done done);
    void StartNext();
    template <typename Done>
    void WithFolder(Done done);
    void KeepFolder(const QString& folder);
    void Tell(const QString& path, const SaveResult& result);

    PageHost& host_;
    SaidStatus& said_;
    QWidget& page_;
    Places places_;
    LocalTime now_;
    std::optional<std::filesystem::path> chosen_;  // since the start
    std::deque<std::function<void()>> jobs_;       // the first of them is on its way
};

}  // namespace quorvi
