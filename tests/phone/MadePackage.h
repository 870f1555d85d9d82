// A package as small as can be: a zip archive with a manifest that says a name and a version.
#pragma once

#include <string>
#include <string_view>

#include "base/ByteText.h"
#include "phone/adb/Packet.h"

namespace quorvi::phone {

// What of it is as it should not be.
struct PackageFlaws {
    bool compressed = false;
    bool utf8 = false;
};

inline std::string LittleEndian(std::uint32_t value, std::size_t size) {
    std::string bytes;
    for (std::size_t i = 0; i < size; ++i) {
        bytes.push_back(static_cast<char>(value >> (8 * i) & 0xFF));
    }
    return bytes;
}

inline std::string Word(std::size_t value) {
    return LittleEndian(static_cast<std::uint32_t>(value), 4);
}

inline std::string Half(std::size_t value) {
    return LittleEndian(static_cast<std::uint32_t>(value), 2);
}

// A part of a manifest: type, length of its header, its own length, the rest.
inline std::string ManifestPart(std::uint32_t type, std::size_t header, const std::string& rest) {
    return Half(type) + Half(header) + Word(8 + rest.size()) + rest;
}

inline std::string MadeManifest(std::string_view package, std::uint32_t version, bool utf8) {
    const std::string_view texts[] = {"versionCode", "package", "manifest", package};
    std::string offsets;
    std::string characters;
    for (const std::string_view text : texts) {
        offsets += Word(characters.size());
        if (utf8) {
            characters += LittleEndian(static_cast<std::uint32_t>(text.size()), 1);
            characters += LittleEndian(static_cast<std::uint32_t>(text.size()), 1);
            characters.append(text).push_back('\0');
            continue;
        }
        characters += Half(text.size());
        for (const char character : text) {
            characters += Half(static_cast<unsigned char>(character));
        }
        characters += Half(0);
    }
    const std::string pool = ManifestPart(0x0001, 28,
                                          Word(4) +                   // texts
                                              Word(0) +               // styles
                                              Word(utf8 ? 0x100 : 0)  // flags
                                              + Word(28 + 16)         // where the texts begin
                                              + Word(0) + offsets + characters);
    const std::string numbers = ManifestPart(0x0180, 8, Word(0x0101021B));  // of versionCode
    const std::string element =
        ManifestPart(0x0102, 16,
                     Word(1) + Word(0xFFFFFFFF) +         // line, comment
                         Word(0xFFFFFFFF) + Word(2) +     // namespace, name: manifest
                         Half(20) + Half(20) + Half(2) +  // attributes: first, size, count
                         Half(0) + Half(0) + Half(0) +    // id, class, style
                         Word(0xFFFFFFFF) + Word(0) +     // namespace, name: versionCode
                         Word(0xFFFFFFFF) + Word(0x10000008) + Word(version) +  // a number
                         Word(0xFFFFFFFF) + Word(1) +            // namespace, name: package
                         Word(3) + Word(0x03000008) + Word(3));  // a text
    return ManifestPart(0x0003, 8, pool + numbers + element);
}

inline Bytes MadePackage(std::string_view package, std::uint32_t version, PackageFlaws flaws = {}) {
    const std::string name = "AndroidManifest.xml";
    const std::string manifest = MadeManifest(package, version, flaws.utf8);
    const std::string method = Half(flaws.compressed ? 8 : 0);
    const std::string sizes = Word(manifest.size()) + Word(manifest.size());
    const std::string local = "PK\x03\x04" + Half(10) + Half(0) + method +  // version, flags
                              Word(0) + Word(0) + sizes +                   // time, checksum
                              Half(name.size()) + Half(0) + name + manifest;
    const std::string entry = "PK\x01\x02" + Half(10) + Half(10) + Half(0) + method +  // versions
                              Word(0) + Word(0) + sizes + Half(name.size()) + Half(0) +
                              Half(0) +                         // extra, comment
                              Half(0) + Half(0) + Word(0)       // disk, attributes
                              + Word(0) + name;                 // where its header is
    const std::string end = "PK\x05\x06" + Half(0) + Half(0) +  // disks
                            Half(1) + Half(1) + Word(entry.size()) + Word(local.size()) + Half(0);
    return ToBytes(local + entry + end);
}

}  // namespace quorvi::phone
