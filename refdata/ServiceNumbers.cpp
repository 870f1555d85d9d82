#include "refdata/ServiceNumbers.h"

#include <algorithm>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "base/Text.h"

namespace quorvi {
namespace {

template <typename Key>
struct ServiceRow {
    Key number;
    std::u8string_view caption;
};

constexpr ServiceRow<int> kThreeDigits[] = {
#include "refdata/data/ServiceNumbers3.inc"
};
constexpr ServiceRow<int> kFiveDigits[] = {
#include "refdata/data/ServiceNumbers5.inc"
};
constexpr ServiceRow<std::string_view> kTenDigits[] = {
#include "refdata/data/ServiceNumbers10.inc"
};

// A table in the order of its keys, its captions turned to ANSI once.
template <typename Key>
class Services {
  public:
    explicit Services(std::span<const ServiceRow<Key>> table) {
        for (const ServiceRow<Key>& row : table) {
            rows_.emplace_back(row.number, Ansi(row.caption));
        }
        std::sort(rows_.begin(), rows_.end());
    }

    [[nodiscard]] std::string_view CaptionOf(Key number) const {
        const auto row =
            std::lower_bound(rows_.begin(), rows_.end(), number,
                             [](const auto& each, Key wanted) { return each.first < wanted; });
        return row != rows_.end() && row->first == number ? row->second : std::string_view();
    }

  private:
    std::vector<std::pair<Key, std::string>> rows_;
};

}  // namespace

std::string_view ThreeDigitService(int number) {
    static const Services<int> services(kThreeDigits);
    return services.CaptionOf(number);
}

std::string_view FiveDigitService(int number) {
    static const Services<int> services(kFiveDigits);
    return services.CaptionOf(number);
}

std::string_view TenDigitService(std::string_view number) {
    static const Services<std::string_view> services(kTenDigits);
    return services.CaptionOf(number);
}

}  // namespace quorvi
