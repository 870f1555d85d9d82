#include <gtest/gtest.h>

#include "ui/html/HtmlSite.h"

namespace quorvi {
namespace {

constexpr HtmlNavigation kNavigations[] = {HtmlNavigation::typed, HtmlNavigation::clicked,
                                           HtmlNavigation::other};

TEST(HtmlSite, ClickOnAPrivateLinkIsACommandAndGoesNoFurther) {
    for (const HtmlContent content : {HtmlContent::local, HtmlContent::web}) {
        const HtmlDecision decision =
            DecideNavigation(content, "QVH:did=7", HtmlNavigation::clicked);
        EXPECT_EQ(decision.command, "did=7");
        EXPECT_FALSE(decision.goes);
    }
}

TEST(HtmlSite, PhoneMarkupGivesNoCommandByItself) {
    const HtmlDecision decision =
        DecideNavigation(HtmlContent::local, "qvh:did=7", HtmlNavigation::other);
    EXPECT_EQ(decision.command, std::nullopt);
    EXPECT_FALSE(decision.goes);
}

TEST(HtmlSite, SiteMayLeadToAPrivateLink) {
    EXPECT_EQ(DecideNavigation(HtmlContent::web, "qvh:7", HtmlNavigation::other).command, "7");
}

TEST(HtmlSite, OnlyTheProgramLoadsATemplate) {
    for (const HtmlContent content : {HtmlContent::local, HtmlContent::web}) {
        for (const HtmlNavigation navigation : kNavigations) {
            EXPECT_EQ(DecideNavigation(content, "qrc:/views/blank.html", navigation).goes,
                      navigation == HtmlNavigation::typed);
        }
    }
}

TEST(HtmlSite, OnlyAWebDocumentLeadsToTheWeb) {
    for (const HtmlNavigation navigation : kNavigations) {
        for (const char* url : {"http://a.example/", "https://a.example/"}) {
            EXPECT_TRUE(DecideNavigation(HtmlContent::web, url, navigation).goes);
            EXPECT_FALSE(DecideNavigation(HtmlContent::local, url, navigation).goes);
        }
    }
}

TEST(HtmlSite, NoDocumentLeadsToAnotherScheme) {
    for (const HtmlContent content : {HtmlContent::local, HtmlContent::web}) {
        for (const HtmlNavigation navigation : kNavigations) {
            for (const char* url : {"file:///etc/passwd", "data:text/html,x", "about:blank",
                                    "chrome://gpu", "qrcx:/views/blank.html"}) {
                EXPECT_FALSE(DecideNavigation(content, url, navigation).goes) << url;
            }
        }
    }
}

}  // namespace
}  // namespace quorvi
