// An engine with a folder to download into, and a sink that keeps what it is told.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <mutex>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "download/HttpDownloader.h"
#include "tests/support/Await.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {

struct Told {
    DownloadEvent event;
    std::int32_t speed;
    std::int32_t percent;

    bool operator==(const Told&) const = default;
};

inline void PrintTo(const Told& told, std::ostream* out) {
    *out << "event " << static_cast<int>(told.event) << " (" << told.speed << ", " << told.percent
         << ")";
}

// What the events are that bear no figures, and the one that ends a download.
inline Told Bare(DownloadEvent event) {
    return {event, -1, -1};
}
inline constexpr Told kComplete{DownloadEvent::complete, 0, 100};

class KeepingSink : public IDownloadSink {
  public:
    void OnDownloadEvent(DownloadEvent event, std::int32_t speed, std::int32_t percent) override {
        {
            const std::lock_guard lock(mutex_);
            told_.push_back({event, speed, percent});
        }
        if (onEvent) {
            onEvent(event);
        }
    }
    // All events so far, or those without progress.
    std::vector<Told> All() {
        const std::lock_guard lock(mutex_);
        return told_;
    }
    std::vector<Told> Ends() {
        std::vector<Told> ends = All();
        std::erase_if(ends, [](const Told& told) { return told.event == DownloadEvent::progress; });
        return ends;
    }
    bool HasHeard(DownloadEvent event) {
        const auto all = All();
        return std::ranges::any_of(all, [event](const Told& told) { return told.event == event; });
    }

    std::function<void(DownloadEvent event)> onEvent;  // on the download's thread; set before it

  private:
    std::mutex mutex_;
    std::vector<Told> told_;
};

inline std::string ContentOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator(stream), {}};
}

class EngineTest : public testing::Test {
  protected:
    // No worker outlives the test's folder.
    void TearDown() override {
        engine_.Stop();
        EXPECT_TRUE(Await([this] { return engine_.IsIdle(); }));
    }

    // Downloads to the end, and gives what was told of it but progress.
    std::vector<Told> Download(const std::string& url) {
        const std::size_t before = sink_->Ends().size();
        engine_.SetJob(url, target_);
        engine_.Start();
        EXPECT_TRUE(Await([this] { return engine_.IsIdle(); }));
        std::vector<Told> ends = sink_->Ends();
        ends.erase(ends.begin(), ends.begin() + static_cast<std::ptrdiff_t>(before));
        return ends;
    }
    void PutPart(std::string_view content) const {
        std::ofstream(part_, std::ios::binary) << content;
    }
    [[nodiscard]] bool HasTarget() const { return std::filesystem::exists(target_); }
    [[nodiscard]] bool HasPart() const { return std::filesystem::exists(part_); }

    TemporaryFolder folder_;
    std::filesystem::path target_ = folder_.Path() / "com.example.a.apk";
    std::filesystem::path part_ = folder_.Path() / "com.example.a.tmp";
    std::shared_ptr<KeepingSink> sink_ = std::make_shared<KeepingSink>();
    CHttpDownloader engine_ = [this] {
        CHttpDownloader engine;
        engine.SetSink(sink_);
        return engine;
    }();
};

}  // namespace quorvi
