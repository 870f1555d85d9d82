#include "cli/tool/CommandGuide.h"

#include <fmt/format.h>

#include <map>
#include <vector>

#include "base/Utf8.h"

namespace quorvi::cli {
namespace {

// What the formatter would take for its own: a backslash, a hyphen that is typed, and a point or an
// apostrophe at the start of a line.
std::string Escaped(std::string_view text) {
    std::string escaped;
    if (text.starts_with('.') || text.starts_with('\'')) {
        escaped = "\\&";
    }
    for (const char c : text) {
        switch (c) {
            case '\\':
                escaped += "\\e";
                break;
            case '-':
                escaped += "\\-";
                break;
            default:
                escaped += c;
        }
    }
    return escaped;
}

std::vector<std::string_view> OptionsOf(const Command& command) {
    std::vector<std::string_view> options{"--json"};
    for (const auto& given : {std::span<const std::string_view>(command.options),
                              std::span<const std::string_view>(command.flags)}) {
        for (const std::string_view option : given) {
            if (!option.empty()) {
                options.push_back(option);
            }
        }
    }
    return options;
}

void AddTo(std::string& list, std::string_view word) {
    if (!list.empty()) {
        list += ' ';
    }
    list += word;
}

}  // namespace

std::string ManualPage(std::span<const Command> commands, std::string_view version) {
    std::string page = fmt::format(
        ".\\\" Made from the table of commands.\n"
        ".TH QUORVICTL 1 \"\" \"Quorvi {}\" \"{}\"\n.ad l\n"
        ".SH {}\nquorvictl \\- {}\n"
        ".SH {}\n.B quorvictl\n\\fICOMMAND\\fR [\\fIARGUMENT\\fR...] [\\fB\\-\\-json\\fR]\n.br\n"
        ".B quorvictl \\-\\-help\n|\n.B \\-\\-version\n",
        Escaped(version), Utf8(u8"用户命令"), Utf8(u8"名称"),
        Utf8(u8"在命令行上管理 Android 手机 (manage an Android phone from the command line)"),
        Utf8(u8"用法"));
    page +=
        fmt::format(".SH {}\n{}\n.PP\n{}\n.SH {}\n", Utf8(u8"说明"),
                    Utf8(u8"手机用数据线接在电脑上，打开 USB 调试，先运行一次 quorvictl link。"),
                    Utf8(u8"数据写到标准输出，提示写到标准错误。"), Utf8(u8"命令"));
    for (const Command& command : commands) {
        page += fmt::format(".TP\n.B {}{}{}\n{}\n", Escaped(command.words),
                            command.synopsis.empty() ? "" : " ", Escaped(command.synopsis),
                            Escaped(Utf8(command.summary)));
    }
    page += fmt::format(".SH {}\n.TP\n.B \\-\\-json\n{}\n", Utf8(u8"选项"),
                        Utf8(u8"在标准输出上给出 UTF\\-8 的 JSON。"));
    page += fmt::format(".SH {}\n.TP\n.B 0\n{}\n.TP\n.B 1\n{}\n.TP\n.B 2\n{}\n.TP\n.B 3\n{}\n",
                        Utf8(u8"退出状态"), Utf8(u8"完成"), Utf8(u8"用法错误"),
                        Utf8(u8"没有连接，手机没有回答或拒绝了"), Utf8(u8"没有找到"));
    page += fmt::format(".SH {}\n.BR quorvi (1),\n.BR adb (1)\n", Utf8(u8"另见"));
    return page;
}

std::string BashCompletion(std::span<const Command> commands) {
    std::string firstWords;
    std::map<std::string, std::string, std::less<>> secondWords;
    std::string options;
    for (const Command& command : commands) {
        const std::size_t blank = command.words.find(' ');
        const std::string first(command.words.substr(0, blank));
        if (!secondWords.contains(first)) {
            AddTo(firstWords, first);
        }
        std::string& seconds = secondWords[first];
        if (blank != std::string_view::npos) {
            AddTo(seconds, command.words.substr(blank + 1));
        }
        std::string own;
        for (const std::string_view option : OptionsOf(command)) {
            AddTo(own, option);
        }
        options += fmt::format("        '{}') options='{}' ;;\n", command.words, own);
    }
    std::string seconds;
    for (const auto& [first, words] : secondWords) {
        if (!words.empty()) {
            seconds += fmt::format("        {}) seconds='{}' ;;\n", first, words);
        }
    }
    return fmt::format(
        R"(# Completion of quorvictl for bash. Made from the table of commands.
_quorvictl() {{
    local current=${{COMP_WORDS[COMP_CWORD]}} first=${{COMP_WORDS[1]}} second=${{COMP_WORDS[2]}}
    local seconds='' options=''
    COMPREPLY=()
    if [ "$COMP_CWORD" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W '{} --help --version' -- "$current")
        return 0
    fi
    case $first in
{}    esac
    if [ "$COMP_CWORD" -eq 2 ] && [ -n "$seconds" ]; then
        mapfile -t COMPREPLY < <(compgen -W "$seconds" -- "$current")
        # A word of its own may be a command as well, with operands behind it.
        [ ${{#COMPREPLY[@]}} -eq 0 ] || return 0
    fi
    case " $seconds " in
        *" $second "*) first="$first $second" ;;
    esac
    case $first in
{}    esac
    if [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
    else
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
    fi
}}
complete -F _quorvictl quorvictl
)",
        firstWords, seconds, options);
}

}  // namespace quorvi::cli
