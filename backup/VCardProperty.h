// One content line of a vCard taken apart, and its value as text. Versions 2.1, 3.0 and 4.0.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvi {

enum class VCardVersion { v21, v30, v40 };

struct VCardParameter {
    std::string name;  // in upper case; empty where version 2.1 gives the value alone
    std::string value;
};

struct VCardProperty {
    std::string group{};  // "item1" of "item1.TEL"
    std::string name;     // in upper case
    std::vector<VCardParameter> parameters{};
    std::string value;  // as it stands in the line

    // The first value of a parameter; empty without it.
    [[nodiscard]] std::string_view Parameter(std::string_view upperName) const;
    // The words of TYPE, and those that version 2.1 gives alone, in lower case.
    [[nodiscard]] std::vector<std::string> TypeWords() const;
    [[nodiscard]] bool IsQuotedPrintable() const;
    [[nodiscard]] bool IsBase64() const;
};

// Nothing for a line without a colon or a name.
[[nodiscard]] std::optional<VCardProperty> ReadVCardProperty(std::string_view line);

// The value in UTF-8, decoded and without escapes.
[[nodiscard]] std::string VCardText(const VCardProperty& property, VCardVersion version);

// The same of a value that is made of parts, cut at each `separator` that has no backslash in
// front. Nothing comes behind the most parts that are read.
inline constexpr std::size_t kMostVCardParts = 256;
[[nodiscard]] std::vector<std::string> VCardParts(const VCardProperty& property,
                                                  VCardVersion version, char separator);

}  // namespace quorvi
