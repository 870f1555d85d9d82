#include "backup/VCardProperty.h"

#include <algorithm>

#include "backup/Charset.h"
#include "backup/ContactCard.h"
#include "base/Text.h"

namespace quorvi {
namespace {

std::string Upper(std::string_view text) {
    std::string upper(text);
    for (char& c : upper) {
        if (c >= 'a' && c <= 'z') {
            c = static_cast<char>(c - 'a' + 'A');
        }
    }
    return upper;
}

// Where the first of `ends` stands outside of quotes; the end of `text` without one.
std::size_t FindUnquoted(std::string_view text, std::string_view ends) {
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"') {
            quoted = !quoted;
        } else if (!quoted && ends.find(text[i]) != std::string_view::npos) {
            return i;
        }
    }
    return text.size();
}

VCardParameter ReadParameter(std::string_view text) {
    const std::size_t equals = FindUnquoted(text, "=");
    if (equals == text.size()) {
        return {{}, std::string(Trim(text))};
    }
    std::string value(Trim(text.substr(equals + 1)));
    std::erase(value, '"');
    return {Upper(Trim(text.substr(0, equals))), std::move(value)};
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    if (c >= 'A' && c <= 'F') {
        return c - 'A' + 10;
    }
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

// What is no quoted-printable stays as it is.
std::string FromQuotedPrintable(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '=' && i + 2 < text.size() && HexDigit(text[i + 1]) >= 0 &&
            HexDigit(text[i + 2]) >= 0) {
            bytes += static_cast<char>(HexDigit(text[i + 1]) << 4 | HexDigit(text[i + 2]));
            i += 2;
        } else {
            bytes += text[i];
        }
    }
    return bytes;
}

std::string InUtf8(const VCardProperty& property, std::string bytes) {
    if (const std::string_view charset = property.Parameter("CHARSET"); !charset.empty()) {
        if (auto text = ToUtf8From(charset, bytes)) {
            return *std::move(text);
        }
    }
    return GuessedToUtf8(std::move(bytes));
}

// Version 2.1 has escapes for the signs that separate parts alone; a backslash elsewhere is one.
std::string Unescaped(std::string_view text, VCardVersion version) {
    std::string plain;
    plain.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char next = text[i] == '\\' && i + 1 < text.size() ? text[i + 1] : '\0';
        if (next == ';' || next == ',' || next == ':') {
            plain += next;
            ++i;
        } else if (version != VCardVersion::v21 && next == '\\') {
            plain += '\\';
            ++i;
        } else if (version != VCardVersion::v21 && (next == 'n' || next == 'N')) {
            plain += '\n';
            ++i;
        } else {
            plain += text[i];
        }
    }
    return CardText(plain);
}

std::vector<std::string_view> SplitUnescaped(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    std::size_t begin = 0;
    for (std::size_t i = 0; i < text.size() && parts.size() + 1 < kMostVCardParts; ++i) {
        if (text[i] == '\\') {
            ++i;
        } else if (text[i] == separator) {
            parts.push_back(text.substr(begin, i - begin));
            begin = i + 1;
        }
    }
    parts.push_back(text.substr(begin));
    return parts;
}

}  // namespace

std::string_view VCardProperty::Parameter(std::string_view upperName) const {
    const auto found = std::ranges::find(parameters, upperName, &VCardParameter::name);
    return found == parameters.end() ? std::string_view() : std::string_view(found->value);
}

std::vector<std::string> VCardProperty::TypeWords() const {
    std::vector<std::string> words;
    for (const VCardParameter& parameter : parameters) {
        if (parameter.name.empty() || parameter.name == "TYPE") {
            for (const std::string_view word : SplitAt(parameter.value, ',')) {
                words.push_back(ToLower(Trim(word)));
            }
        }
    }
    return words;
}

bool VCardProperty::IsQuotedPrintable() const {
    return std::ranges::any_of(parameters, [](const VCardParameter& parameter) {
        return EqualsNoCase(parameter.value, "quoted-printable");
    });
}

bool VCardProperty::IsBase64() const {
    return std::ranges::any_of(parameters, [](const VCardParameter& parameter) {
        return EqualsNoCase(parameter.value, "base64") ||
               (parameter.name == "ENCODING" && EqualsNoCase(parameter.value, "b"));
    });
}

std::optional<VCardProperty> ReadVCardProperty(std::string_view line) {
    std::size_t colon = FindUnquoted(line, ":");
    if (colon == line.size()) {  // or quotes that are never closed
        colon = line.find(':');
    }
    if (colon == std::string_view::npos) {
        return std::nullopt;
    }
    std::string_view head = line.substr(0, colon);
    VCardProperty property;
    property.value = line.substr(colon + 1);
    const std::size_t nameEnd = FindUnquoted(head, ";");
    std::string_view name = Trim(head.substr(0, nameEnd));
    if (const std::size_t dot = name.find('.'); dot != std::string_view::npos) {
        property.group = ToLower(name.substr(0, dot));
        name.remove_prefix(dot + 1);
    }
    property.name = Upper(name);
    if (property.name.empty()) {
        return std::nullopt;
    }
    head.remove_prefix(nameEnd);
    while (!head.empty() && property.parameters.size() < kMostVCardParts) {
        head.remove_prefix(1);  // the semicolon
        const std::size_t end = FindUnquoted(head, ";");
        property.parameters.push_back(ReadParameter(head.substr(0, end)));
        head.remove_prefix(end);
    }
    return property;
}

std::string VCardText(const VCardProperty& property, VCardVersion version) {
    std::string bytes =
        property.IsQuotedPrintable() ? FromQuotedPrintable(property.value) : property.value;
    return Unescaped(InUtf8(property, std::move(bytes)), version);
}

std::vector<std::string> VCardParts(const VCardProperty& property, VCardVersion version,
                                    char separator) {
    std::vector<std::string> parts;
    if (property.IsQuotedPrintable()) {
        // Signs that separate stand for themselves, and those of the text are encoded.
        for (const std::string_view part : SplitUnescaped(property.value, separator)) {
            parts.push_back(Unescaped(InUtf8(property, FromQuotedPrintable(part)), version));
        }
        return parts;
    }
    // In some sets a backslash is the second half of a character: the text is turned to UTF-8
    // first.
    const std::string text = InUtf8(property, property.value);
    for (const std::string_view part : SplitUnescaped(text, separator)) {
        parts.push_back(Unescaped(part, version));
    }
    return parts;
}

}  // namespace quorvi
