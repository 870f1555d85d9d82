// A queue between a real server and an adb that does as it is told.
#pragma once

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "download/TaskQueue.h"
#include "tests/download/TaskRows.h"
#include "tests/support/Await.h"
#include "tests/support/FakeAdb.h"
#include "tests/support/SiteServer.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {

// Installs what is there.
inline constexpr std::string_view kInstallsFiles = R"(test -f "$5" && echo Success)";

inline std::string FileContent(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator(stream), {}};
}

class QueueTest : public testing::Test {
  protected:
    explicit QueueTest(std::string_view adb = kInstallsFiles) : adb_(adb) {
        heard_ = queue_.Observe([this](const QueueEvent& event) { Hear(event); });
    }
    // No worker outlives what the test holds.
    void TearDown() override {
        queue_.StopCurrent();
        EXPECT_TRUE(Await([this] { return queue_.IsIdle(); }));
    }

    // Puts a file on the site and a row for it in the table; gives the row's number. The site is
    // slow below "slow/".
    std::int32_t Add(const std::string& package, TaskState state = TaskState::waiting,
                     std::string_view path = "files") {
        site_.Serve(package + ".apk", ContentOf(package));
        CDownloadTask task = TaskOf(package, save_.Path().native());
        task.url = fmt::format("{}{}/{}.apk", site_.Root(), path, package);
        task.state = state;
        EXPECT_EQ(store_->InsertTask(task), StoreResult::done);
        return store_->FindTaskByUniqueId(package).id;
    }
    static std::string ContentOf(const std::string& package) {
        std::string content;
        for (int i = 0; content.size() < 200'000; ++i) {
            content += package + std::to_string(i);
        }
        return content;
    }
    [[nodiscard]] std::filesystem::path File(const std::string& package) const {
        return save_.Path() / (package + ".apk");
    }
    [[nodiscard]] std::filesystem::path Part(const std::string& package) const {
        return save_.Path() / (package + ".tmp");
    }
    [[nodiscard]] TaskState StateOf(std::int32_t id) const {
        const auto row = store_->LoadTaskForDownload(id);
        return row ? row->state : static_cast<TaskState>(-1);
    }
    [[nodiscard]] bool RunToTheEnd() const {
        queue_.StartNext();
        return Await([this] { return queue_.IsIdle(); });
    }

    // Words of all events so far but progress: "started com.a 1", with the state that stood in the
    // table when it was told.
    std::vector<std::string> Heard() {
        const std::lock_guard lock(mutex_);
        return events_;
    }
    // Those of one task.
    std::vector<std::string> HeardOf(const std::string& package) {
        std::vector<std::string> own = Heard();
        std::erase_if(own, [&](const std::string& event) {
            return event.find(" " + package + " ") == std::string::npos;
        });
        return own;
    }
    [[nodiscard]] bool HasHeard(const std::string& event) {
        const auto events = Heard();
        return std::ranges::find(events, event) != events.end();
    }
    std::vector<QueueEvent> Progress() {
        const std::lock_guard lock(mutex_);
        return progress_;
    }

    FakeAdb adb_;
    SiteServer site_{R"(
        location /files/ { alias FILES/; }
        location /slow/ { alias FILES/; limit_rate 50k; }
    )"};
    TemporaryFolder data_;
    TemporaryFolder save_;
    std::filesystem::path table_ = data_.Path() / "Config.db";
    std::shared_ptr<TaskStore> store_ = std::make_shared<TaskStore>(table_);
    TaskQueue queue_{store_, PackageInstaller(adb_.Environment()), [] { return "HT04"; }};

  private:
    void Hear(const QueueEvent& event) {
        static constexpr const char* kWords[] = {
            "started",        "progress",     "complete", "stopped",     "failed",
            "installStarted", "installEnded", "reload",   "storeFailed", "nothingChecked"};
        std::string text = kWords[static_cast<std::size_t>(event.kind)];
        if (!event.task.uniqueId.empty()) {
            text += fmt::format(" {} {}", event.task.uniqueId,
                                static_cast<int>(StateOf(event.task.id)));
        }
        const std::lock_guard lock(mutex_);
        if (event.kind == QueueEvent::Kind::progress) {
            progress_.push_back(event);
        } else {
            events_.push_back(std::move(text));
        }
    }

    std::mutex mutex_;
    std::vector<std::string> events_;
    std::vector<QueueEvent> progress_;
    Subscription heard_;
};

}  // namespace quorvi
