#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <set>

#include "online/VersionNews.h"
#include "site/Catalogue.h"
#include "site/Pages.h"
#include "site/StorePages.h"
#include "tests/support/BuildPlaces.h"

namespace quorvi::site {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

std::string PageAt(std::string_view path, std::string_view query = {}) {
    const Answer answer = AnswerPage(path, query);
    EXPECT_EQ(answer.status, 200) << path;
    return answer.body;
}

// All that a page names in attributes of this kind.
std::set<std::string> Named(const std::string& page, const std::string& attribute) {
    std::set<std::string> named;
    const std::regex pattern(attribute + "=\"([^\"]*)\"");
    for (std::sregex_iterator found(page.begin(), page.end(), pattern), end; found != end;
         ++found) {
        named.insert((*found)[1]);
    }
    return named;
}

TEST(StorePages, TheFirstPageHasBannerShelvesAndPrivateLinks) {
    const std::string page = PageAt("/store/");
    EXPECT_THAT(page, HasSubstr("夏日出行必备"));
    EXPECT_THAT(page, HasSubstr("本周推荐"));
    EXPECT_THAT(page, HasSubstr("新上架"));
    EXPECT_THAT(page, HasSubstr("href=\"qvh:com.example.dict.apk\""));
}

TEST(StorePages, EveryLinkAndPictureOfEachPageIsThere) {
    std::set<std::string> seen;
    std::set<std::string> todo{"/store/"};
    std::size_t downloads = 0;
    while (!todo.empty()) {
        const std::string path = todo.extract(todo.begin()).value();
        seen.insert(path);
        const Answer answer = AnswerPage(path, {});
        EXPECT_EQ(answer.status, 200) << path;
        if (answer.type != kHtml) {
            continue;
        }
        EXPECT_THAT(answer.body, Not(HasSubstr("<script"))) << path;
        for (const char* attribute : {"href", "src"}) {
            for (const std::string& link : Named(answer.body, attribute)) {
                if (link.starts_with("qvh:")) {
                    ASSERT_TRUE(link.ends_with(".apk")) << link;
                    EXPECT_NE(AppOfPackage(std::string_view(link).substr(4, link.size() - 8)),
                              nullptr)
                        << link;
                    ++downloads;
                } else if (!seen.contains(link)) {
                    ASSERT_THAT(link, StartsWith("/store/")) << "on " << path;
                    todo.insert(link);
                }
            }
        }
    }
    for (const StoreApp& app : StoreApps()) {
        EXPECT_TRUE(seen.contains("/store/archives/" + std::to_string(app.number) + ".html"));
    }
    EXPECT_GT(downloads, StoreApps().size());
}

TEST(StorePages, AnItemHasItsFactsAndItsPrivateLink) {
    const std::string page = PageAt("/store/archives/4802.html");
    EXPECT_THAT(page, HasSubstr("<h1>星图天气</h1>"));
    EXPECT_THAT(page, HasSubstr("2.3 MB"));
    EXPECT_THAT(page, HasSubstr("com.example.starsky"));
    EXPECT_THAT(page, HasSubstr("href=\"qvh:com.example.starsky.apk\""));
}

// The numbers stand in the dashboard's template.
TEST(StorePages, TheItemsToWhichTheDashboardLeadsAreThere) {
    std::ifstream file(QUORVI_SOURCE_DIR "/res/views/dashboard.html");
    const std::string dashboard{std::istreambuf_iterator(file), {}};
    std::size_t items = 0;
    for (const std::string& link : Named(dashboard, "href")) {
        if (std::regex_match(link, std::regex("qvh:[0-9]+"))) {
            EXPECT_NE(AppOfNumber(std::stoi(link.substr(4))), nullptr) << link;
            ++items;
        }
    }
    EXPECT_EQ(items, 6u);
}

// The key is 8 digits of the MD5 of 4 digits of the keywords' MD5.
TEST(StoreSearch, GivesWhatFitsTheKeywords) {
    const std::string page =
        PageAt("/store/search.php", "keywords=%E5%A4%A9%E6%B0%94&key=28ab8b31");
    EXPECT_THAT(page, HasSubstr("“天气”"));
    EXPECT_THAT(page, HasSubstr("/store/archives/4802.html"));
    EXPECT_THAT(page, HasSubstr("/store/archives/4712.html"));
    EXPECT_THAT(page, Not(HasSubstr("/store/archives/4786.html")));
}

TEST(StoreSearch, SaysWhatToDoWhereNothingIsFound) {
    const std::string page = PageAt("/store/search.php", "keywords=%3Cb%3Ezzz&key=59433523");
    EXPECT_THAT(page, HasSubstr("没有找到应用"));
    EXPECT_THAT(page, HasSubstr("本周推荐"));
    EXPECT_THAT(page, HasSubstr("“&lt;b&gt;zzz”"));
    EXPECT_THAT(page, Not(HasSubstr("<b>zzz")));
}

TEST(StoreSearch, KeywordsOfNothingFindNothing) {
    // Of the MD5 of nothing.
    EXPECT_THAT(PageAt("/store/search.php", "keywords=&key=e5d2c1c7"), HasSubstr("没有找到应用"));
}

TEST(StoreSearch, APlusIsAPlus) {
    EXPECT_THAT(PageAt("/store/search.php", "keywords=c++&key=5682a013"), HasSubstr("“c++”"));
}

TEST(StoreSearch, AWrongKeyIsRefused) {
    for (const char* query : {"keywords=%E5%A4%A9%E6%B0%94&key=28ab8b32", "keywords=x", "", "key=",
                              "keywords=%", "keywords=%zz&key=%", "keyword=a&key=28ab8b31"}) {
        const Answer answer = AnswerPage("/store/search.php", query);
        EXPECT_EQ(answer.status, 400) << query;
        EXPECT_THAT(answer.body, HasSubstr("没有收到完整的搜索词")) << query;
    }
}

TEST(SitePages, TheRootLeadsToTheStore) {
    const Answer answer = AnswerPage("/", {});
    EXPECT_EQ(answer.status, 302);
    EXPECT_EQ(answer.location, "/store/");
}

TEST(SitePages, TheVersionsFileHasRowsOfEveryKind) {
    const VersionNews news = ParseVersionNews(PageAt("/update.xml"));
    EXPECT_FALSE(news.broken);
    std::set<NewsKind> kinds;
    for (const NewsRow& row : news.rows) {
        kinds.insert(row.kind);
        EXPECT_NE(row.text, "");
    }
    EXPECT_EQ(kinds.size(), 4u);
}

TEST(SitePages, NothingIsBesideTheTable) {
    const std::string nul("/store/store.css\0", 17);
    for (const std::string& path : {std::string("/nothing"),
                                    std::string(""),
                                    std::string("store/"),
                                    std::string("//store/"),
                                    std::string("/store"),
                                    std::string("/store/x"),
                                    std::string("/store/store.css/"),
                                    std::string("/store/store.css.svg"),
                                    std::string("/update.xml/../store/"),
                                    std::string("/store/../update.xml"),
                                    std::string("/store/pictures/../store.css"),
                                    std::string("/store/pictures/../../../../../etc/passwd"),
                                    std::string("/store/pictures//etc/passwd.svg"),
                                    std::string("/store/pictures/.svg"),
                                    std::string("/store/pictures/update.xml"),
                                    std::string("/store/list/.html"),
                                    std::string("/store/list/../all.html"),
                                    std::string("/store/archives/.html"),
                                    std::string("/store/archives/-4802.html"),
                                    std::string("/store/archives/4802x.html"),
                                    std::string("/store/archives/99999999999999999999.html"),
                                    std::string("/store/search.php/"),
                                    std::string("/data/.html"),
                                    std::string("/data/101010100"),
                                    std::string("/data/1e9.html"),
                                    std::string("/data/999999999.html"),
                                    std::string("/feedback/feedback.php"),
                                    nul,
                                    std::string(100'000, '/')}) {
        const Answer answer = AnswerPage(path, {});
        EXPECT_EQ(answer.status, 404) << path.substr(0, 80);
        EXPECT_THAT(answer.body, HasSubstr("没有这一页"));
        EXPECT_THAT(answer.body, Not(HasSubstr("root:")));
    }
}

}  // namespace
}  // namespace quorvi::site
