// The files on the phone, which can be looked at and not changed.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quorvi::phone {

struct FileEntry {
    std::string name{};
    bool isFolder = false;
    std::uint64_t size = 0;      // bytes
    std::uint64_t modified = 0;  // milliseconds since 1970; 0: not known
    bool readable = true;
    bool writable = true;
    bool hidden = false;
};

class FileSystem {
  public:
    // The top folder, which is its own parent.
    static constexpr std::string_view kRoot = "/";

    // A path without separators at its end; the root keeps its own.
    [[nodiscard]] static std::string_view WithoutEnd(std::string_view path);
    // The entries of a folder; of one that the agent may not read, none. Null for what is no
    // folder: only a path as the agent itself gives it names one, with separators at its end or
    // without.
    [[nodiscard]] const std::vector<FileEntry>* EntriesOf(std::string_view path) const;
    // The folder in which a folder of this path lies.
    [[nodiscard]] static std::string ParentOf(std::string_view path);
    // The path of an entry of a folder.
    [[nodiscard]] static std::string PathOf(std::string_view folder, std::string_view name);

    // Puts an entry into a folder that is there, behind the others; a folder is there from then on.
    void Add(std::string_view folder, FileEntry entry);
    // How many entries there are, in all folders.
    [[nodiscard]] std::size_t Count() const;

  private:
    std::map<std::string, std::vector<FileEntry>, std::less<>> folders_{{std::string(kRoot), {}}};
};

// What the owner of the phone has gathered on its card, and the system around it.
[[nodiscard]] FileSystem DeliveredFiles();

// `count` files in the root.
[[nodiscard]] FileSystem LargeFileSystem(std::uint32_t count);

// Names in the root that mean harm to whoever shows them, of files and of folders.
void AddHostileFiles(FileSystem& files);

}  // namespace quorvi::phone
