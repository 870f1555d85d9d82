#include "site/SamplePackage.h"

#include <fmt/format.h>
#include <zlib.h>

#include <algorithm>
#include <map>
#include <mutex>
#include <random>

#include "site/Catalogue.h"

namespace quorvi::site {
namespace {

constexpr std::string_view kNote = "README.txt";
constexpr std::string_view kFiller = "assets/filler";
constexpr std::size_t kLocalHeadBytes = 30;
constexpr std::size_t kDirectoryHeadBytes = 46;
constexpr std::size_t kEndBytes = 22;

constexpr std::uint32_t kLocalHead = 0x04034B50;      // "PK\3\4"
constexpr std::uint32_t kDirectoryHead = 0x02014B50;  // "PK\1\2"
constexpr std::uint32_t kEnd = 0x06054B50;            // "PK\5\6"
constexpr std::uint16_t kVersion = 20;
constexpr std::uint16_t kDate = (31 << 9) | (6 << 5) | 18;  // 2011-06-18, in years since 1980

// Numbers of a zip archive: the lowest byte first.
template <typename Integer>
void Add(std::string& bytes, Integer value) {
    for (std::size_t i = 0; i < sizeof value; ++i) {
        bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
    }
}

std::uint32_t SumOf(std::string_view bytes) {
    return static_cast<std::uint32_t>(
        crc32(0, reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uInt>(bytes.size())));
}

// A file that stands in the archive as it is.
struct Entry {
    std::string_view name;
    std::string bytes;
    std::uint32_t offset = 0;

    [[nodiscard]] std::uint32_t Size() const { return static_cast<std::uint32_t>(bytes.size()); }

    // What its head in front of it and its line in the directory have in common.
    void AddFacts(std::string& archive) const {
        Add(archive, kVersion);
        Add(archive, std::uint16_t{0});  // flags
        Add(archive, std::uint16_t{0});  // method: stored
        Add(archive, std::uint16_t{0});  // time
        Add(archive, kDate);
        Add(archive, SumOf(bytes));
        Add(archive, Size());  // in the archive
        Add(archive, Size());  // unpacked
        Add(archive, static_cast<std::uint16_t>(name.size()));
        Add(archive, std::uint16_t{0});  // extra field
    }
};

void AddEntry(std::string& archive, Entry& entry) {
    entry.offset = static_cast<std::uint32_t>(archive.size());
    Add(archive, kLocalHead);
    entry.AddFacts(archive);
    archive.append(entry.name).append(entry.bytes);
}

void AddDirectoryLine(std::string& archive, const Entry& entry) {
    Add(archive, kDirectoryHead);
    Add(archive, kVersion);  // made by
    entry.AddFacts(archive);
    Add(archive, std::uint16_t{0});  // comment
    Add(archive, std::uint16_t{0});  // disk
    Add(archive, std::uint16_t{0});  // attributes, inner
    Add(archive, std::uint32_t{0});  // attributes, outer
    Add(archive, entry.offset);
    archive.append(entry.name);
}

// Bytes that no two packages share, so that a file put together of two of them shows.
std::string FillerOf(std::string_view package, std::size_t size) {
    std::minstd_rand numbers(SumOf(package));
    std::string filler(size, '\0');
    std::ranges::generate(filler, [&] { return static_cast<char>(numbers() >> 8); });
    return filler;
}

}  // namespace

std::string MakeSamplePackage(std::string_view package, std::size_t bytes) {
    Entry note{kNote, fmt::format("{}: a sample of the store. It holds no program, and only the "
                                  "simulated phone installs it.\n",
                                  package)};
    const std::size_t around = 2 * (kLocalHeadBytes + kDirectoryHeadBytes) +
                               2 * (kNote.size() + kFiller.size()) + note.bytes.size() + kEndBytes;
    Entry filler{kFiller, FillerOf(package, std::max(bytes, kLeastPackageBytes) - around)};
    std::string archive;
    archive.reserve(bytes);
    AddEntry(archive, note);
    AddEntry(archive, filler);
    const auto directory = static_cast<std::uint32_t>(archive.size());
    AddDirectoryLine(archive, note);
    AddDirectoryLine(archive, filler);
    const auto directoryBytes = static_cast<std::uint32_t>(archive.size()) - directory;
    Add(archive, kEnd);
    Add(archive, std::uint16_t{0});  // this disk
    Add(archive, std::uint16_t{0});  // the directory's disk
    Add(archive, std::uint16_t{2});  // entries on this disk
    Add(archive, std::uint16_t{2});  // entries
    Add(archive, directoryBytes);
    Add(archive, directory);
    Add(archive, std::uint16_t{0});  // comment
    return archive;
}

std::shared_ptr<const std::string> SamplePackage(std::string_view package) {
    const StoreApp* app = AppOfPackage(package);
    if (app == nullptr) {
        return nullptr;
    }
    constexpr std::size_t kKilobyte = 1024;
    static std::mutex mutex;
    static std::map<int, std::shared_ptr<const std::string>> made;
    const std::scoped_lock lock(mutex);
    auto& archive = made[app->number];
    if (archive == nullptr) {
        archive = std::make_shared<const std::string>(
            MakeSamplePackage(app->package, app->kilobytes * kKilobyte));
    }
    return archive;
}

Part PartOf(std::int64_t first, std::int64_t last, std::size_t fileBytes) {
    const auto size = static_cast<std::int64_t>(fileBytes);
    if (first < 0) {  // the last so many
        const std::int64_t length = std::clamp<std::int64_t>(last, 0, size);
        return {static_cast<std::size_t>(size - length), static_cast<std::size_t>(length)};
    }
    if (first >= size || (last >= 0 && last < first)) {
        return {};
    }
    const std::int64_t end = last < 0 ? size : std::min(last, size - 1) + 1;
    return {static_cast<std::size_t>(first), static_cast<std::size_t>(end - first)};
}

}  // namespace quorvi::site
