#include "phone/agent/FileSystem.h"

#include <fmt/format.h>

#include <array>
#include <utility>

#include "phone/agent/HostileTexts.h"

namespace quorvi::phone {
namespace {

// Of made-up files, one every so often.
constexpr std::uint64_t kFirstTime = 1'300'000'000'000;
constexpr std::uint64_t kTimeDistance = 61'000;
constexpr std::array<std::string_view, 8> kExtensions{".jpg", ".mp3", ".txt", ".apk",
                                                      ".zip", ".pdf", "",     ".tar.gz"};

}  // namespace

std::string_view FileSystem::WithoutEnd(std::string_view path) {
    while (path.size() > 1 && path.back() == '/') {
        path.remove_suffix(1);
    }
    return path;
}

const std::vector<FileEntry>* FileSystem::EntriesOf(std::string_view path) const {
    const auto found = folders_.find(WithoutEnd(path));
    return found == folders_.end() ? nullptr : &found->second;
}

std::string FileSystem::ParentOf(std::string_view path) {
    const std::size_t last = WithoutEnd(path).rfind('/');
    return std::string(last == 0 || last == std::string_view::npos ? kRoot : path.substr(0, last));
}

std::string FileSystem::PathOf(std::string_view folder, std::string_view name) {
    return std::string(folder == kRoot ? "" : folder).append("/").append(name);
}

void FileSystem::Add(std::string_view folder, FileEntry entry) {
    if (entry.isFolder) {
        folders_.try_emplace(PathOf(folder, entry.name));
    }
    folders_.find(folder)->second.push_back(std::move(entry));
}

std::size_t FileSystem::Count() const {
    std::size_t count = 0;
    for (const auto& [path, entries] : folders_) {
        count += entries.size();
    }
    return count;
}

FileSystem LargeFileSystem(std::uint32_t count) {
    FileSystem files;
    for (std::uint32_t i = 0; i < count; ++i) {
        files.Add(FileSystem::kRoot,
                  {.name = fmt::format("IMG_{:05}{}", i + 1, kExtensions[i % kExtensions.size()]),
                   .size = i * 4'099ULL,
                   .modified = kFirstTime + i * kTimeDistance});
    }
    return files;
}

void AddHostileFiles(FileSystem& files) {
    for (const std::string& harm : HostileTexts()) {
        files.Add(FileSystem::kRoot, {.name = harm, .isFolder = true, .modified = kFirstTime});
        files.Add(FileSystem::PathOf(FileSystem::kRoot, harm),
                  {.name = harm + ".txt", .size = UINT64_MAX, .modified = UINT64_MAX});
        files.Add(FileSystem::kRoot, {.name = harm + ".jpg", .readable = false});
    }
    for (const char* name : {"..", ".", "", "/", "...", "a/../../b"}) {
        files.Add(FileSystem::kRoot, {.name = name, .isFolder = true});
    }
}

}  // namespace quorvi::phone
