// quorvi-site: the sample site until interrupted.
#include <csignal>
#include <filesystem>
#include <iostream>
#include <mutex>
#include <system_error>

#include "base/Text.h"
#include "base/os/SmallFile.h"
#include "site/Options.h"
#include "site/SampleServer.h"

namespace {

// Those by which it is ended. Blocked before any other thread exists, so that the main thread alone
// takes them.
sigset_t EndSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        sigaddset(&signals, signal);
    }
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return signals;
}

void Print(const std::string& line) {
    static std::mutex mutex;
    const std::scoped_lock lock(mutex);
    std::cout << line << std::endl;
}

}  // namespace

int main(int argc, char** argv) {
    using namespace quorvi;
    using namespace quorvi::site;
    CommandLine line = ParseCommandLine({argv + 1, argv + argc});
    if (line.help) {
        std::cout << HelpText();
        return 0;
    }
    if (!line.error.empty()) {
        std::cerr << "quorvi-site: " << line.error << "; see --help\n";
        return 1;
    }
    SetCodePage(CodePage::gb18030);
    const sigset_t signals = EndSignals();
    line.server.log = &Print;
    SampleServer server(std::move(line.server));
    if (const std::string error = server.Start(); !error.empty()) {
        std::cerr << "quorvi-site: " << error << '\n';
        return 1;
    }
    const Deployment deployment = server.Told(TheDeployment());
    // Written whole, once requests are answered: who waits for the site waits for the file.
    if (!line.deployment.empty() && WriteWhole(line.deployment, DeploymentDocument(deployment))) {
        std::cerr << "quorvi-site: cannot write " << line.deployment.native() << '\n';
        return 1;
    }
    Print("ready: " + deployment.storeRoot);
    int signal = 0;
    sigwait(&signals, &signal);
    return 0;
}
