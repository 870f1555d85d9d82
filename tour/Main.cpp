// quorvi-tour [--look light|dark|contrast] [--home HOME] FOLDER [STOP...]: starts the suite's
// window, waits for the link, and writes a picture of each stop, or of these, into FOLDER, in that
// look. The user's folder is HOME, otherwise one in FOLDER. Ends with 0 when all are written, 1
// when one is not, 2 for wrong usage.
#include <QApplication>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/process/DesktopMachine.h"
#include "app/process/EndSignals.h"
#include "app/process/Preparation.h"
#include "app/process/ProcessEnd.h"
#include "app/process/Suite.h"
#include "base/LookChoice.h"
#include "site/SampleServer.h"
#include "tour/Tour.h"
#include "tour/TourHome.h"

namespace quorvi {
namespace {

struct TourOptions {
    LookChoice look = LookChoice::light;
    std::string home;  // empty: one in the folder
    std::string folder;
    std::vector<std::string> stops;  // by name; all when it is empty
};

std::optional<TourOptions> ReadOptions(const std::vector<std::string>& words) {
    TourOptions options;
    auto word = words.begin();
    for (; words.end() - word > 2 && word->starts_with("--"); word += 2) {
        if (*word == "--home") {
            options.home = word[1];
            continue;
        }
        const std::optional<LookChoice> look = LookOfName(word[1]);
        if (*word != "--look" || !look) {
            return std::nullopt;
        }
        options.look = *look;
    }
    if (word == words.end() || word->starts_with('-')) {
        return std::nullopt;
    }
    options.folder = *word;
    options.stops.assign(word + 1, words.end());
    return options;
}

int Misused() {
    std::fprintf(
        stderr, "usage: quorvi-tour [--look light|dark|contrast] [--home HOME] FOLDER [STOP...]\n");
    return 2;
}

}  // namespace
}  // namespace quorvi

int main(int argc, char** argv) {
    using namespace quorvi;
    const auto options = ReadOptions({argv + 1, argv + argc});
    if (!options) {
        return Misused();
    }
    LiveIn(options->home.empty() ? std::filesystem::path(options->folder) / "home"
                                 : std::filesystem::path(options->home));
    PrepareQt();
    // Made once and never torn down, as in the suite's own program.
    auto& application = *new QApplication(argc, argv);
    PrepareApplication(application);
    std::vector<TourStop> stops = StopsOf(TheTourStops(), options->stops);
    if (stops.empty()) {
        return Misused();
    }
    // A site that answers alike wherever the tour goes.
    auto& site = *new site::SampleServer;
    if (const std::string error = site.Start(); !error.empty()) {
        std::fprintf(stderr, "tour: %s\n", error.c_str());
        return 1;
    }
    // Without the user's settings: the pictures show the window in its usual size.
    const std::filesystem::path folder = options->folder;
    auto& machine = *new DesktopMachine(*new LocalSocketInstance, folder / "settings");
    MachineParts parts = machine.Parts();
    parts.deployment = site.Told(parts.deployment);
    parts.taskDatabase = [folder] { return folder / "Config.db"; };
    ChooseLook(parts.settings, options->look);
    auto& suite = *new Suite(std::move(parts));
    ListenForEndSignals([&suite] { suite.Window().EndDialog(); });
    suite.Start(false);

    Tour tour(suite.Window(), QString::fromStdString(folder.string()), std::move(stops),
              [](int failed) { EndProcess(failed == 0 ? 0 : 1); });
    tour.Start();
    EndProcess(QApplication::exec());
}
