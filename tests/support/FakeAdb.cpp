#include "tests/support/FakeAdb.h"

#include <stdlib.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <thread>

namespace quorvi {
namespace {

namespace fs = std::filesystem;

int CountEntries(const char* directory) {
    return static_cast<int>(std::distance(fs::directory_iterator(directory), {}));
}

}  // namespace

TemporaryDirectory::TemporaryDirectory() {
    std::string name = (fs::temp_directory_path() / "quorvi-link-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("no temporary directory");
    }
    path_ = name;
}

TemporaryDirectory::~TemporaryDirectory() {
    std::error_code failed;
    fs::remove_all(path_, failed);
}

FakeAdb::FakeAdb(std::string_view script) {
    // Renamed into its place whole.
    const fs::path draft = directory_.Path() / "draft";
    std::ofstream(draft) << "#!/bin/sh\ndir='" << directory_.Path().string()
                         << "'\necho \"$*\" >> \"$dir/runs\"\n"
                         << script << '\n';
    fs::permissions(draft, fs::perms::owner_all);
    fs::rename(draft, directory_.Path() / "adb");
}

std::vector<std::string> FakeAdb::Runs() const {
    std::vector<std::string> runs;
    std::ifstream file(directory_.Path() / "runs");
    for (std::string line; std::getline(file, line);) {
        runs.push_back(line);
    }
    return runs;
}

LinkEnvironment FakeAdb::Environment() const {
    LinkEnvironment environment;
    environment.adbPath = [path = Path()] { return path; };
    environment.hostPort = 1;   // nobody listens there
    environment.agentPort = 1;  // nor there
    environment.packageFile = directory_.Path() / kAgentPackageFile;
    return environment;
}

int OpenDescriptors() {
    return CountEntries("/proc/self/fd");
}

int RunningThreads() {
    return CountEntries("/proc/self/task");
}

int SettledThreads() {
    // The thread sanitizer's own thread comes with the first one of the program.
    std::thread([] {}).join();
    constexpr int kStillLooks = 20;
    constexpr int kMostLooks = 500;
    int threads = RunningThreads();
    for (int look = 0, still = 0; still < kStillLooks && look < kMostLooks; ++look) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        const int now = RunningThreads();
        still = now == threads ? still + 1 : 0;
        threads = now;
    }
    return threads;
}

int ZombieChildren() {
    int zombies = 0;
    const std::string self = std::to_string(getpid());
    for (const fs::directory_entry& entry : fs::directory_iterator("/proc")) {
        // "pid (name) state parent …"
        std::ifstream file(entry.path() / "stat");
        std::string line;
        if (!std::getline(file, line)) {
            continue;
        }
        std::istringstream behindName(line.substr(line.rfind(')') + 1));
        std::string state;
        std::string parent;
        behindName >> state >> parent;
        zombies += state == "Z" && parent == self ? 1 : 0;
    }
    return zombies;
}

}  // namespace quorvi
