#include "phone/PackageManifest.h"

#include <algorithm>
#include <string_view>

#include "base/ByteText.h"

namespace quorvi::phone {
namespace {

using View = std::span<const std::byte>;

// Integers lie with their least significant byte first. What lies outside reads as 0, which no
// signature, type or count that is looked for is.
std::uint32_t IntegerAt(View bytes, std::size_t at, std::size_t size) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < size && at < bytes.size() && i < bytes.size() - at; ++i) {
        value |= std::to_integer<std::uint32_t>(bytes[at + i]) << (8 * i);
    }
    return value;
}

std::uint32_t U16(View bytes, std::size_t at) {
    return IntegerAt(bytes, at, 2);
}

std::uint32_t U32(View bytes, std::size_t at) {
    return IntegerAt(bytes, at, 4);
}

// As much of it as there is.
View Slice(View bytes, std::size_t at, std::size_t size) {
    return at < bytes.size() ? bytes.subspan(at, std::min(size, bytes.size() - at)) : View{};
}

constexpr std::uint32_t kDirectoryEnd = 0x06054B50;
constexpr std::size_t kDirectoryEndBytes = 22;
constexpr std::uint32_t kDirectoryEntry = 0x02014B50;
constexpr std::size_t kDirectoryEntryBytes = 46;
constexpr std::size_t kLocalHeaderBytes = 30;
constexpr std::string_view kManifestFile = "AndroidManifest.xml";

// Where the archive's directory begins; it ends the file, but for a comment.
std::optional<std::size_t> DirectoryOf(View file) {
    for (std::size_t left = file.size(); left >= kDirectoryEndBytes; --left) {
        const std::size_t at = left - kDirectoryEndBytes;
        if (U32(file, at) == kDirectoryEnd) {
            return U32(file, at + 16);
        }
    }
    return std::nullopt;
}

// The bytes of the manifest; empty when there is none, or when it is compressed.
View ManifestOf(View file) {
    std::size_t at = DirectoryOf(file).value_or(file.size());
    while (U32(file, at) == kDirectoryEntry) {
        const std::size_t nameBytes = U16(file, at + 28);
        if (AsText(Slice(file, at + kDirectoryEntryBytes, nameBytes)) == kManifestFile) {
            const bool isStored = U16(file, at + 10) == 0;
            const std::size_t header = U32(file, at + 42);
            const std::size_t data =
                header + kLocalHeaderBytes + U16(file, header + 26) + U16(file, header + 28);
            return isStored ? Slice(file, data, U32(file, at + 20)) : View{};
        }
        at += kDirectoryEntryBytes + nameBytes + U16(file, at + 30) + U16(file, at + 32);
    }
    return {};
}

// The parts of a manifest, each of which begins with its type, the length of its header and its
// own.
constexpr std::uint32_t kDocument = 0x0003;
constexpr std::uint32_t kTexts = 0x0001;
constexpr std::uint32_t kAttributeNumbers = 0x0180;
constexpr std::uint32_t kElement = 0x0102;
constexpr std::size_t kDocumentHeaderBytes = 8;
constexpr std::size_t kSmallestPart = 8;

// Attributes of Android go by their number, whatever their name; others by their name.
constexpr std::uint32_t kVersionCode = 0x0101021B;
constexpr std::string_view kPackage = "package";
constexpr std::string_view kManifest = "manifest";

// All that a manifest names is ASCII; other characters become '?'.
std::string TextAt(View texts, std::uint32_t index) {
    constexpr std::uint32_t kIsUtf8 = 0x100;
    if (index >= U32(texts, 8)) {
        return {};
    }
    const std::size_t start = std::size_t{U32(texts, 20)} + U32(texts, 28 + std::size_t{index} * 4);
    const bool isUtf8 = (U32(texts, 16) & kIsUtf8) != 0;
    const std::size_t unit = isUtf8 ? 1 : 2;
    // In front stands the length; in UTF-8 twice, in characters and in bytes. What is longer than
    // one unit of it says is no name.
    const std::size_t length = IntegerAt(texts, start + (isUtf8 ? 1 : 0), unit);
    const View characters = Slice(texts, start + 2, length * unit);
    std::string text;
    for (std::size_t i = 0; i < characters.size(); i += unit) {
        const std::uint32_t character = IntegerAt(characters, i, unit);
        text.push_back(character < 0x80 ? static_cast<char>(character) : '?');
    }
    return text;
}

// What the element <manifest> says.
PackageManifest ManifestElement(View element, View texts, View numbers) {
    constexpr std::size_t kAttributeBytes = 20;
    PackageManifest manifest;
    const std::size_t first = 16 + std::size_t{U16(element, 24)};
    const std::uint32_t count = U16(element, 28);
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::size_t at = first + i * kAttributeBytes;
        const std::uint32_t name = U32(element, at + 4);
        const std::uint32_t value = U32(element, at + 16);
        if (TextAt(texts, name) == kPackage) {
            manifest.package = TextAt(texts, value);
        } else if (U32(numbers, 8 + std::size_t{name} * 4) == kVersionCode) {
            manifest.version = value;
        }
    }
    return manifest;
}

}  // namespace

std::optional<PackageManifest> ReadPackageManifest(std::span<const std::byte> file) {
    const View document = ManifestOf(file);
    if (U16(document, 0) != kDocument) {
        return std::nullopt;
    }
    View texts;
    View numbers;
    for (std::size_t at = kDocumentHeaderBytes; at < document.size();) {
        const std::size_t size = U32(document, at + 4);
        const View part = Slice(document, at, size);
        const std::uint32_t type = U16(part, 0);
        if (size < kSmallestPart) {
            return std::nullopt;
        }
        if (type == kTexts) {
            texts = part;
        } else if (type == kAttributeNumbers) {
            numbers = part;
        } else if (type == kElement && TextAt(texts, U32(part, 20)) == kManifest) {
            PackageManifest manifest = ManifestElement(part, texts, numbers);
            return manifest.package.empty() || manifest.version == 0 ? std::nullopt
                                                                     : std::optional(manifest);
        }
        at += size;
    }
    return std::nullopt;
}

}  // namespace quorvi::phone
