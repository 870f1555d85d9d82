// One download, finished or not: a row of the tasks' table.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace quorvi {

// How far a task has come. The numbers stand in the table; one that is none of these may, too.
enum class TaskState : std::int32_t {
    waiting = 0,        // for its download
    downloading = 1,    // or asked to start; stays so where the program ends in between
    paused = 2,         // by the user
    done = 3,           // downloaded and installed on the phone
    failed = 4,         // the download failed
    installing = 5,     // downloaded; waits for its installation, or is being installed
    installingXap = 6,  // a caption alone: nothing writes it
    converting = 7,     // a caption alone: nothing writes it
    installFailed = 8,
};

// What a task brings. Applications alone are downloaded; the others live on as captions.
enum class TaskType : std::int32_t {
    application = 0,
    music = 1,
    ringtone = 2,
    video = 3,
    novel = 4,
    wallpaper = 5,
};

// As the list shows them; "未知" for any other number.
[[nodiscard]] std::u8string_view StateCaption(TaskState state);
[[nodiscard]] std::u8string_view TypeCaption(TaskType type);

// A plain value; each row of a list holds its own copy. Texts are ANSI, but for the address.
struct CDownloadTask {
    std::int32_t index = 0;  // position of the row in the list on the screen
    std::int32_t id = 0;     // given by the table
    TaskType type = TaskType::application;
    std::string title;
    std::string datetime;  // local time of the insertion, "2013-05-06 07:08:09"
    std::string url;       // in UTF-8 once it comes out of the table; see TaskStore::InsertTask
    std::string uniqueId;  // the name of the package
    TaskState state = TaskState::waiting;
    std::string length;       // the size, as the text that the site gave; shown nowhere
    std::int32_t action = 1;  // 1 on every task; used by nothing
    std::string savePath;     // the folder of the file

    bool operator==(const CDownloadTask&) const = default;
};

// The file of a task: <save folder>/<name of the package>.apk, worked out each time. Nothing where
// the folder is not told or the name is not one of a package: a file is never made out of a text
// that would lead it out of its folder.
[[nodiscard]] std::optional<std::filesystem::path> TaskFile(std::string_view savePath,
                                                            std::string_view uniqueId);

}  // namespace quorvi
