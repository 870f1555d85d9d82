// The making of phone.db out of the places of all prefixes, and the account of it.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "refdata/tool/PlaceMatcher.h"

namespace quorvi::phonedb {

// The geocoder's name for the place of a mobile number's first seven digits; empty where it knows
// none.
using MobilePlace = std::function<std::string(int prefix)>;

// Below this share of the prefixes that have a place, the data are not good enough to ship.
inline constexpr double kLeastMatchedPercent = 99.5;

struct PlaceCount {
    int prefixes = 0;
    std::optional<Match> match;  // nothing: the prefixes stay without a record
};

struct PhoneDbBuild {
    // The file: 600,000 entries of 16 bits, little-endian, for the prefixes 1300000 to 1899999.
    std::vector<std::uint8_t> file;
    std::map<std::string, PlaceCount> places;
    int withPlace = 0;  // prefixes
    int matched = 0;    // prefixes

    [[nodiscard]] double MatchedPercent() const;
    [[nodiscard]] bool GoodEnough() const { return MatchedPercent() >= kLeastMatchedPercent; }
};

// Asks for each prefix once.
[[nodiscard]] PhoneDbBuild BuildPhoneDb(const MobilePlace& placeOf, const PlaceMatcher& matcher);

// The sums, every place without a match by name and count, then every place with its count, area
// code, region id and ground. UTF-8.
[[nodiscard]] std::string ReportOf(const PhoneDbBuild& build);

}  // namespace quorvi::phonedb
