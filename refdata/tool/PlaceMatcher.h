// From the geocoder's name of a place to the region id of phone.db that stands for it. Texts are
// UTF-8, as the geocoder gives them.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvi::phonedb {

// How a place found its area code.
enum class Ground {
    name,        // a row of the area table bears its name
    landLine,    // the land lines of the area code bear its name
    supplement,  // a row of data/PlaceSupplement.inc
};

struct Match {
    int areaCode = 0;
    std::uint16_t regionId = 0;  // the lowest that leads to the area code
    Ground ground = Ground::name;
};

// The geocoder's name for the land lines of an area code, several places joined by "、" among them;
// empty where it knows none.
using LandLinePlace = std::function<std::string(int areaCode)>;

class PlaceMatcher {
  public:
    // Asks for the land lines of each area code that some region id leads to, once.
    explicit PlaceMatcher(const LandLinePlace& placeOf);

    // The place of a mobile number as the geocoder writes it ("江苏省常州市"). Nothing when none of
    // the three grounds gives an area code with a region id.
    [[nodiscard]] std::optional<Match> Find(std::string_view place) const;

  private:
    [[nodiscard]] int CodeByName(std::string_view place) const;
    [[nodiscard]] int CodeByLandLine(std::string_view place) const;
    [[nodiscard]] int CodeBySupplement(std::string_view place) const;

    std::map<int, std::uint16_t> regionOfCode_;
    std::map<std::string, int, std::less<>> codeOfLandLine_;
};

// "江苏省常州市" as the area table begins it: "江苏常州市".
[[nodiscard]] std::string WithoutProvinceSuffix(std::string_view place);

// The single places of a joint name; the province in front of the first is that of all:
// "四川省内江市、资阳市" is "四川省内江市" and "四川省资阳市".
[[nodiscard]] std::vector<std::string> SinglePlaces(std::string_view joint);

}  // namespace quorvi::phonedb
