// What the download page costs with 10,000 tasks in its table: the time until its rows are painted,
// that of a reload, and how long the window's thread is away while a large file is downloaded. Ends
// with status 1 when the page costs more than it may.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "bench/Verdict.h"
#include "bench/WindowTurns.h"
#include "pages/downloads/DownloadPage.h"
#include "tests/support/FakeHost.h"
#include "tests/support/SiteServer.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestServices.h"
#include "ui/kit/SkinTree.h"

namespace quorvi {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRows = 10'000;
constexpr int kRepetitions = 9;
constexpr double kMostTime = 300;  // milliseconds until the rows are painted
constexpr double kMostAway = 50;   // milliseconds of the window's thread
constexpr QSize kPageSize(760, 462);

constexpr std::uintmax_t kFileBytes = 1 << 30;
// Of a run that only looks whether all still runs; see .ci/benchmarks.
constexpr std::uintmax_t kShortFileBytes = 16 << 20;
constexpr const char* kPackage = "com.example.large";
constexpr const char* kLocations = "location /apk/ { alias FILES/; sendfile on; tcp_nopush on; }";

const SiteServer* site = nullptr;

// As many rows of waiting tasks as are asked for, in one go.
void Fill(const std::filesystem::path& file, int rows) {
    { const TaskStore makesTheTable(file); }
    sqlite3* database = nullptr;
    const std::string statement =
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<" +
        std::to_string(rows) +
        ") INSERT INTO cdb_task SELECT NULL, 0, '晨间听书 ' || i, 'http://a.example/' || i, i % 9, "
        "'11.6MB', 1, '2026-11-22 09:40:12', 'com.example.app' || i, '/save' FROM n";
    if (sqlite3_open(file.c_str(), &database) != SQLITE_OK ||
        sqlite3_exec(database, statement.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        std::abort();
    }
    sqlite3_close(database);
}

// The page over a table of its own.
class Stage {
  public:
    explicit Stage(int rows) {
        const std::filesystem::path file = folder_.Path() / "Config.db";
        Fill(file, rows);
        services_.taskStore = std::make_shared<TaskStore>(file);
        made_ = std::make_unique<Services>(services_.At(0));
    }
    ~Stage() {
        page_.reset();
        RunWindowUntil([] { return RunningJobs() == 0; });
    }

    // Until the page is made and its rows are painted.
    void Open() {
        page_ = std::make_unique<CDownloadPage>(host_, *made_);
        page_->resize(kPageSize);
        page_->show();
        AwaitLoad(0);
    }
    // Until the tasks of another node are painted.
    void Reload(int node) {
        const std::size_t loads = host_.posted.size();
        auto& tree = *page_->findChild<CSkinTree*>();
        tree.setCurrentItem(tree.topLevelItem(node));
        AwaitLoad(loads);
    }
    [[nodiscard]] int Rows() { return page_->findChild<DownloadListCtrl*>()->RowCount(); }
    [[nodiscard]] TaskQueue& Queue() { return made_->taskQueue; }
    [[nodiscard]] const std::filesystem::path& Folder() const { return folder_.Path(); }
    [[nodiscard]] TaskStore& Store() { return *services_.taskStore; }

  private:
    void AwaitLoad(std::size_t before) {
        RunWindowUntil([&] { return host_.posted.size() > before; });
        page_->findChild<DownloadListCtrl*>()->viewport()->repaint();
    }

    TemporaryFolder folder_;
    FakeHost host_;
    TestServices services_;
    std::unique_ptr<Services> made_;
    std::unique_ptr<CDownloadPage> page_;
};

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void FirstLoad(benchmark::State& state) {
    for (auto _ : state) {
        Stage stage(kRows);
        const auto start = Clock::now();
        stage.Open();
        state.SetIterationTime(SecondsSince(start));
        if (stage.Rows() < kRows / 2) {
            state.SkipWithError("the rows did not come");
        }
    }
}

void NextLoad(benchmark::State& state) {
    for (auto _ : state) {
        Stage stage(kRows);
        stage.Open();
        stage.Reload(1);
        const auto start = Clock::now();
        stage.Reload(0);
        state.SetIterationTime(SecondsSince(start));
        if (stage.Rows() < kRows / 2) {
            state.SkipWithError("the rows did not come");
        }
    }
}

void Download(benchmark::State& state) {
    for (auto _ : state) {
        Stage stage(kRows);
        stage.Open();
        CDownloadTask task;
        task.title = "large";
        task.url = site->Root() + "apk/" + kPackage + ".apk";
        task.uniqueId = kPackage;
        task.savePath = stage.Folder().native();
        // Before all others, which stay as they are.
        if (sqlite3* database = nullptr;
            sqlite3_open((stage.Folder() / "Config.db").c_str(), &database) == SQLITE_OK) {
            sqlite3_exec(database, "UPDATE cdb_task SET state=2 WHERE state<2 OR state=5", nullptr,
                         nullptr, nullptr);
            sqlite3_close(database);
        }
        if (stage.Store().InsertTask(task) != StoreResult::done) {
            state.SkipWithError("the task was not taken");
            return;
        }
        const auto start = Clock::now();
        const Absence away = RunWindowUntil([&] { return stage.Queue().IsIdle(); },
                                            [&] { stage.Queue().StartNext(); });
        state.SetIterationTime(SecondsSince(start));
        state.counters["away"] = away.longest;
        state.counters["computed"] = away.computed;
        std::error_code missing;
        if (!std::filesystem::exists(stage.Folder() / (std::string(kPackage) + ".apk"), missing)) {
            state.SkipWithError("the file did not come");
        }
    }
}

void Judge(const Figures& figures, Verdict& verdict) {
    const double first = figures.Time("FirstLoad");
    verdict.AtMost("10,000 tasks on the screen, ms", first, kMostTime);
    verdict.AtMost("a reload of them, ms", figures.Time("NextLoad"), kMostTime);
    verdict.AtMost("a download: away, ms", figures.Counter("Download", "away"), kMostAway);
    Verdict::Tell("  of it computing", figures.Counter("Download", "computed"));
}

}  // namespace
}  // namespace quorvi

int main(int count, char** words) {
    using namespace quorvi;
    const SiteServer server(kLocations);
    site = &server;
    const std::string file = std::string(kPackage) + ".apk";
    server.Serve(file, "");
    std::filesystem::resize_file(server.Files() / file,
                                 IsShortRun(count, words) ? kShortFileBytes : kFileBytes);
    const auto application = MakeApplication(count, words);
    RegisterTimed("FirstLoad", &FirstLoad);
    RegisterTimed("NextLoad", &NextLoad);
    RegisterTimed("Download", &Download);
    return RunAndJudge(count, words, kRepetitions, Judge);
}
