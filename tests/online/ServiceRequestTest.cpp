#include <gtest/gtest.h>

#include <array>

#include "base/Text.h"
#include "online/ServiceRequest.h"
#include "tests/support/SiteServer.h"

namespace quorvi {
namespace {

TEST(BuildServiceUrlTest, PutsTheFourTextsTogether) {
    EXPECT_EQ(BuildServiceUrl("http://a.example/", "feedback/", "apk_list", ".php"),
              "http://a.example/feedback/apk_list.php");
}

TEST(ServiceUrlTest, IsBelowTheRootOfTheSite) {
    const Deployment deployment{.siteRoot = "http://a.example/"};
    EXPECT_EQ(ServiceUrl(deployment, kStoreLinkService),
              "http://a.example/feedback/android_info.php");
    EXPECT_EQ(ServiceUrl(deployment, kStoreCheckService), "http://a.example/feedback/apk_list.php");
    EXPECT_EQ(ServiceUrl(deployment, kFeedbackService), "http://a.example/feedback/feedback.php");
}

TEST(StoreLinkDocumentTest, NamesThePackageWithItsCheckSum) {
    EXPECT_EQ(StoreLinkDocument("com.example.xingtu"),
              "{\n"
              "   \"CheckSum\" : \"d33c\",\n"
              "   \"PackageName\" : \"com.example.xingtu\"\n"
              "}\n");
}

TEST(StoreCheckDocumentTest, HasItsMembersByNameAndThePackagesInTheirOrder) {
    const std::array<std::string, 2> packages{"com.example.xingtu", "com.example.tingshu"};
    EXPECT_EQ(StoreCheckDocument({.client = 7, .api = 8, .model = Ansi(u8"奎维 Q1")}, packages),
              "{\n"
              "   \"Api\" : 8,\n"
              "   \"CheckSum\" : \"e72b9f\",\n"
              "   \"Client\" : 7,\n"
              "   \"Model\" : \"奎维 Q1\",\n"
              "   \"PackageName\" : [ \"com.example.xingtu\", \"com.example.tingshu\" ]\n"
              "}\n");
}

TEST(StoreCheckDocumentTest, BreaksAListThatIsTooLongForALine) {
    const std::array<std::string, 3> packages{"com.example.one.with.a.long.name",
                                              "com.example.two.with.a.long.name",
                                              "com.example.three.with.a.long.name"};
    EXPECT_NE(StoreCheckDocument({}, packages)
                  .find("   \"PackageName\" : \n"
                        "   [\n"
                        "      \"com.example.one.with.a.long.name\",\n"
                        "      \"com.example.two.with.a.long.name\",\n"
                        "      \"com.example.three.with.a.long.name\"\n"
                        "   ]\n"),
              std::string::npos);
}

TEST(StoreCheckDocumentTest, OfNoPackageHasAnEmptyList) {
    EXPECT_NE(StoreCheckDocument({}, {}).find("\"PackageName\" : []"), std::string::npos);
}

TEST(AskServiceTest, PostsTheDocumentAsTheOneFieldOfTheService) {
    const SiteServer site;
    site.Serve("feedback/apk_list.php", "[]");
    const Deployment deployment{.siteRoot = site.Root()};
    EXPECT_EQ(AskService(deployment, kStoreCheckService, "{}\n"), "[]/r/n");
    const auto requests = site.Requests(1);
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0].line, "POST /feedback/apk_list.php HTTP/1.1");
    EXPECT_EQ(requests[0].body, "apps={}\n&");
}

}  // namespace
}  // namespace quorvi
