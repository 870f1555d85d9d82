// quorvi-tour FOLDER: starts the suite's window, waits for the link, and writes a picture of each
// stop into FOLDER. Ends with 0 when all are written, 1 when one is not, 2 for wrong usage.
#include <QApplication>
#include <cstdio>
#include <filesystem>
#include <string>
#include <utility>

#include "app/process/DesktopMachine.h"
#include "app/process/EndSignals.h"
#include "app/process/Preparation.h"
#include "app/process/ProcessEnd.h"
#include "app/process/Suite.h"
#include "site/SampleServer.h"
#include "tour/Tour.h"

int main(int argc, char** argv) {
    using namespace quorvi;
    if (argc != 2 || argv[1][0] == '-') {
        std::fprintf(stderr, "usage: quorvi-tour FOLDER\n");
        return 2;
    }
    PrepareQt();
    // Made once and never torn down, as in the suite's own program.
    auto& application = *new QApplication(argc, argv);
    PrepareApplication(application);
    // A site that answers alike wherever the tour goes.
    auto& site = *new site::SampleServer;
    if (const std::string error = site.Start(); !error.empty()) {
        std::fprintf(stderr, "tour: %s\n", error.c_str());
        return 1;
    }
    // Without the user's settings: the pictures show the window in its usual size.
    const std::filesystem::path folder = argv[1];
    auto& machine = *new DesktopMachine(*new LocalSocketInstance, folder / "settings");
    MachineParts parts = machine.Parts();
    parts.deployment = site.Told(parts.deployment);
    parts.taskDatabase = [folder] { return folder / "Config.db"; };
    auto& suite = *new Suite(std::move(parts));
    ListenForEndSignals([&suite] { suite.Window().EndDialog(); });
    suite.Start(false);

    Tour tour(suite.Window(), QString::fromLocal8Bit(argv[1]), TheTourStops(),
              [](int failed) { EndProcess(failed == 0 ? 0 : 1); });
    tour.Start();
    EndProcess(QApplication::exec());
}
