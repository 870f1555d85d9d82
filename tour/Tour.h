// The tour: a picture of the window at each of its stops.
#pragma once

#include <QDir>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace quorvi {

class CMainDlg;

// One picture. `open` brings the window there; it may run a menu or a dialog and return when that
// is closed, which the tour does once the picture is taken.
struct TourStop {
    std::string name;  // of the file, without its ending
    std::function<void(CMainDlg& window)> open;
    // Takes away what `open` left behind, after the picture.
    std::function<void(CMainDlg& window)> leave = {};
    // The page's load never ends there: its picture is taken while it loads.
    bool endless = false;
    // What its picture waits for beside the page's load.
    std::function<bool()> ready = {};
};

// All stops, in order: the pages of the page table first. Whoever adds a dialog or a menu adds its
// stop in tour/TourStops.cpp.
[[nodiscard]] std::vector<TourStop> TheTourStops();
// Those at the pages of the user's own records, beyond the pages themselves.
[[nodiscard]] std::vector<TourStop> PersonalStops();
// Those at the tools of the phone.
[[nodiscard]] std::vector<TourStop> ToolsStops();
// Those at the pages that ask the site.
[[nodiscard]] std::vector<TourStop> OnlineStops();
// Those at the downloads.
[[nodiscard]] std::vector<TourStop> DownloadStops();
// Those at the backups of the phone.
[[nodiscard]] std::vector<TourStop> BackupStops();
// Those where something does not work.
[[nodiscard]] std::vector<TourStop> TroubleStops();

// Those of `stops` that bear one of these names, in the order of the stops; all without a name.
// Nothing when a name is none of a stop's.
[[nodiscard]] std::vector<TourStop> StopsOf(std::vector<TourStop> stops,
                                            const std::vector<std::string>& names);

// How long the tour waits. `link` and `load` are the most: on a busy machine all comes in this
// time, and what hangs does not keep the tour for ever.
struct TourPatience {
    std::chrono::milliseconds link = std::chrono::minutes(5);   // for the link procedure's end
    std::chrono::milliseconds load = std::chrono::seconds(30);  // for a page's load
    // And at least, before each picture: a page paints, a web view lays itself out, a menu fades
    // in.
    std::chrono::milliseconds settle{700};
};

// Waits until the link procedure is over, well or not, then goes from stop to stop, writes a PNG of
// the window and of what is open over it, and calls `done` with the number of pictures not written.
// The window's thread.
class Tour : public QObject {
    Q_OBJECT
  public:
    Tour(CMainDlg& window, const QString& folder, std::vector<TourStop> stops,
         std::function<void(int failed)> done, TourPatience patience = {});

    void Start();

  private:
    [[nodiscard]] bool Exceeds(std::chrono::milliseconds limit) const;
    void Wait();
    void Open();
    void Look();
    void Take();
    [[nodiscard]] bool IsQuiet() const;
    [[nodiscard]] QPixmap Picture() const;

    CMainDlg& window_;
    QDir folder_;
    std::vector<TourStop> stops_;
    std::function<void(int)> done_;
    TourPatience patience_;
    std::size_t at_ = 0;
    int failed_ = 0;
    QElapsedTimer since_;
    QTimer tick_;
};

}  // namespace quorvi
