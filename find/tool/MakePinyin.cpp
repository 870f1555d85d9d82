// make_pinyin OUT: writes the table of readings that find/Pinyin.cpp includes, out of what ICU
// knows and of kFurtherReadings.
#include <fmt/format.h>
#include <unicode/translit.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "find/tool/FurtherReadings.h"

namespace quorvi {
namespace {

// Extension A and the block of the unified ideographs.
constexpr char32_t kFirst = 0x3400;
constexpr char32_t kEnd = 0xA000;
constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz";

// The general reading, and that of the character as a surname.
constexpr std::array kTransliterators = {"Han-Latin", "Han-Latin/Names"};

// Marks over letters go; those of ü stay.
constexpr const char* kToneless = "NFD; [[:Mn:]-[\u0308]] Remove; NFC; Lower";

std::unique_ptr<icu::Transliterator> Made(const char* id) {
    UErrorCode error = U_ZERO_ERROR;
    std::unique_ptr<icu::Transliterator> made(icu::Transliterator::createInstance(
        icu::UnicodeString::fromUTF8(id), UTRANS_FORWARD, error));
    return U_SUCCESS(error) ? std::move(made) : nullptr;
}

void AddReading(std::vector<std::string>& readings, const std::string& reading) {
    const bool isReading =
        !reading.empty() && reading.find_first_not_of(kLetters) == std::string::npos;
    if (isReading && std::ranges::find(readings, reading) == readings.end()) {
        readings.push_back(reading);
    }
}

// Adds a reading; one with ü as both ways of typing it.
void AddTyped(std::vector<std::string>& readings, const icu::UnicodeString& reading) {
    for (const char* typed : {"v", "u"}) {
        icu::UnicodeString letters = reading;
        letters.findAndReplace(icu::UnicodeString(char16_t{0xFC}), icu::UnicodeString(typed));
        std::string text;
        letters.toUTF8String(text);
        AddReading(readings, text);
    }
}

std::optional<std::vector<std::vector<std::string>>> AllReadings() {
    std::vector<std::vector<std::string>> all(kEnd - kFirst);
    const std::unique_ptr<icu::Transliterator> toneless = Made(kToneless);
    for (const char* id : kTransliterators) {
        const std::unique_ptr<icu::Transliterator> pinyin = Made(id);
        if (!pinyin || !toneless) {
            return std::nullopt;
        }
        for (char32_t character = kFirst; character < kEnd; ++character) {
            icu::UnicodeString reading(static_cast<UChar32>(character));
            pinyin->transliterate(reading);
            toneless->transliterate(reading);
            AddTyped(all[character - kFirst], reading);
        }
    }
    for (const FurtherReading& further : kFurtherReadings) {
        std::string_view left = further.readings;
        while (!left.empty()) {
            const std::size_t end = std::min(left.find(' '), left.size());
            AddReading(all[further.character - kFirst], std::string(left.substr(0, end)));
            left.remove_prefix(std::min(end + 1, left.size()));
        }
    }
    return all;
}

bool Write(const char* path, const std::vector<std::vector<std::string>>& all) {
    std::map<std::string, std::size_t> places{{"", 0}};
    std::vector<std::string> sets{""};
    std::string table;
    for (const std::vector<std::string>& readings : all) {
        const std::string set = fmt::format("{}", fmt::join(readings, " "));
        const auto [place, isNew] = places.emplace(set, sets.size());
        if (isNew) {
            sets.push_back(set);
        }
        table += fmt::format("{},\n", place->second);
    }
    std::ofstream out(path);
    out << fmt::format("constexpr char32_t kFirstRead = {};\n", static_cast<unsigned>(kFirst))
        << fmt::format("constexpr std::array<std::string_view, {}> kReadings{{\n", sets.size());
    for (const std::string& set : sets) {
        out << fmt::format("\"{}\",\n", set);
    }
    out << "};\n"
        << fmt::format("constexpr std::array<std::uint16_t, {}> kReadingsOf{{\n", all.size())
        << table << "};\n";
    return static_cast<bool>(out.flush());
}

}  // namespace
}  // namespace quorvi

int main(int count, char** words) {
    if (count != 2) {
        std::fputs("make_pinyin OUT\n", stderr);
        return 2;
    }
    const auto all = quorvi::AllReadings();
    if (!all || !quorvi::Write(words[1], *all)) {
        std::fputs("make_pinyin: ICU knows no pinyin, or the file cannot be written\n", stderr);
        return 1;
    }
    return 0;
}
