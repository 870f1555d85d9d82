#include <gtest/gtest.h>

#include "base/Json.h"
#include "base/Text.h"

namespace quorvi {
namespace {

TEST(Json, TextOfMemoryIsWrittenAsUtf8AndNotAsEscapes) {
    Json::Value document;
    document["text"] = JsonText("\xC1\xAC\xBD\xD3");  // 连接 in code page 936
    EXPECT_EQ(WriteJson(document, JsonForm::oneLine), "{\"text\":\"连接\"}");
}

TEST(Json, ControlCharactersAndQuotesAreEscaped) {
    EXPECT_EQ(WriteJson(JsonText("a\n\"\\\x01"), JsonForm::oneLine), "\"a\\n\\\"\\\\\\u0001\"");
}

TEST(Json, LinesFormIndentsByTwo) {
    Json::Value document(Json::arrayValue);
    document.append(1);
    EXPECT_EQ(WriteJson(document, JsonForm::lines), "[\n  1\n]");
}

TEST(Json, StyledKeepsAShortArrayOnOneLineAndEndsTheLast) {
    Json::Value document;
    document["b"].append(1);
    document["a"] = "x";
    EXPECT_EQ(WriteJson(document, JsonForm::styled), "{\n   \"a\" : \"x\",\n   \"b\" : [ 1 ]\n}\n");
}

TEST(Json, ATextMemberComesBackInAnsi) {
    const auto document = ParseJson("{\"a\": \"连接\", \"n\": 7}");
    ASSERT_TRUE(document);
    EXPECT_EQ(TextMember(*document, "a"), "\xC1\xAC\xBD\xD3");
    EXPECT_EQ(TextMember(*document, "n"), "");
    EXPECT_EQ(TextMember(*document, "missing"), "");
    EXPECT_EQ(TextMember(Json::Value(7), "a"), "");
}

TEST(Json, MalformedTextIsNoDocument) {
    EXPECT_FALSE(ParseJson(""));
    EXPECT_FALSE(ParseJson("{"));
    EXPECT_FALSE(ParseJson("{} {}"));
    EXPECT_FALSE(ParseJson("{\"a\": 1,}"));
    EXPECT_FALSE(ParseJson("[1,]"));
}

TEST(Json, AMemberNamedTwiceIsNoDocument) {
    EXPECT_FALSE(ParseJson("{\"a\": 1, \"a\": 2}"));
}

TEST(Json, NestingWithoutEndIsNoDocumentAndNoCrash) {
    EXPECT_TRUE(ParseJson(std::string(100, '[') + std::string(100, ']')));
    EXPECT_FALSE(ParseJson(std::string(100000, '[')));
}

}  // namespace
}  // namespace quorvi
