#include "log/LogLine.h"

#include <fmt/format.h>

#include <algorithm>
#include <ctime>

namespace quorvi {
namespace {

constexpr std::int64_t kMostCount = 99'999'999;
constexpr std::size_t kBytesOfKilobyte = 1024;
constexpr std::size_t kVersionDigits = 4;  // in front of the first dot
constexpr std::size_t kRunOfDigits = 8;    // anywhere else in a version
constexpr std::size_t kShortestSerial = 8;
constexpr std::size_t kSerialEnd = 2;
constexpr std::string_view kUnknown = "unknown";

// "2026-11-22T09:30:12.345Z": the digits are any.
constexpr std::string_view kTimeForm = "0000-00-00T00:00:00.000Z";

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsOneOf(char c, std::string_view some) {
    return some.find(c) != std::string_view::npos;
}

std::size_t DigitsAt(std::string_view text, std::size_t place) {
    std::size_t count = 0;
    while (place + count < text.size() && IsDigit(text[place + count])) {
        ++count;
    }
    return count;
}

// The part of a text that has the form of a version; empty for none.
std::string_view VersionIn(std::string_view text) {
    const std::size_t first = DigitsAt(text, 0);
    if (first == 0 || first > kVersionDigits || first >= text.size() || text[first] != '.' ||
        DigitsAt(text, first + 1) == 0) {
        return {};
    }
    std::size_t end = 0;
    while (end < text.size() &&
           (IsDigit(text[end]) || IsLetter(text[end]) || IsOneOf(text[end], ".+-~_"))) {
        const std::size_t digits = DigitsAt(text, end);
        if (digits > kRunOfDigits) {
            return {};
        }
        end += std::max<std::size_t>(digits, 1);
    }
    return text.substr(0, end);
}

bool HasTimeForm(std::string_view text) {
    return std::ranges::equal(
        text, kTimeForm, [](char c, char form) { return form == '0' ? IsDigit(c) : c == form; });
}

// A word, a value, or one of the two with a number in brackets behind it.
bool IsOfLog(char c) {
    return IsDigit(c) || IsLetter(c) || IsOneOf(c, "._-+~[]=");
}

}  // namespace

LogValue LogValue::Flag(bool is) {
    return is ? LogValue("yes") : LogValue("no");
}

LogValue LogValue::Count(std::int64_t count) {
    LogValue value;
    if (count < -kMostCount || count > kMostCount) {
        value.Append("over-99999999");
    } else {
        value.Append(fmt::format("{}", count));
    }
    return value;
}

LogValue LogValue::Kilobytes(std::uint64_t bytes) {
    const std::uint64_t whole = bytes / kBytesOfKilobyte;
    return Count(static_cast<std::int64_t>(whole + (bytes % kBytesOfKilobyte == 0 ? 0 : 1)));
}

LogValue LogValue::Since(std::chrono::steady_clock::time_point start) {
    const auto time = std::chrono::steady_clock::now() - start;
    return Count(std::chrono::duration_cast<std::chrono::milliseconds>(time).count());
}

LogValue LogValue::Version(std::string_view version) {
    const std::string_view kept = VersionIn(version);
    LogValue value;
    value.Append(kept.empty() ? kUnknown : kept);
    return value;
}

LogValue LogValue::Serial(std::string_view serial) {
    LogValue value;
    const auto append = [&](std::string_view end) {
        for (const char c : end) {
            value.Append(IsDigit(c) || IsLetter(c) ? std::string_view(&c, 1) : "_");
        }
    };
    const bool isLong = serial.size() >= kShortestSerial;
    append(isLong ? serial.substr(0, kSerialEnd) : "");
    value.Append("..");
    append(isLong ? serial.substr(serial.size() - kSerialEnd) : "");
    return value;
}

LogValue LogValue::Error(std::error_code error) {
    LogValue value;
    value.Append(error ? fmt::format("errno-{}", error.value()) : "none");
    return value;
}

std::string FormatLogLine(std::chrono::system_clock::time_point time, const LogWriter& writer,
                          LogWord event, std::initializer_list<LogField> fields) {
    using std::chrono::duration_cast;
    using std::chrono::milliseconds;
    constexpr std::int64_t kSecond = 1000;
    const std::int64_t since = duration_cast<milliseconds>(time.time_since_epoch()).count();
    const std::time_t seconds = since / kSecond;
    std::tm parts{};
    gmtime_r(&seconds, &parts);
    std::string line =
        fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}.{:03}Z {}[{}] {}", parts.tm_year + 1900,
                    parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec,
                    since % kSecond, writer.program.Text(), writer.process, event.Text());
    for (const LogField& field : fields) {
        const std::size_t more = field.name.Text().size() + field.value.Text().size() + 2;
        if (line.size() + more < kMostLogLine) {
            line.append(" ").append(field.name.Text()).append("=").append(field.value.Text());
        }
    }
    return line.append("\n");
}

bool IsLogLine(std::string_view line) {
    const std::size_t time = kTimeForm.size();
    if (line.size() <= time || line.size() >= kMostLogLine || !HasTimeForm(line.substr(0, time)) ||
        line[time] != ' ') {
        return false;
    }
    // Behind the time: words of the log, one blank between two.
    std::size_t word = 0;
    for (const char c : line.substr(time + 1)) {
        if (c == ' ' ? word == 0 : !IsOfLog(c)) {
            return false;
        }
        word = c == ' ' ? 0 : word + 1;
    }
    return word > 0;
}

}  // namespace quorvi
