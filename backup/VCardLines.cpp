#include "backup/VCardLines.h"

#include <algorithm>

#include "base/Text.h"

namespace quorvi {
namespace {

// Longer than the head of any content line, which ends at its colon.
constexpr std::size_t kMostHeadBytes = 4096;

bool IsBase64Line(std::string_view line) {
    return std::ranges::all_of(line, [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
               c == '+' || c == '/' || c == '=';
    });
}

}  // namespace

void VCardLines::Feed(std::string_view text) {
    while (!text.empty()) {
        if (lastWasReturn_) {
            lastWasReturn_ = false;
            if (text.front() == '\n') {
                text.remove_prefix(1);
                continue;
            }
        }
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        const std::size_t room = kMostVCardLineBytes - physical_.size();
        physicalTooLong_ = physicalTooLong_ || end > room;
        physical_ += text.substr(0, std::min(end, room));
        if (end == text.size()) {
            return;
        }
        lastWasReturn_ = text[end] == '\r';
        text.remove_prefix(end + 1);
        EndOfPhysicalLine();
    }
}

void VCardLines::End() {
    if (!physical_.empty()) {
        EndOfPhysicalLine();
    }
    HandOver();
}

void VCardLines::EndOfPhysicalLine() {
    const std::string_view physical = physical_;
    if (physical.empty()) {
        afterEmptyLine_ = true;
        return;
    }
    const bool blank = physical.front() == ' ' || physical.front() == '\t';
    if (!line_.empty() && encoding_ == Encoding::quotedPrintable && line_.ends_with('=')) {
        line_.pop_back();
        Append(physical);
    } else if (!line_.empty() && blank) {
        const bool keep = keepBlanks_ && encoding_ != Encoding::base64;
        Append(keep ? physical : physical.substr(1));
    } else if (!line_.empty() && encoding_ == Encoding::base64 && !afterEmptyLine_ &&
               IsBase64Line(physical)) {
        Append(physical);
    } else {
        HandOver();
        Append(physical);
    }
    physical_.clear();
    physicalTooLong_ = false;
    afterEmptyLine_ = false;
}

void VCardLines::Append(std::string_view text) {
    const std::size_t room = kMostVCardLineBytes - line_.size();
    tooLong_ = tooLong_ || physicalTooLong_ || text.size() > room;
    const bool headWasOpen = line_.size() < kMostHeadBytes && line_.find(':') == std::string::npos;
    line_ += text.substr(0, std::min(text.size(), room));
    if (headWasOpen) {
        encoding_ = EncodingOf(line_);
    }
}

VCardLines::Encoding VCardLines::EncodingOf(std::string_view line) const {
    const std::size_t colon = line.substr(0, kMostHeadBytes).find(':');
    if (colon == std::string_view::npos) {
        return Encoding::none;
    }
    for (const std::string_view part : SplitAt(line.substr(0, colon), ';')) {
        const std::string word = ToLower(part.substr(part.find('=') + 1));
        if (word == "quoted-printable") {
            return Encoding::quotedPrintable;
        }
        if (word == "base64" || word == "b") {
            return Encoding::base64;
        }
    }
    return Encoding::none;
}

void VCardLines::HandOver() {
    if (!line_.empty()) {
        take_(line_, tooLong_);
    }
    line_.clear();
    tooLong_ = false;
    encoding_ = Encoding::none;
}

}  // namespace quorvi
