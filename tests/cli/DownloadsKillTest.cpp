// quorvictl, killed at random moments of its work on the downloads: no row is lost or doubled, and
// in the end every file is there byte for byte.
//
// QUORVI_KILLS says how many are killed, and QUORVI_KILL_SEED repeats the moments of another run.
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <random>
#include <thread>

#include "tests/download/TaskRows.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/FakeAdb.h"
#include "tests/support/OwnProgram.h"
#include "tests/support/Process.h"
#include "tests/support/SiteServer.h"

namespace quorvi {
namespace {

using e2e::Process;
using e2e::ProgramResult;
using e2e::RunProgram;

constexpr int kUsualKills = 20;

// Takes its time over an installation, so that some are hit.
constexpr std::string_view kAdb = R"(
    case "$1" in
        devices) printf 'List of devices attached\nHT04\tdevice\n\n' ;;
        -s) sleep 0.05; test -f "$5" && echo Success ;;
    esac)";

unsigned NumberOf(const char* variable, unsigned otherwise) {
    const char* const value = std::getenv(variable);
    return value == nullptr ? otherwise : static_cast<unsigned>(std::strtoul(value, nullptr, 10));
}

class DownloadsKill : public testing::Test {
  protected:
    DownloadsKill() {
        for (const std::string& package : packages_) {
            PutOnSite(package);
            CDownloadTask task = TaskOf(package, save_.Path().native());
            task.url = fmt::format("{}files/{}.apk", site_.Root(), package);
            EXPECT_EQ(TaskStore(program_.Tasks()).InsertTask(task), StoreResult::done);
        }
        // The only package that the site can resolve.
        PutOnSite(kAdded);
        site_.Serve("feedback/android_info.php",
                    fmt::format(R"({{"pkg":"{0}","title":"{0}","url":"files/{0}.apk"}})", kAdded));
    }

    void PutOnSite(const std::string& package) const {
        site_.Serve("files/" + package + ".apk", ContentOf(package));
    }
    static const std::string& ContentOf(const std::string& package) {
        static std::map<std::string, std::string> contents;
        std::string& content = contents[package];
        for (int i = 0; content.size() < 1'000'000; ++i) {
            content += package + std::to_string(i);
        }
        return content;
    }
    static std::string FileContent(const std::filesystem::path& file) {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator(stream), {}};
    }
    [[nodiscard]] std::filesystem::path File(const std::string& package,
                                             const char* suffix = ".apk") const {
        return save_.Path() / (package + suffix);
    }
    // What is killed this time: mostly the work itself, sometimes who changes the rows meanwhile.
    [[nodiscard]] std::vector<std::string> NextVictim(std::mt19937& random) const {
        const auto added = TaskStore(program_.Tasks()).FindTaskByUniqueId(kAdded);
        switch (random() % 5) {
            case 0:
                if (added.id != kNoTask) {
                    return program_.Line({"downloads", "remove", std::to_string(added.id)});
                }
                return program_.Line({"downloads", "add", kAdded, "--to", save_.Path().native()});
            case 1:
                return program_.Line({"downloads", "resume", "1", "2", "3", "4"});
            default:
                return program_.Line({"downloads", "run"});
        }
    }
    // Every row that was there before is there once, and so is, at most, the one that comes and
    // goes. The file can be read.
    void ExpectWholeTable() {
        EXPECT_THAT(RunSql(program_.Tasks(), "PRAGMA integrity_check"), testing::ElementsAre("ok"));
        std::vector<std::string> rows =
            RunSql(program_.Tasks(), "SELECT unique_id FROM cdb_task ORDER BY id");
        if (!rows.empty() && rows.back() == kAdded) {
            rows.pop_back();
        }
        EXPECT_THAT(rows, testing::ElementsAreArray(packages_));
    }
    // What stands under a package's name is its file, and its part the beginning of it.
    void ExpectRightFiles() const {
        std::vector<std::string> packages = packages_;
        packages.emplace_back(kAdded);
        for (const std::string& package : packages) {
            const std::string& content = ContentOf(package);
            if (std::filesystem::exists(File(package))) {
                EXPECT_TRUE(FileContent(File(package)) == content) << package;
            }
            EXPECT_TRUE(content.starts_with(FileContent(File(package, ".tmp")))) << package;
        }
    }
    // One run more, which nobody kills, makes all right.
    void RunToTheEnd() const {
        const ProgramResult run =
            RunProgram(program_.Line({"downloads", "run"}), {}, std::chrono::minutes(1));
        EXPECT_FALSE(run.timedOut);
        EXPECT_THAT(
            RunSql(program_.Tasks(), "SELECT unique_id, state FROM cdb_task WHERE state<>3"),
            testing::IsEmpty())
            << run.output;
    }

    static constexpr const char* kAdded = "com.added";

    const std::vector<std::string> packages_{"com.a", "com.b", "com.c", "com.d"};
    FakeAdb adb_{kAdb};
    EnvironmentVariable path_{"PATH", adb_.Directory().native() + ":" + std::getenv("PATH")};
    SiteServer site_{"location /files/ { alias FILES/files/; limit_rate 4m; }"};
    OwnProgram program_{site_.Root()};
    TemporaryFolder save_;
};

TEST_F(DownloadsKill, NoRowIsLostAndEveryFileIsRightInTheEnd) {
    const unsigned kills = NumberOf("QUORVI_KILLS", kUsualKills);
    const unsigned seed = NumberOf("QUORVI_KILL_SEED", std::random_device()());
    std::cout << "seed " << seed << std::endl;
    std::mt19937 random(seed);
    std::map<std::string, int> victims;
    std::map<std::string, int> states;
    for (unsigned i = 0; i < kills && !HasFailure(); ++i) {
        SCOPED_TRACE(fmt::format("kill {} of seed {}", i, seed));
        const std::vector<std::string> victim = NextVictim(random);
        // The work takes longer than a change of rows.
        const int latest = victim[2] == "run" ? 600'000 : 80'000;
        {
            const Process process(victim, (save_.Path() / "output").native());
            std::this_thread::sleep_for(
                std::chrono::microseconds(std::uniform_int_distribution<int>(0, latest)(random)));
            victims[victim[2] + (process.IsRunning() ? "" : ", ended")] += 1;
        }
        ExpectWholeTable();
        ExpectRightFiles();
        for (const std::string& state : RunSql(program_.Tasks(), "SELECT state FROM cdb_task")) {
            states[state] += 1;
        }
        // All is done: the work begins anew.
        if (RunSql(program_.Tasks(), "SELECT id FROM cdb_task WHERE state<>3").empty()) {
            for (const std::string& package : packages_) {
                std::filesystem::remove(File(package));
            }
            EXPECT_EQ(RunProgram(program_.Line({"downloads", "resume", "1", "2", "3", "4"})).status,
                      0);
        }
    }
    RunToTheEnd();
    ExpectWholeTable();
    ExpectRightFiles();
    for (const std::string& package : packages_) {
        EXPECT_TRUE(std::filesystem::exists(File(package))) << package;
    }
    for (const auto& [victim, count] : victims) {
        std::cout << victim << ": " << count << std::endl;
    }
    for (const auto& [state, count] : states) {
        std::cout << "state " << state << ": " << count << std::endl;
    }
}

}  // namespace
}  // namespace quorvi
