#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "site/Options.h"

namespace quorvi::site {
namespace {

TEST(SiteCommandLine, WithoutWordsListensOnAnyPortAndWritesNothing) {
    const CommandLine line = ParseCommandLine({});
    EXPECT_EQ(line.error, "");
    EXPECT_EQ(line.server.port, 0);
    EXPECT_EQ(line.server.kilobytesASecond, 0u);
    EXPECT_TRUE(line.deployment.empty());
}

TEST(SiteCommandLine, TakesPortRateAndFile) {
    const CommandLine line =
        ParseCommandLine({"--port", "8080", "--rate", "2000", "--deployment", "own.json"});
    EXPECT_EQ(line.error, "");
    EXPECT_EQ(line.server.port, 8080);
    EXPECT_EQ(line.server.kilobytesASecond, 2000u);
    EXPECT_EQ(line.deployment, "own.json");
}

TEST(SiteCommandLine, SaysWhatItCannotUse) {
    EXPECT_EQ(ParseCommandLine({"--host"}).error, "unknown option --host");
    EXPECT_EQ(ParseCommandLine({"--port"}).error, "--port needs PORT");
    EXPECT_EQ(ParseCommandLine({"--port", "65536"}).error, "--port cannot be 65536");
    EXPECT_EQ(ParseCommandLine({"--rate", "-1"}).error, "--rate cannot be -1");
    EXPECT_EQ(ParseCommandLine({"--deployment", ""}).error, "--deployment cannot be ");
}

TEST(SiteCommandLine, HelpNamesEveryOption) {
    EXPECT_TRUE(ParseCommandLine({"--port", "1", "--help", "--nonsense"}).help);
    for (const char* option : {"--port PORT", "--rate KILOBYTES", "--deployment FILE"}) {
        EXPECT_THAT(HelpText(), testing::HasSubstr(option));
    }
}

TEST(DeploymentDocument, IsReadBackAsItWas) {
    Deployment written;
    written.siteRoot = "http://127.0.0.1:8080/";
    written.storeRoot = "http://127.0.0.1:8080/store/";
    written.downloadRoot = "http://127.0.0.1:8080/download/";
    written.weatherHost = "127.0.0.1:8080";
    written.contactMail = "mailto:a@b.example";
    written.forumLink = "http://f.example/";
    written.socialLink = "http://s.example/";
    written.helpLink = "http://h.example/";
    written.codePage = CodePage::gb18030;
    std::string complaint;
    const Deployment read = ParseDeployment(DeploymentDocument(written), complaint);
    EXPECT_EQ(complaint, "");
    EXPECT_EQ(read.siteRoot, written.siteRoot);
    EXPECT_EQ(read.storeRoot, written.storeRoot);
    EXPECT_EQ(read.downloadRoot, written.downloadRoot);
    EXPECT_EQ(read.weatherHost, written.weatherHost);
    EXPECT_EQ(read.contactMail, written.contactMail);
    EXPECT_EQ(read.forumLink, written.forumLink);
    EXPECT_EQ(read.socialLink, written.socialLink);
    EXPECT_EQ(read.helpLink, written.helpLink);
    EXPECT_EQ(read.codePage, written.codePage);
}

}  // namespace
}  // namespace quorvi::site
