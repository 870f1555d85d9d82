#include <gtest/gtest.h>

#include "base/ByteText.h"
#include "base/Text.h"
#include "online/VersionNews.h"
#include "tests/online/SiteFaults.h"
#include "tests/support/SiteServer.h"

namespace quorvi {
namespace {

constexpr std::string_view kNews =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<root>\n"
    "  <item type=\"version\">\n"
    "    <v>1.2</v><phones>2011-06</phones><greetings>320 "
    "条</greetings><forum>新版</forum><more>x</more>\n"
    "  </item>\n"
    "  <item type=\"detail\">\n"
    "    <add>新的功能</add><other>不显示</other><update>更快</update><fix>不再停住</fix>\n"
    "  </item>\n"
    "  <item type=\"other\"><add>不显示</add></item>\n"
    "</root>\n";

std::vector<std::string> Lines(const VersionNews& news) {
    std::vector<std::string> lines;
    for (const NewsRow& row : news.rows) {
        lines.push_back(fmt::format("{} {} {}", static_cast<int>(row.kind), ToUtf8(row.caption),
                                    ToUtf8(row.text)));
    }
    return lines;
}

TEST(VersionNewsTest, ListsDataByPositionAndDetailsByName) {
    const VersionNews news = ParseVersionNews(kNews);
    EXPECT_FALSE(news.broken);
    EXPECT_EQ(news.newest, "1.2");
    EXPECT_EQ(Lines(news), (std::vector<std::string>{
                               "3 手机参数 2011-06",
                               "3 祝福短信 320 条",
                               "3 论坛映射 新版",
                               "0 新增功能 新的功能",
                               "1 常规改进 更快",
                               "2 漏洞修复 不再停住",
                           }));
}

TEST(VersionNewsTest, ADetailOfAnUnknownNameLeavesNoRow) {
    const VersionNews news =
        ParseVersionNews("<root><item type='detail'><Add>a</Add><news>b</news></item></root>");
    EXPECT_TRUE(news.rows.empty());
    EXPECT_FALSE(news.broken);
}

TEST(VersionNewsTest, ATypeIsReadInCapitalsToo) {
    EXPECT_EQ(ParseVersionNews("<root><item type='VERSION'><v>2</v></item></root>").newest, "2");
    EXPECT_EQ(ParseVersionNews("<root><item type='Detail'><add>a</add></item></root>").rows.size(),
              1U);
}

TEST(VersionNewsTest, AVersionAloneAddsNoRow) {
    const VersionNews news =
        ParseVersionNews("<root><item type='version'><any>3</any></item></root>");
    EXPECT_EQ(news.newest, "3");
    EXPECT_TRUE(news.rows.empty());
}

TEST(VersionNewsTest, BlocksAreFoundAtWhateverDepth) {
    EXPECT_EQ(ParseVersionNews("<root><a><item type='version'><v>4</v></item></a></root>").newest,
              "4");
}

TEST(VersionNewsTest, ABlockWithoutATypeBreaksItAndWhatStoodBeforeStays) {
    const VersionNews news = ParseVersionNews(
        "<root><item type='detail'><add>a</add></item><item/><item "
        "type='detail'><add>b</add></item></root>");
    EXPECT_TRUE(news.broken);
    EXPECT_EQ(news.rows.size(), 1U);
}

TEST(VersionNewsTest, AnotherTopElementBreaksIt) {
    EXPECT_TRUE(ParseVersionNews("<main><item type='version'><v>5</v></item></main>").broken);
    EXPECT_TRUE(ParseVersionNews("").broken);
    EXPECT_TRUE(ParseVersionNews("<html><body>404</body>").broken);
}

TEST(VersionNewsTest, TextsOfOtherCodePagesAreRead) {
    EXPECT_EQ(ParseVersionNews("<?xml version='1.0' encoding='gb2312'?><root><item type='detail'>"
                               "<add>\xBA\xA3</add></item></root>")
                  .rows.at(0)
                  .text,
              Ansi(u8"海"));
}

TEST(VersionNewsTest, ComesFromBelowTheRootOfTheSite) {
    const SiteServer site;
    site.Serve("update.xml", kNews);
    const VersionNews news = FetchVersionNews({.siteRoot = site.Root()});
    EXPECT_EQ(news.newest, "1.2");
    EXPECT_EQ(news.rows.size(), 6U);
    EXPECT_EQ(site.Requests(1).at(0).line, "GET /update.xml HTTP/1.1");
}

TEST(VersionNewsTest, ASiteWithoutTheFileBreaksIt) {
    const SiteServer site;
    EXPECT_TRUE(FetchVersionNews({.siteRoot = site.Root()}).broken);
    EXPECT_TRUE(FetchVersionNews({.siteRoot = "http://host.invalid/"}).broken);
}

class VersionNewsFaults : public testing::TestWithParam<SiteFault> {};

TEST_P(VersionNewsFaults, BreakItAndLeaveNoRow) {
    const SiteFault& fault = GetParam();
    LoopbackAgent site({.bytes = ToBytes(fault.answer), .end = fault.end});
    const VersionNews news = FetchVersionNews(
        {.siteRoot = fmt::format("http://127.0.0.1:{}/", site.Port())}, fault.limits);
    EXPECT_TRUE(news.broken);
    EXPECT_TRUE(news.rows.empty());
    EXPECT_EQ(news.newest, "");
}

INSTANTIATE_TEST_SUITE_P(Site, VersionNewsFaults, testing::ValuesIn(SiteFaults(std::string(kNews))),
                         NameOfFault);

}  // namespace
}  // namespace quorvi
