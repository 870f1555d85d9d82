#include <gmock/gmock.h>

#include "backup/CallFile.h"
#include "backup/MessageFile.h"
#include "base/Json.h"
#include "base/Text.h"

namespace quorvi {
namespace {

using testing::HasSubstr;
using testing::Not;

const Conversation kTalk{
    7, Ansi(u8"林远舟"), "13800138000", Ansi(u8"北京"), "2011-05-03 12:00:00", "last"};
const std::vector<ConversationMessage> kMessages{
    {true, Ansi(u8"林远舟"), "2011-05-03 11:59:00", Ansi(u8"在吗？\r\n=1+1 <b>")},
    {false, Ansi(u8"林远舟"), "2011-05-03 12:00:00", Ansi(u8"在")},
};

// A file of two conversations, the second without a name of its own.
std::string FileOf(MessageFormat format) {
    const Conversation other{8, "10086", "10086", {}, {}, {}};
    const std::vector<ConversationMessage> one{{true, "10086", "2011-01-01 00:00:00", "-5"}};
    return MessageFileHead(format) + ConversationInFile(format, 0, kTalk, kMessages) +
           ConversationInFile(format, 1, other, one) + MessageFileFoot(format);
}

TEST(MessageFile, TextHasOneMessageBelowTheOther) {
    EXPECT_EQ(FileOf(MessageFormat::text),
              "== 林远舟 (13800138000) ==\n"
              "\n[2011-05-03 11:59:00] 林远舟\n在吗？\n=1+1 <b>\n"
              "\n[2011-05-03 12:00:00] 本机\n在\n"
              "\n== 10086 ==\n"
              "\n[2011-01-01 00:00:00] 10086\n-5\n");
}

TEST(MessageFile, CsvHasOneRowAMessageAndNoFormulas) {
    EXPECT_EQ(FileOf(MessageFormat::csv),
              "\xEF\xBB\xBF会话,对方,方向,时间,内容\r\n"
              "林远舟,林远舟,收到,2011-05-03 11:59:00,\"在吗？\n=1+1 <b>\"\r\n"
              "林远舟,林远舟,发出,2011-05-03 12:00:00,在\r\n"
              "10086,10086,收到,2011-01-01 00:00:00,'-5\r\n");
}

TEST(MessageFile, HtmlShowsTextsAsTheyAreAndLoadsNothing) {
    const std::string html = FileOf(MessageFormat::html);
    EXPECT_THAT(html, HasSubstr("<meta charset=\"utf-8\">"));
    EXPECT_THAT(html, HasSubstr("default-src 'none'"));
    EXPECT_THAT(html, HasSubstr("<h2>林远舟 (13800138000)</h2>"));
    EXPECT_THAT(html, HasSubstr("<article class=\"in\"><header>林远舟 "
                                "<time>2011-05-03 11:59:00</time></header>"
                                "<p>在吗？<br>=1+1 &lt;b&gt;</p></article>"));
    EXPECT_THAT(html, HasSubstr("<article class=\"out\"><header>本机 "));
    EXPECT_THAT(html, Not(HasSubstr("<b>")));
    EXPECT_TRUE(html.ends_with("</body>\n</html>\n"));
}

TEST(MessageFile, JsonIsAnArrayOfConversations) {
    const auto document = ParseJson(FileOf(MessageFormat::json));
    ASSERT_TRUE(document);
    ASSERT_EQ(document->size(), 2U);
    const Json::Value& talk = (*document)[0];
    EXPECT_EQ(talk["id"], 7);
    EXPECT_EQ(talk["name"], "林远舟");
    EXPECT_EQ(talk["number"], "13800138000");
    ASSERT_EQ(talk["messages"].size(), 2U);
    EXPECT_EQ(talk["messages"][0]["incoming"], true);
    EXPECT_EQ(talk["messages"][0]["text"], "在吗？\n=1+1 <b>");
    EXPECT_EQ(talk["messages"][1]["date"], "2011-05-03 12:00:00");
}

TEST(MessageFile, WithoutConversationsJsonIsAnEmptyArray) {
    const auto document =
        ParseJson(MessageFileHead(MessageFormat::json) + MessageFileFoot(MessageFormat::json));
    ASSERT_TRUE(document);
    EXPECT_EQ(*document, Json::Value(Json::arrayValue));
}

TEST(MessageFile, TheEndingOfTheNameTellsTheFormat) {
    EXPECT_EQ(MessageFormatOf("a.TXT"), MessageFormat::text);
    EXPECT_EQ(MessageFormatOf("a.csv"), MessageFormat::csv);
    EXPECT_EQ(MessageFormatOf("b/a.htm"), MessageFormat::html);
    EXPECT_EQ(MessageFormatOf("a.json"), MessageFormat::json);
    EXPECT_FALSE(MessageFormatOf("a.vcf"));
    EXPECT_FALSE(MessageFormatOf(".csv"));
    EXPECT_FALSE(MessageFormatOf("a"));
}

const std::vector<CallLogRow> kCalls{
    {1, Ansi(u8"林远舟"), "+8613800138000", Ansi(u8"北京"), "2011-05-03 12:00:00", "00:01:40\n", 2},
    {2, "", "10086", "", "2011-05-03 12:10:00", "00:00:00\n", 9},
};

TEST(CallFile, CsvHasOneRowACallWithoutTheLineFeedOfItsDuration) {
    EXPECT_EQ(WriteCallFile(CallFormat::csv, kCalls),
              "\xEF\xBB\xBF姓名,号码,归属地,类型,时间,通话用时\r\n"
              "林远舟,'+8613800138000,北京,拨出电话,2011-05-03 12:00:00,00:01:40\r\n"
              ",10086,,未知类型,2011-05-03 12:10:00,00:00:00\r\n");
}

TEST(CallFile, JsonIsAnArrayOfCalls) {
    const auto document = ParseJson(WriteCallFile(CallFormat::json, kCalls));
    ASSERT_TRUE(document);
    ASSERT_EQ(document->size(), 2U);
    EXPECT_EQ((*document)[0]["number"], "+8613800138000");
    EXPECT_EQ((*document)[0]["type"], 2);
    EXPECT_EQ((*document)[0]["type_text"], "拨出电话");
    EXPECT_EQ((*document)[0]["duration"], "00:01:40");
    EXPECT_EQ(*ParseJson(WriteCallFile(CallFormat::json, {})), Json::Value(Json::arrayValue));
}

TEST(CallFile, TheEndingOfTheNameTellsTheFormat) {
    EXPECT_EQ(CallFormatOf("a.csv"), CallFormat::csv);
    EXPECT_EQ(CallFormatOf("a.json"), CallFormat::json);
    EXPECT_FALSE(CallFormatOf("a.txt"));
}

}  // namespace
}  // namespace quorvi
