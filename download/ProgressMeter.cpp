#include "download/ProgressMeter.h"

#include <algorithm>
#include <limits>

namespace quorvi {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kFirstReport{1000};
constexpr milliseconds kBetweenReports{200};
constexpr std::int64_t kFirstBytes = 10240;

std::int32_t Narrow(std::int64_t number) {
    return static_cast<std::int32_t>(
        std::min<std::int64_t>(number, std::numeric_limits<std::int32_t>::max()));
}

}  // namespace

std::optional<Progress> ProgressMeter::Count(std::int64_t bytes, milliseconds elapsed) {
    session_ += bytes;
    done_ += bytes;
    if (elapsed <= kFirstReport || session_ <= kFirstBytes ||
        elapsed - lastReport_ <= kBetweenReports) {
        return std::nullopt;
    }
    lastReport_ = elapsed;
    return Progress{.speed = Narrow(session_ / (elapsed.count() / 1000)),
                    .percent = Narrow(done_ * 100 / total_)};
}

}  // namespace quorvi
