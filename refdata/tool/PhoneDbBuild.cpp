#include "refdata/tool/PhoneDbBuild.h"

#include <fmt/format.h>

#include <iterator>

#include "refdata/PhoneDbFormat.h"

namespace quorvi::phonedb {
namespace {

constexpr const char* NameOf(Ground ground) {
    switch (ground) {
        case Ground::name:
            return "name";
        case Ground::landLine:
            return "land line";
        case Ground::supplement:
            return "supplement";
    }
    return "";
}

}  // namespace

double PhoneDbBuild::MatchedPercent() const {
    return withPlace == 0 ? 0.0 : 100.0 * matched / withPlace;
}

PhoneDbBuild BuildPhoneDb(const MobilePlace& placeOf, const PlaceMatcher& matcher) {
    PhoneDbBuild build;
    build.file.reserve(kPhoneDbSize);
    for (int prefix = kFirstPrefix; prefix <= kLastPrefix; ++prefix) {
        std::uint16_t region = 0;
        if (const std::string name = placeOf(prefix); !name.empty()) {
            const auto [row, isNew] = build.places.try_emplace(name);
            PlaceCount& place = row->second;
            if (isNew) {
                place.match = matcher.Find(name);
            }
            ++place.prefixes;
            ++build.withPlace;
            if (place.match) {
                region = place.match->regionId;
                ++build.matched;
            }
        }
        build.file.push_back(static_cast<std::uint8_t>(region & 0xFF));
        build.file.push_back(static_cast<std::uint8_t>(region >> 8));
    }
    return build;
}

std::string ReportOf(const PhoneDbBuild& build) {
    std::string report = fmt::format(
        "prefixes with a place: {}\nmatched: {} ({:.3f} %, at least {} % needed)\nplaces: {}\n",
        build.withPlace, build.matched, build.MatchedPercent(), kLeastMatchedPercent,
        build.places.size());
    std::string unmatched;
    std::string matched;
    for (const auto& [name, place] : build.places) {
        if (place.match) {
            fmt::format_to(std::back_inserter(matched), "  {} {} area {} region {} by {}\n", name,
                           place.prefixes, place.match->areaCode, place.match->regionId,
                           NameOf(place.match->ground));
        } else {
            fmt::format_to(std::back_inserter(unmatched), "  {} {}\n", name, place.prefixes);
        }
    }
    report += "without a match:\n" + (unmatched.empty() ? "  none\n" : unmatched);
    report += "matched:\n" + matched;
    return report;
}

}  // namespace quorvi::phonedb
