#include "refdata/tool/PlaceMatcher.h"

#include <algorithm>
#include <iterator>

#include "base/Utf8.h"

namespace quorvi::phonedb {
namespace {

struct AreaRow {
    int code;
    std::u8string_view place;
    std::string_view postalCode;
};
constexpr AreaRow kAreas[] = {
#include "refdata/data/AreaTable.inc"
};

constexpr int kRegionCodes[] = {
#include "refdata/data/RegionCodes.inc"
};

struct SupplementRow {
    std::u8string_view place;
    int code;
};
constexpr SupplementRow kSupplement[] = {
#include "refdata/data/PlaceSupplement.inc"
};

const std::string_view kProvince = Utf8View(u8"省");
const std::string_view kJoint = Utf8View(u8"、");

}  // namespace

std::string WithoutProvinceSuffix(std::string_view place) {
    std::string plain(place);
    if (const std::size_t at = plain.find(kProvince); at != std::string::npos) {
        plain.erase(at, kProvince.size());
    }
    return plain;
}

std::vector<std::string> SinglePlaces(std::string_view joint) {
    const std::size_t suffix = joint.find(kProvince);
    const std::string_view province =
        suffix == std::string_view::npos ? "" : joint.substr(0, suffix + kProvince.size());
    std::vector<std::string> places;
    for (std::size_t start = 0; start < joint.size();) {
        const std::size_t end = std::min(joint.find(kJoint, start), joint.size());
        places.emplace_back(start == 0 ? "" : province).append(joint.substr(start, end - start));
        start = end + kJoint.size();
    }
    return places;
}

PlaceMatcher::PlaceMatcher(const LandLinePlace& placeOf) {
    for (std::size_t id = 0; id < std::size(kRegionCodes); ++id) {
        if (kRegionCodes[id] != 0) {
            regionOfCode_.emplace(kRegionCodes[id], static_cast<std::uint16_t>(id));
        }
    }
    for (const auto& [code, id] : regionOfCode_) {
        for (std::string& place : SinglePlaces(placeOf(code))) {
            codeOfLandLine_.emplace(std::move(place), code);
        }
    }
}

std::optional<Match> PlaceMatcher::Find(std::string_view place) const {
    struct Attempt {
        Ground ground;
        int (PlaceMatcher::*code)(std::string_view) const;
    };
    static constexpr Attempt kAttempts[] = {
        {Ground::name, &PlaceMatcher::CodeByName},
        {Ground::landLine, &PlaceMatcher::CodeByLandLine},
        {Ground::supplement, &PlaceMatcher::CodeBySupplement},
    };
    for (const Attempt& attempt : kAttempts) {
        const int code = (this->*attempt.code)(place);
        if (const auto found = regionOfCode_.find(code); found != regionOfCode_.end()) {
            return Match{code, found->second, attempt.ground};
        }
    }
    return std::nullopt;
}

// The area table has short names ("新疆伊犁") where the geocoder has whole ones. Of several rows
// the longest name is the nearest.
int PlaceMatcher::CodeByName(std::string_view place) const {
    const std::string plain = WithoutProvinceSuffix(place);
    const AreaRow* nearest = nullptr;
    for (const AreaRow& row : kAreas) {
        if (regionOfCode_.contains(row.code) && plain.starts_with(Utf8View(row.place)) &&
            (nearest == nullptr || row.place.size() > nearest->place.size())) {
            nearest = &row;
        }
    }
    return nearest == nullptr ? 0 : nearest->code;
}

int PlaceMatcher::CodeByLandLine(std::string_view place) const {
    const auto found = codeOfLandLine_.find(place);
    return found == codeOfLandLine_.end() ? 0 : found->second;
}

int PlaceMatcher::CodeBySupplement(std::string_view place) const {
    const auto* row =
        std::find_if(std::begin(kSupplement), std::end(kSupplement),
                     [&](const SupplementRow& each) { return Utf8View(each.place) == place; });
    return row == std::end(kSupplement) ? 0 : row->code;
}

}  // namespace quorvi::phonedb
