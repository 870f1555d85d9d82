#include "phone/agent/RequestLog.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace quorvi::phone {
namespace {

constexpr std::string_view kDeviation = "; deviation: ";

// A note is one line, whatever the request held.
std::string OneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < ' '; }, ' ');
    return text;
}

}  // namespace

void RequestLog::Add(LoggedRequest request) {
    std::string line = fmt::format("{} {} {} {} bytes {}", ++count_, request.code, request.name,
                                   request.bytes, request.hex);
    if (!request.note.empty()) {
        line += "; note: " + OneLine(request.note);
    }
    for (const std::string& deviation : request.deviations) {
        line += kDeviation;
        line += OneLine(deviation);
    }
    if (file_.is_open()) {
        file_ << line << std::endl;
    }
    lines_.push_back(std::move(line));
    if (lines_.size() > kMaxLogLines) {
        lines_.pop_front();
    }
}

bool RequestLog::AlsoWriteTo(const std::string& path) {
    file_.open(path, std::ios::app);
    return file_.is_open();
}

std::vector<std::string> RequestLog::Deviations() const {
    std::vector<std::string> out;
    std::copy_if(
        lines_.begin(), lines_.end(), std::back_inserter(out),
        [](const std::string& line) { return line.find(kDeviation) != std::string::npos; });
    return out;
}

}  // namespace quorvi::phone
