#include "backup/TextPieces.h"

#include <algorithm>
#include <utility>

#include "backup/Charset.h"
#include "backup/Csv.h"

namespace quorvi {
namespace {

// By which the form is known.
constexpr std::size_t kBeginning = 3;

bool IsHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

constexpr char32_t kReplacement = 0xFFFD;

}  // namespace

void TextPieces::Feed(std::string_view bytes) {
    if (form_ == Form::unknown) {
        const std::size_t needed = std::min(kBeginning - kept_.size(), bytes.size());
        kept_ += bytes.substr(0, needed);
        bytes.remove_prefix(needed);
        if (kept_.size() < kBeginning) {
            return;
        }
        Begin();
    }
    HandOn(bytes);
}

void TextPieces::End() {
    if (form_ == Form::unknown) {
        Begin();
    }
    // Half a character is none.
    if (form_ != Form::bytes && (highSurrogate_ != 0 || !kept_.empty())) {
        std::string utf8;
        AppendUtf8(kReplacement, utf8);
        take_(utf8);
    }
}

void TextPieces::Begin() {
    std::string beginning = std::exchange(kept_, {});
    const auto at = [&](std::size_t i) {
        return i < beginning.size() ? static_cast<unsigned char>(beginning[i]) : 0x100U;
    };
    if (at(0) == 0xFE && at(1) == 0xFF) {
        form_ = Form::utf16Big;
        beginning.erase(0, 2);
    } else if (at(0) == 0xFF && at(1) == 0xFE) {
        form_ = Form::utf16Little;
        beginning.erase(0, 2);
    } else if (at(0) == 0 && at(1) != 0 && at(1) < 0x80) {
        form_ = Form::utf16Big;
    } else if (at(0) != 0 && at(0) < 0x80 && at(1) == 0) {
        form_ = Form::utf16Little;
    } else {
        form_ = Form::bytes;
        if (beginning == kUtf8Mark) {
            beginning.clear();
        }
    }
    HandOn(beginning);
}

void TextPieces::HandOn(std::string_view bytes) {
    if (form_ == Form::bytes) {
        if (!bytes.empty()) {
            take_(bytes);
        }
        return;
    }
    std::string utf8;
    for (const char c : bytes) {
        kept_ += c;
        if (kept_.size() == 2) {
            const auto first = static_cast<unsigned char>(kept_[0]);
            const auto second = static_cast<unsigned char>(kept_[1]);
            kept_.clear();
            TakeUnit(form_ == Form::utf16Big ? static_cast<char16_t>(first << 8 | second)
                                             : static_cast<char16_t>(second << 8 | first),
                     utf8);
        }
    }
    if (!utf8.empty()) {
        take_(utf8);
    }
}

void TextPieces::TakeUnit(char16_t unit, std::string& utf8) {
    const char16_t high = std::exchange(highSurrogate_, 0);
    if (high != 0 && IsLowSurrogate(unit)) {
        AppendUtf8(0x10000 + (((static_cast<char32_t>(high) - 0xD800) << 10) | (unit - 0xDC00U)),
                   utf8);
        return;
    }
    if (high != 0) {
        AppendUtf8(kReplacement, utf8);
    }
    if (IsHighSurrogate(unit)) {
        highSurrogate_ = unit;
    } else {
        AppendUtf8(IsLowSurrogate(unit) ? kReplacement : unit, utf8);
    }
}

}  // namespace quorvi
