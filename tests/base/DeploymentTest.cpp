#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "base/Deployment.h"
#include "tests/support/BuildPlaces.h"

namespace quorvi {
namespace {

TEST(Deployment, EachMemberOfTheFileIsTaken) {
    std::string complaint;
    const Deployment read = ParseDeployment(R"({
        "site": "https://a.example/", "store": "http://b.example/s/",
        "download": "http://c.example/", "weather": "d.example:8080",
        "contact_mail": "mailto:e@e.example", "forum": "http://f.example/",
        "social": "https://g.example/x", "help": "http://h.example/", "code_page": "GB18030"})",
                                            complaint);
    EXPECT_EQ(complaint, "");
    EXPECT_EQ(read.siteRoot, "https://a.example/");
    EXPECT_EQ(read.storeRoot, "http://b.example/s/");
    EXPECT_EQ(read.downloadRoot, "http://c.example/");
    EXPECT_EQ(read.weatherHost, "d.example:8080");
    EXPECT_EQ(read.contactMail, "mailto:e@e.example");
    EXPECT_EQ(read.forumLink, "http://f.example/");
    EXPECT_EQ(read.socialLink, "https://g.example/x");
    EXPECT_EQ(read.helpLink, "http://h.example/");
    EXPECT_EQ(read.codePage, CodePage::gb18030);
}

TEST(Deployment, ARootWithoutItsSlashIsGivenOne) {
    std::string complaint;
    EXPECT_EQ(ParseDeployment(R"({"site": "http://a.example"})", complaint).siteRoot,
              "http://a.example/");
    EXPECT_EQ(complaint, "");
}

TEST(Deployment, AMemberThatIsLeftOutKeepsItsPlaceholderSilently) {
    std::string complaint;
    EXPECT_EQ(ParseDeployment("{}", complaint).storeRoot, Deployment().storeRoot);
    EXPECT_EQ(complaint, "");
}

TEST(Deployment, ABrokenFileIsSaidAndThePlaceholdersHold) {
    for (const char* text : {"", "{", "[]", "\"site\"", "{\"site\": \"http://a.example/\"} more"}) {
        std::string complaint;
        EXPECT_EQ(ParseDeployment(text, complaint).siteRoot, Deployment().siteRoot) << text;
        EXPECT_NE(complaint, "") << text;
    }
}

TEST(Deployment, AnUnusableValueIsSaidAndTheOthersAreTaken) {
    std::string complaint;
    const Deployment read = ParseDeployment(
        R"({"site": 7, "store": "ftp://b.example/", "weather": "a/b", "forum": "javascript:x",
            "download": "http://a b/", "code_page": "utf-7", "help": "http://h.example/"})",
        complaint);
    EXPECT_EQ(read.siteRoot, Deployment().siteRoot);
    EXPECT_EQ(read.storeRoot, Deployment().storeRoot);
    EXPECT_EQ(read.weatherHost, Deployment().weatherHost);
    EXPECT_EQ(read.forumLink, Deployment().forumLink);
    EXPECT_EQ(read.downloadRoot, Deployment().downloadRoot);
    EXPECT_EQ(read.codePage, CodePage::gbk);
    EXPECT_EQ(read.helpLink, "http://h.example/");
    for (const char* name : {"site", "store", "weather", "forum", "download", "code_page"}) {
        EXPECT_NE(complaint.find(name), std::string::npos) << name;
    }
}

TEST(Deployment, AMissingFileIsSaidOnceOnTheDebugChannel) {
    testing::internal::CaptureStderr();
    const Deployment read = ReadDeployment("/nonexistent/deployment.json");
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_EQ(read.siteRoot, Deployment().siteRoot);
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1);
    EXPECT_NE(said.find("/nonexistent/deployment.json"), std::string::npos);
}

TEST(Deployment, TheFileAsDeliveredHoldsThePlaceholders) {
    testing::internal::CaptureStderr();
    const Deployment read = ReadDeployment(QUORVI_SOURCE_DIR "/Data/deployment.json");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    const Deployment placeholders;
    EXPECT_EQ(read.siteRoot, placeholders.siteRoot);
    EXPECT_EQ(read.storeRoot, placeholders.storeRoot);
    EXPECT_EQ(read.downloadRoot, placeholders.downloadRoot);
    EXPECT_EQ(read.weatherHost, placeholders.weatherHost);
    EXPECT_EQ(read.contactMail, placeholders.contactMail);
    EXPECT_EQ(read.forumLink, placeholders.forumLink);
    EXPECT_EQ(read.socialLink, placeholders.socialLink);
    EXPECT_EQ(read.helpLink, placeholders.helpLink);
    EXPECT_EQ(read.codePage, CodePage::gb18030);  // as delivered no character is lost
    EXPECT_EQ(placeholders.codePage, CodePage::gbk);
}

TEST(Deployment, TheProgramsOwnIsReadOnce) {
    testing::internal::CaptureStderr();
    const Deployment& first = TheDeployment();
    const Deployment& second = TheDeployment();
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_EQ(&first, &second);
    EXPECT_LE(std::count(said.begin(), said.end(), '\n'), 1);
}

}  // namespace
}  // namespace quorvi
