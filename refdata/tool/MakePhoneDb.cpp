// Makes phone.db and its report from the offline geocoder's Chinese names. Needed to build the
// program, never to run it.
//
//   make_phone_db FILE REPORT
//
// Ends with 1, and without FILE, when too few places are matched or a file cannot be written.
#include <fmt/format.h>
#include <phonenumbers/geocoding/phonenumber_offline_geocoder.h>
#include <phonenumbers/phonenumber.pb.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "refdata/tool/PhoneDbBuild.h"

namespace {

constexpr int kCountryCode = 86;
// What makes a whole number of a prefix or an area code. The geocoder looks at the leading digits
// alone, but must find as many digits as some number of the kind has.
constexpr std::uint64_t kMobileTail = 10'000;
constexpr const char* kSubscribers[] = {"61234567", "2123456"};

class Geocoder {
  public:
    std::string Mobile(int prefix) const {
        return PlaceOf(static_cast<std::uint64_t>(prefix) * kMobileTail, true);
    }
    std::string LandLine(int areaCode) const {
        for (const char* subscriber : kSubscribers) {
            const std::string number = std::to_string(areaCode) + subscriber;
            if (std::string place = PlaceOf(std::stoull(number), false); !place.empty()) {
                return place;
            }
        }
        return {};
    }

  private:
    std::string PlaceOf(std::uint64_t national, bool mobile) const {
        i18n::phonenumbers::PhoneNumber number;
        number.set_country_code(kCountryCode);
        number.set_national_number(national);
        // Of a mobile number that is not in use yet the geocoder may know the place already.
        std::string place = mobile ? geocoder_.GetDescriptionForValidNumber(number, locale_)
                                   : geocoder_.GetDescriptionForNumber(number, locale_);
        return place == country_ ? std::string() : place;
    }
    static std::string CountryIn(const icu::Locale& locale) {
        icu::UnicodeString name;
        std::string utf8;
        return icu::Locale("", "CN").getDisplayCountry(locale, name).toUTF8String(utf8);
    }

    icu::Locale locale_{"zh", "CN"};
    std::string country_ = CountryIn(locale_);  // its answer where it knows no place
    i18n::phonenumbers::PhoneNumberOfflineGeocoder geocoder_;
};

bool WriteFile(const std::filesystem::path& path, const char* bytes, std::size_t size) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(bytes, static_cast<std::streamsize>(size));
    return file.flush().good();
}

}  // namespace

int main(int count, char** words) {
    using namespace quorvi::phonedb;
    if (count != 3) {
        fmt::print(stderr, "usage: make_phone_db FILE REPORT\n");
        return 1;
    }
    const std::filesystem::path file = words[1];
    const std::filesystem::path reportFile = words[2];
    const Geocoder geocoder;
    const PlaceMatcher matcher([&](int areaCode) { return geocoder.LandLine(areaCode); });
    const PhoneDbBuild build =
        BuildPhoneDb([&](int prefix) { return geocoder.Mobile(prefix); }, matcher);
    const std::string report = ReportOf(build);
    std::error_code ignored;
    std::filesystem::remove(file, ignored);
    if (!WriteFile(reportFile, report.data(), report.size())) {
        fmt::print(stderr, "make_phone_db: cannot write {}\n", reportFile.string());
        return 1;
    }
    if (!build.GoodEnough()) {
        fmt::print(stderr, "make_phone_db: too few places are matched\n{}", report);
        return 1;
    }
    if (!WriteFile(file, reinterpret_cast<const char*>(build.file.data()), build.file.size())) {
        fmt::print(stderr, "make_phone_db: cannot write {}\n", file.string());
        return 1;
    }
    return 0;
}
