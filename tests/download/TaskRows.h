// Rows of the tasks' table, made and read beside the store.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <string>
#include <vector>

#include "base/Text.h"
#include "download/TaskStore.h"

namespace quorvi {

// A task of this package; its file would lie in `folder`.
inline CDownloadTask TaskOf(std::string_view package, std::string_view folder = "/save") {
    CDownloadTask task;
    task.title = Ansi(u8"听书");
    task.url = "http://download.example/a.apk";
    task.uniqueId = package;
    task.length = "1.5MB";
    task.savePath = folder;
    return task;
}

// Runs a statement on the file by a handle of its own, and gives its cells, row behind row.
inline std::vector<std::string> RunSql(const std::filesystem::path& file, const std::string& sql) {
    sqlite3* database = nullptr;
    std::vector<std::string> cells;
    EXPECT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
    sqlite3_busy_timeout(database, 20'000);
    const auto take = [](void* to, int count, char** values, char**) {
        for (int i = 0; i < count; ++i) {
            static_cast<std::vector<std::string>*>(to)->emplace_back(
                values[i] == nullptr ? "NULL" : values[i]);
        }
        return 0;
    };
    char* message = nullptr;
    EXPECT_EQ(sqlite3_exec(database, sql.c_str(), take, &cells, &message), SQLITE_OK)
        << (message == nullptr ? "" : message);
    sqlite3_free(message);
    sqlite3_close(database);
    return cells;
}

// The packages of a filter's rows.
inline std::vector<std::string> PackagesOf(const TaskStore& store, TaskFilter filter) {
    std::vector<std::string> packages;
    for (const CDownloadTask& task : store.LoadTaskList(filter).tasks) {
        packages.push_back(task.uniqueId);
    }
    return packages;
}

}  // namespace quorvi
