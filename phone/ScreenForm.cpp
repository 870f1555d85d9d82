#include "phone/ScreenForm.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <optional>
#include <span>

namespace quorvi::phone {
namespace {

constexpr int kMaxBits = 64;

struct FaultWord {
    std::string_view word;
    ScreenFault fault;
    bool takesNumber;
};

constexpr auto kFaultWords = std::to_array<FaultWord>({
    {"none", ScreenFault::none, false},
    {"refuse", ScreenFault::refuse, false},
    {"size", ScreenFault::size, true},
    {"width", ScreenFault::width, true},
    {"height", ScreenFault::height, true},
    {"cut", ScreenFault::cut, true},
    {"hang", ScreenFault::hang, true},
});

bool ReadNumber(const std::string& text, std::uint32_t& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

// One of two words.
bool ReadChoice(const std::string& text, std::string_view no, std::string_view yes, bool& choice) {
    choice = text == yes;
    return choice || text == no;
}

// What follows the word "fault": how many words it took; 0 when they cannot be read.
std::size_t ReadFault(std::span<const std::string> words, ScreenForm& form) {
    const auto row = std::find_if(
        kFaultWords.begin(), kFaultWords.end(),
        [&](const FaultWord& each) { return !words.empty() && each.word == words[0]; });
    if (row == kFaultWords.end()) {
        return 0;
    }
    form.fault = row->fault;
    form.number = 0;
    if (!row->takesNumber) {
        return 1;
    }
    return words.size() > 1 && ReadNumber(words[1], form.number) ? 2 : 0;
}

bool ReadPair(const std::string& name, const std::string& value, ScreenForm& form) {
    if (name == "size") {
        return ReadScreenSize(value, form);
    }
    if (name == "version") {
        return ReadNumber(value, form.version);
    }
    if (name == "order") {
        return ReadChoice(value, "rgb", "bgr", form.blueFirst);
    }
    if (name == "waits") {
        return ReadChoice(value, "0", "1", form.waits);
    }
    return name == "ends" && ReadChoice(value, "0", "1", form.ends);
}

}  // namespace

ScreenForm FormOf(const Profile& profile) {
    ScreenForm form;
    form.width = profile.screenWidth;
    form.height = profile.screenHeight;
    form.bits = profile.screenBits;
    return form;
}

bool ReadScreenSize(const std::string& text, ScreenForm& form) {
    int width = 0;
    int height = 0;
    int bits = 32;
    char behind = 0;
    const int count = std::sscanf(text.c_str(), "%dx%dx%d%c", &width, &height, &bits, &behind);
    if (count < 2 || count > 3 || width < 1 || height < 1 || width > kMaxScreenSide ||
        height > kMaxScreenSide || bits < 1 || bits > kMaxBits) {
        return false;
    }
    form.width = width;
    form.height = height;
    form.bits = bits;
    return true;
}

bool ReadScreenWords(const std::vector<std::string>& words, ScreenForm& form) {
    ScreenForm read = form;
    for (std::span<const std::string> left(words); !left.empty();) {
        std::size_t taken = 0;
        if (left[0] == "fault") {
            taken = ReadFault(left.subspan(1), read);
        } else {
            taken = left.size() > 1 && ReadPair(left[0], left[1], read) ? 1 : 0;
        }
        if (taken == 0) {
            return false;
        }
        left = left.subspan(1 + taken);
    }
    form = read;
    return true;
}

}  // namespace quorvi::phone
