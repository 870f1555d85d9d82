#include "link/AdbNames.h"

#include "base/Text.h"

namespace quorvi {
namespace {

struct VersionRow {
    int apiLevel;
    std::string_view name;
};
constexpr VersionRow kVersions[] = {
    {3, "Android 1.5"},     // Cupcake
    {4, "Android 1.6"},     // Donut
    {5, "Android 2.0"},     // Eclair
    {6, "Android 2.0.1"},   //
    {7, "Android 2.1"},     //
    {8, "Android 2.2"},     // Froyo
    {9, "Android 2.3"},     // Gingerbread
    {10, "Android 2.3.X"},  //
    {11, "Android 3.0"},    // Honeycomb
    {12, "Android 3.1"},    //
    {13, "Android 3.2"},    //
    {14, "Android 4.0"},    // Ice Cream Sandwich
    {15, "Android 4.0.3"},  //
};

// In the order in which the words are tried.
struct BrandRow {
    std::string_view word;
    int image;
};
constexpr BrandRow kBrands[] = {
    {"acer", 21000},         {"apple", 21002},   {"dopod", 21003},    {"google", 21004},
    {"htc", 21015},          {"lenovo", 21006},  {"motorola", 21008}, {"meizu", 21007},
    {"nokia", 21009},        {"philips", 21010}, {"samsung", 21011},  {"sharp", 21012},
    {"sonyericsson", 21013}, {"zte", 21014},
};

// The bodies are neutral and stand for no maker.
struct PictureRow {
    int image;
    std::string_view picture;
};
constexpr PictureRow kPictures[] = {
    {21000, "phone-a"}, {21002, "phone-e"}, {21003, "phone-c"}, {21004, "phone-b"},
    {21006, "phone-a"}, {21007, "phone-e"}, {21008, "phone-c"}, {21009, "phone-a"},
    {21010, "phone-d"}, {21011, "phone-e"}, {21012, "phone-d"}, {21013, "phone-e"},
    {21014, "phone-a"}, {21015, "phone-d"},
};

// The first row whose word occurs decides.
struct LocalName {
    std::string_view word;
    std::u8string_view name;
};
constexpr LocalName kLocalNames[] = {
    {"meizu", u8"魅族"},
    {"motorola", u8"摩托罗拉"},
};

}  // namespace

std::string AndroidVersionName(int apiLevel) {
    for (const VersionRow& row : kVersions) {
        if (row.apiLevel == apiLevel) {
            return std::string(row.name);
        }
    }
    return Ansi(u8"未知版本");
}

int BrandImageId(std::string_view manufacturer) {
    const std::string lower = ToLower(manufacturer);
    for (const BrandRow& row : kBrands) {
        if (lower.find(row.word) != std::string::npos) {
            return row.image;
        }
    }
    return kOtherBrandImage;
}

std::string_view BrandPicture(int brandImage) {
    for (const PictureRow& row : kPictures) {
        if (row.image == brandImage) {
            return row.picture;
        }
    }
    return BrandPicture(kOtherBrandImage);
}

std::string CleanModelName(std::string_view model) {
    return ReplaceAll(model, "meizu_", "");
}

std::string LocalBrandName(std::string_view manufacturer) {
    for (const LocalName& row : kLocalNames) {
        if (manufacturer.find(row.word) != std::string_view::npos) {
            return ReplaceAll(manufacturer, row.word, Ansi(row.name));
        }
    }
    return std::string(manufacturer);
}

}  // namespace quorvi
