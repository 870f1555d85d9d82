// Attributions beside the geocoder that made the data, and lunar dates beside ICU's Chinese
// calendar, each pair over the same inputs. Ends with status 1 when one of ours is slower than it
// may be, alone or beside the other.
#include <benchmark/benchmark.h>
#include <phonenumbers/geocoding/phonenumber_offline_geocoder.h>
#include <phonenumbers/phonenumber.pb.h>
#include <unicode/calendar.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "bench/Verdict.h"
#include "refdata/LunarCalendar.h"
#include "refdata/NumberAttribution.h"
#include "refdata/PhoneDbFormat.h"

namespace quorvi {
namespace {

using i18n::phonenumbers::PhoneNumber;
using i18n::phonenumbers::PhoneNumberOfflineGeocoder;

constexpr std::size_t kNumbers = 1 << 16;
constexpr double kMillisecondsADay = 86'400'000.0;

const CPhoneDb& Database() {
    static const CPhoneDb db(std::filesystem::temp_directory_path(), PhoneDbResource());
    return db;
}

// Mobile numbers from all over the range, in no order.
std::vector<std::uint64_t> MobileNumbers() {
    std::mt19937_64 random(1);
    std::uniform_int_distribution<std::uint64_t> range(std::uint64_t{kFirstPrefix} * 10'000,
                                                       std::uint64_t{kLastPrefix} * 10'000 + 9999);
    std::vector<std::uint64_t> numbers(kNumbers);
    for (std::uint64_t& number : numbers) {
        number = range(random);
    }
    return numbers;
}

std::vector<std::string> MobileTexts() {
    std::vector<std::string> texts;
    for (const std::uint64_t number : MobileNumbers()) {
        texts.push_back(std::to_string(number));
    }
    return texts;
}

// As a call log has them: mobile numbers in three ways of writing, land lines, services, bulk
// messages and what is nothing at all, in no order.
std::vector<std::string> MixedTexts() {
    constexpr std::array kOthers = {
        "01012345678", "051912345678", "0755-12345678", "87654321",    "10086", "95588",
        "110",         "4008823823",   "106575258",     "10657525811", "-1",    "8765432"};
    std::mt19937_64 random(2);
    std::vector<std::string> texts = MobileTexts();
    for (std::string& text : texts) {
        const std::uint64_t kind = random() % 10;
        if (kind == 0) {
            text.insert(0, "+86");
        } else if (kind == 1) {
            text.insert(7, "-").insert(3, "-");
        } else if (kind < 5) {
            text = kOthers[random() % kOthers.size()];
        }
    }
    return texts;
}

void Attribute(benchmark::State& state, const std::vector<std::string>& texts) {
    const CPhoneDb& db = Database();
    for (auto _ : state) {
        for (const std::string& text : texts) {
            benchmark::DoNotOptimize(NumberAttribution(text, db));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(texts.size()));
}
void AttributeMixed(benchmark::State& state) {
    Attribute(state, MixedTexts());
}
void AttributeMobile(benchmark::State& state) {
    Attribute(state, MobileTexts());
}

// The geocoder is given numbers that are parsed already, so its time is without the parsing.
void Geocoder(benchmark::State& state) {
    const PhoneNumberOfflineGeocoder geocoder;
    const icu::Locale locale("zh", "CN");
    std::vector<PhoneNumber> numbers;
    for (const std::uint64_t national : MobileNumbers()) {
        PhoneNumber number;
        number.set_country_code(86);
        number.set_national_number(national);
        numbers.push_back(number);
    }
    for (auto _ : state) {
        for (const PhoneNumber& number : numbers) {
            benchmark::DoNotOptimize(geocoder.GetDescriptionForValidNumber(number, locale));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(numbers.size()));
}

// All days of the calendar page's years, one after the other.
constexpr int kFirstYear = 1970;
constexpr int kLastYear = 2037;

void Lunar(benchmark::State& state) {
    std::int64_t days = 0;
    for (auto _ : state) {
        for (int year = kFirstYear; year <= kLastYear; ++year) {
            for (int month = 1; month <= 12; ++month) {
                const int count = GregorianMonthDays(year, month);
                for (int day = 1; day <= count; ++day) {
                    benchmark::DoNotOptimize(SolarToLunar(year, month, day));
                }
                days += count;
            }
        }
    }
    state.SetItemsProcessed(days);
}

void IcuChinese(benchmark::State& state) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Calendar> chinese(icu::Calendar::createInstance(
        *icu::TimeZone::getGMT(), icu::Locale("zh_CN@calendar=chinese"), status));
    const int last = DaysBetween(kLastYear, 12, 31, 1970, 1, 1);
    std::int64_t days = 0;
    for (auto _ : state) {
        for (int day = DaysBetween(kFirstYear, 1, 1, 1970, 1, 1); day <= last; ++day, ++days) {
            chinese->setTime(day * kMillisecondsADay, status);
            benchmark::DoNotOptimize(chinese->get(UCAL_EXTENDED_YEAR, status));
            benchmark::DoNotOptimize(chinese->get(UCAL_MONTH, status));
            benchmark::DoNotOptimize(chinese->get(UCAL_DATE, status));
        }
    }
    if (U_FAILURE(status)) {
        state.SkipWithError(u_errorName(status));
    }
    state.SetItemsProcessed(days);
}

BENCHMARK(AttributeMixed);
BENCHMARK(AttributeMobile);
BENCHMARK(Geocoder);
BENCHMARK(Lunar);
BENCHMARK(IcuChinese);

struct Demand {
    const char* ours;
    double leastASecond;
    const char* beside;  // null for none
    double leastTimes;
};
constexpr Demand kDemands[] = {
    {"AttributeMixed", 10e6, nullptr, 0},
    {"AttributeMobile", 10e6, "Geocoder", 20},
    {"Lunar", 2e6, "IcuChinese", 50},
};

double Speed(const Figures& figures, const char* benchmark) {
    return figures.Counter(benchmark, "items_per_second");
}

void Judge(const Figures& figures, Verdict& verdict) {
    for (const Demand& demand : kDemands) {
        const std::string name = demand.ours;
        const double ours = Speed(figures, demand.ours);
        verdict.AtLeast((name + ", millions a second").c_str(), ours / 1e6,
                        demand.leastASecond / 1e6);
        if (demand.beside != nullptr) {
            verdict.AtLeast((name + " / " + demand.beside).c_str(),
                            ours / Speed(figures, demand.beside), demand.leastTimes);
        }
    }
}

}  // namespace
}  // namespace quorvi

int main(int count, char** words) {
    return quorvi::RunAndJudge(count, words, 1, quorvi::Judge);
}
