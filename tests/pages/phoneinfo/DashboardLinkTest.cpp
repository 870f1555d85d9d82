#include <gtest/gtest.h>

#include "pages/phoneinfo/DashboardLink.h"

namespace quorvi {
namespace {

TEST(DashboardLink, EachLinkHasItsCode) {
    const std::pair<const char*, int> expected[] = {
        {"refresh", 2}, {"device", 0}, {"appstore", 1}, {"screenshot", 3}, {"advanced", 4},
        {"os", 5},      {"space", 5},  {"battery", 5},  {"gps", 6},        {"bluetooth", 6},
        {"gravity", 6}, {"wifi", 6},   {"4786", 7},     {"", 7},           {"refresh ", 7},
    };
    for (const auto& [link, code] : expected) {
        EXPECT_EQ(static_cast<int>(DashboardActionOf(link)), code) << link;
    }
}

TEST(DashboardLink, CaseOfLettersDoesNotCount) {
    EXPECT_EQ(DashboardActionOf("ReFresh"), DashboardAction::refresh);
    EXPECT_EQ(DashboardActionOf("WiFi"), DashboardAction::phoneSettings);
}

}  // namespace
}  // namespace quorvi
