// The commands of the downloads in this process, with a table of their own, a real server as the
// site, and an adb that installs what is there.
#pragma once

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "base/Json.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "tests/download/TaskRows.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/FakeAdb.h"
#include "tests/support/SiteServer.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi::cli {

// Lists one phone, and installs what is there.
inline constexpr std::string_view kOnePhone = R"(
    case "$1" in
        devices) printf 'List of devices attached\nHT04\tdevice\n\n' ;;
        -s) test -f "$5" && echo Success ;;
    esac)";

class DownloadsTest : public testing::Test {
  protected:
    explicit DownloadsTest(std::string_view locations = {}, std::string_view adb = kOnePhone)
        : adb_(adb), site_(locations) {}

    // Runs a command; its outputs are kept.
    using Function = Status (*)(const Arguments&, const Context&, Output&);
    Status Run(Function command, Arguments arguments = {}, bool json = true) {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        Output output(json);
        const Status status =
            command(arguments,
                    {.agent = std::uint16_t{0},
                     .attribution = {},
                     .deployment = {.siteRoot = site_.Root(), .downloadRoot = site_.Root()},
                     .tasks = table_},
                    output);
        text_ = testing::internal::GetCapturedStdout();
        messages_ = testing::internal::GetCapturedStderr();
        return status;
    }
    // What was printed: as one document, or as one for each line.
    [[nodiscard]] Json::Value Said() const { return ParseJson(text_).value_or(Json::Value()); }
    [[nodiscard]] std::vector<Json::Value> Lines() const {
        std::vector<Json::Value> lines;
        std::istringstream text(text_);
        for (std::string line; std::getline(text, line);) {
            lines.push_back(ParseJson(line).value_or(Json::Value()));
        }
        return lines;
    }
    // "started com.a", in their order, without the progress.
    [[nodiscard]] std::vector<std::string> Events() const {
        std::vector<std::string> events;
        for (const Json::Value& line : Lines()) {
            if (line["event"] != "progress") {
                events.push_back(line["event"].asString() + " " + line["package"].asString());
            }
        }
        return events;
    }

    // Puts a file on the site, and a row for it into the table; gives the row's number. Its address
    // is files/<package>.apk unless another one is given, in which FILE stands for the file's name.
    std::int32_t Add(const std::string& package, TaskState state = TaskState::waiting,
                     const std::string& path = "files/FILE") {
        const std::string file = package + ".apk";
        site_.Serve("files/" + file, ContentOf(package));
        CDownloadTask task = TaskOf(package, save_.Path().native());
        task.url = site_.Root() + ReplaceAll(path, "FILE", file);
        task.state = state;
        TaskStore store(table_);
        EXPECT_EQ(store.InsertTask(task), StoreResult::done);
        return store.FindTaskByUniqueId(package).id;
    }
    static std::string ContentOf(const std::string& package) {
        std::string content;
        for (int i = 0; content.size() < 200'000; ++i) {
            content += package + std::to_string(i);
        }
        return content;
    }
    [[nodiscard]] TaskState StateOf(std::int32_t id) const {
        const auto row = TaskStore(table_).LoadTaskForDownload(id);
        return row ? row->state : static_cast<TaskState>(-1);
    }
    [[nodiscard]] std::filesystem::path File(const std::string& package) const {
        return save_.Path() / (package + ".apk");
    }
    [[nodiscard]] std::filesystem::path Part(const std::string& package) const {
        return save_.Path() / (package + ".tmp");
    }
    static std::string FileContent(const std::filesystem::path& file) {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator(stream), {}};
    }

    FakeAdb adb_;
    EnvironmentVariable path_{"PATH", adb_.Directory().native() + ":" + std::getenv("PATH")};
    SiteServer site_;
    TemporaryFolder data_;
    TemporaryFolder save_;
    std::filesystem::path table_ = data_.Path() / "Config.db";
    std::string text_;
    std::string messages_;
};

}  // namespace quorvi::cli
