#include "tests/support/FakeAdb.h"

#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <iterator>
#include <sstream>
#include <thread>

namespace quorvi {
namespace {

namespace fs = std::filesystem;

// What every run notes of itself: its arguments in one line, and each of them by itself.
constexpr const char* kPrelude =
    "echo \"$*\" >> \"$dir/runs\"\n"
    "{ for a; do printf '%s\\037' \"$a\"; done; printf '\\036'; } >> \"$dir/calls\"\n"
    "await() { i=0; while [ ! -e \"$dir/$1\" ] && [ $i -lt 3000 ]; do\n"
    "  sleep 0.01; i=$((i+1)); done; }\n";

int CountEntries(const char* directory) {
    return static_cast<int>(std::distance(fs::directory_iterator(directory), {}));
}

pid_t NumberIn(const fs::path& file) {
    pid_t number = 0;
    std::ifstream(file) >> number;
    return number;
}

}  // namespace

FakeAdb::FakeAdb(std::string_view script) {
    // Renamed into its place whole.
    const fs::path draft = directory_.Path() / "draft";
    std::ofstream(draft) << "#!/bin/sh\ndir='" << directory_.Path().string() << "'\n"
                         << kPrelude << script << '\n';
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

std::vector<std::vector<std::string>> FakeAdb::Calls() const {
    std::vector<std::vector<std::string>> calls;
    std::ifstream file(directory_.Path() / "calls");
    for (std::string call; std::getline(file, call, '\036');) {
        std::istringstream arguments(call);
        calls.emplace_back();
        for (std::string argument; std::getline(arguments, argument, '\037');) {
            calls.back().push_back(argument);
        }
    }
    return calls;
}

bool FakeAdb::Has(const char* file) const {
    return fs::exists(directory_.Path() / file);
}

void FakeAdb::Put(const char* file) const {
    std::ofstream(directory_.Path() / file) << "";
}

void FakeAdb::Kill(const char* file) const {
    if (const pid_t process = NumberIn(directory_.Path() / file); process > 0) {
        kill(process, SIGKILL);
    }
}

bool FakeAdb::IsRunning(const char* file) const {
    const pid_t process = NumberIn(directory_.Path() / file);
    return process > 0 && kill(process, 0) == 0;
}

LinkEnvironment FakeAdb::Environment() const {
    LinkEnvironment environment;
    environment.adbPath = [path = Path()] { return path; };
    environment.hostPort = 1;  // nobody listens there
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
