#include "desktop/DesktopEntry.h"

#include "base/Text.h"

namespace quorvi {
namespace {

constexpr std::string_view kDefaultsGroup = "Default Applications";

// What must not stand in a word of an `Exec` line without quotes.
constexpr std::string_view kReserved = " \t\r\n\"'\\><~|&;$*?#()`%";

// A value of the format: control characters and the backslash that writes them.
std::string Escaped(std::string_view value) {
    std::string escaped;
    for (const char c : value) {
        switch (c) {
            case '\\':
                escaped += "\\\\";
                break;
            case '\n':
                escaped += "\\n";
                break;
            case '\r':
                escaped += "\\r";
                break;
            case '\t':
                escaped += "\\t";
                break;
            default:
                escaped += c;
        }
    }
    return escaped;
}

void AddLine(std::string& text, std::string_view key, std::string_view value) {
    if (!value.empty()) {
        text.append(key).append("=").append(value).append("\n");
    }
}

std::optional<std::string_view> GroupOf(std::string_view line) {
    line = Trim(line);
    if (line.size() < 2 || line.front() != '[' || line.back() != ']') {
        return std::nullopt;
    }
    return line.substr(1, line.size() - 2);
}

// The value when the line holds this key.
std::optional<std::string_view> ValueOf(std::string_view line, std::string_view key) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos || Trim(line.substr(0, equals)) != key) {
        return std::nullopt;
    }
    return Trim(line.substr(equals + 1));
}

// The lines of a file; the line feed that ends it begins none.
std::vector<std::string_view> Lines(std::string_view file) {
    std::vector<std::string_view> lines = SplitAt(file, '\n');
    if (lines.back().empty()) {
        lines.pop_back();
    }
    return lines;
}

// "id;" before the other applications of a list.
std::string PutFirst(std::string_view desktopId, std::string_view list) {
    std::string result = std::string(desktopId) + ";";
    for (const std::string_view other : SplitAt(list, ';')) {
        if (!Trim(other).empty() && Trim(other) != desktopId) {
            result.append(Trim(other)).append(";");
        }
    }
    return result;
}

}  // namespace

std::string ExecPath(std::string_view program) {
    if (!program.empty() && program.find_first_of(kReserved) == std::string_view::npos) {
        return std::string(program);
    }
    std::string quoted = "\"";
    for (const char c : program) {
        if (c == '"' || c == '`' || c == '$' || c == '\\') {
            quoted += '\\';
        }
        quoted += c;
        if (c == '%') {
            quoted += c;  // one alone begins a field code
        }
    }
    return Escaped(quoted + "\"");
}

std::string DesktopEntry::Text() const {
    std::string text = "[" + std::string(kEntryGroup) + "]\n";
    AddLine(text, "Type", "Application");
    AddLine(text, "Name", Escaped(name));
    AddLine(text, "Comment", Escaped(comment));
    AddLine(text, "Exec", exec);
    AddLine(text, "Icon", Escaped(icon));
    AddLine(text, "Terminal", "false");
    AddLine(text, "MimeType", mimeType);
    AddLine(text, "NoDisplay", hidden ? "true" : "");
    return text;
}

std::optional<std::string> EntryValue(std::string_view file, std::string_view group,
                                      std::string_view key) {
    bool inside = false;
    for (const std::string_view line : Lines(file)) {
        if (const auto name = GroupOf(line)) {
            inside = *name == group;
        } else if (const auto value = inside ? ValueOf(line, key) : std::nullopt) {
            return std::string(*value);
        }
    }
    return std::nullopt;
}

std::string WithDefaultApplication(std::string_view file, std::string_view mimeType,
                                   std::string_view desktopId) {
    const auto entry = [&](std::string_view list) {
        return std::string(mimeType) + "=" + PutFirst(desktopId, list) + "\n";
    };
    std::string result;
    bool inside = false;
    bool written = false;
    for (const std::string_view line : Lines(file)) {
        if (const auto name = GroupOf(line)) {
            if (inside && !written) {
                result += entry({});
                written = true;
            }
            inside = *name == kDefaultsGroup;
        } else if (const auto list = inside ? ValueOf(line, mimeType) : std::nullopt) {
            if (!written) {
                result += entry(*list);
                written = true;
            }
            continue;
        }
        result.append(line).append("\n");
    }
    if (!written) {
        if (!inside) {
            result.append("[").append(kDefaultsGroup).append("]\n");
        }
        result += entry({});
    }
    return result;
}

}  // namespace quorvi
