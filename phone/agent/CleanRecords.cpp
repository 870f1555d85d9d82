#include "phone/agent/CleanRecords.h"

#include <fmt/format.h>

#include <utility>

#include "base/Utf8.h"
#include "phone/agent/AppIcons.h"
#include "phone/agent/Applications.h"
#include "phone/agent/HostileTexts.h"
#include "phone/agent/Photos.h"

namespace quorvi::phone {
namespace {

constexpr std::uint64_t kKilobyte = 1024;

struct DeliveredCache {
    std::string_view package;
    std::uint64_t kilobytes;
};

// The largest first, as the phone's own settings list them.
constexpr DeliveredCache kCaches[] = {
    {"com.android.gallery", 39'320},      {"com.android.browser", 18'764},
    {"com.example.audiobooks", 13'005},   {"com.example.weather", 7'064},
    {"com.example.bus", 5'412},           {"com.android.email", 2'890},
    {"com.example.chat", 2'336},          {"com.example.dictionary", 820},
    {"com.android.providers.media", 512}, {"com.example.run", 148},
    {"com.android.settings", 24},
};

constexpr std::u8string_view kBrowserSearches[] = {
    u8"无锡 天气", u8"太湖 徒步 路线", u8"红烧肉 做法", u8"G7 次列车 时刻", u8"小学 三年级 口算题",
};
constexpr std::u8string_view kBrowserHistory[] = {
    u8"http://3g.news.example/",
    u8"http://m.weather.example/101190201.html",
    u8"http://bus.example/wuxi/",
    u8"http://train.example/query?from=WXH&to=BJP",
    u8"http://bbs.hiking.example/forum.php?mod=viewthread&tid=20113",
    u8"http://recipe.example/r/8817",
    u8"https://school.example/class/302",
};
constexpr std::u8string_view kMarketSearches[] = {u8"五子棋", u8"离线词典", u8"跑步 记录"};

template <std::size_t kCount>
std::vector<std::string> TextsOf(const std::u8string_view (&texts)[kCount]) {
    std::vector<std::string> all;
    for (const std::u8string_view text : texts) {
        all.push_back(Utf8(text));
    }
    return all;
}

}  // namespace

std::size_t CleanRecords::Clean(std::string_view package) {
    return std::erase_if(caches, [&](const Cache& cache) { return cache.package == package; });
}

std::size_t CleanRecords::Forget(std::size_t fixedItem) {
    return std::exchange(remembered[fixedItem], {}).size();
}

CleanRecords DeliveredCleanRecords() {
    CleanRecords records;
    for (const DeliveredCache& one : kCaches) {
        records.caches.push_back({Utf8(ApplicationOf(one.package).name), std::string(one.package),
                                  one.kilobytes * kKilobyte, AppIcon(one.package)});
    }
    records.remembered = {TextsOf(kBrowserSearches), TextsOf(kBrowserHistory),
                          TextsOf(kMarketSearches)};
    return records;
}

CleanRecords LargeCleanRecords(std::uint32_t count, std::uint32_t iconBytes) {
    CleanRecords records;
    records.caches.reserve(count);
    for (std::uint32_t i = 0; i < count; ++i) {
        records.caches.push_back({Utf8(u8"应用 ") + std::to_string(i + 1),
                                  fmt::format("com.example.made.up.n{}", i + 1),
                                  (i * 53ull % 30'000 + 4) * kKilobyte,
                                  iconBytes == 0 ? nullptr : Share(PaddedPhoto(iconBytes, i))});
    }
    return records;
}

void AddHostileCaches(CleanRecords& records) {
    for (const std::string& harm : HostileTexts()) {
        records.caches.push_back({harm, "com.example.harm", 1, nullptr});
        records.caches.push_back({"harm", harm, 1, nullptr});
    }
    // Sizes beyond what a list shows, icons that are none.
    records.caches.push_back(
        {"numbers", "com.example.numbers", UINT64_MAX, Share(HeaderOnlyPng(60'000, 60'000))});
    records.caches.push_back(
        {"memory", "com.example.memory", 1ULL << 32, Share(PaddedPhoto(300'000, 1))});
}

}  // namespace quorvi::phone
