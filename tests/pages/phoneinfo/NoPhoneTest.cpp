#include <gtest/gtest.h>

#include "base/Text.h"
#include "link/LinkAdvice.h"
#include "pages/phoneinfo/NoPhone.h"

namespace quorvi {
namespace {

std::string HtmlOf(LinkTrouble trouble) {
    return NoPhoneFragment(trouble).Html();
}

TEST(NoPhone, WithoutATroubleItSaysHowAPhoneIsConnected) {
    const std::string html = HtmlOf(LinkTrouble::none);
    EXPECT_NE(html.find(Ansi(u8"还没有连接手机")), std::string::npos);
    EXPECT_EQ(html.find("class='ask'"), std::string::npos);
}

TEST(NoPhone, ATroubleShowsItsHeadlineItsThreeStepsAndItsRemark) {
    for (const LinkTrouble trouble :
         {LinkTrouble::unauthorized, LinkTrouble::noPermissions, LinkTrouble::offline}) {
        const std::string html = HtmlOf(trouble);
        const LinkAdvice& advice = AdviceOn(trouble);
        EXPECT_NE(html.find("<h1>" + Ansi(advice.headline) + "</h1>"), std::string::npos);
        std::size_t last = 0;
        for (const std::u8string_view step : advice.steps) {
            const std::size_t at = html.find("<li>" + Ansi(step) + "</li>");
            ASSERT_NE(at, std::string::npos);
            EXPECT_GT(at, last);
            last = at;
        }
        EXPECT_NE(html.find("<p>" + Ansi(advice.remark) + "</p>"), std::string::npos);
    }
}

TEST(NoPhone, EachOfThemLeadsToTheGuide) {
    for (const LinkTrouble trouble : {LinkTrouble::none, LinkTrouble::unauthorized,
                                      LinkTrouble::noPermissions, LinkTrouble::offline}) {
        EXPECT_NE(HtmlOf(trouble).find("<a href='qvh:" + std::string(kGuideLink) + "'>"),
                  std::string::npos);
    }
}

TEST(NoPhone, APhoneThatWaitsForItsUserHasAPictureOfTheQuestion) {
    EXPECT_NE(HtmlOf(LinkTrouble::unauthorized).find("'unauthorized.svg'"), std::string::npos);
    EXPECT_NE(HtmlOf(LinkTrouble::offline).find("'no_phone.svg'"), std::string::npos);
}

}  // namespace
}  // namespace quorvi
