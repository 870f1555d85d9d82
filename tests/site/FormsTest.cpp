// What the services make of forms, whatever stands in them. What they say to the suite's own
// clients is in SiteClientsTest.cpp.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Json.h"
#include "site/Forms.h"

namespace quorvi::site {
namespace {

using testing::HasSubstr;
using testing::Not;

// Nothing in a refusal may be taken for what was asked for: no JSON, and not the letters "ok".
void ExpectRefusal(const Answer& answer, int status) {
    EXPECT_EQ(answer.status, status) << answer.body;
    EXPECT_FALSE(ParseFirstJson(answer.body)) << answer.body;
    EXPECT_THAT(answer.body, Not(HasSubstr("ok")));
    EXPECT_FALSE(answer.body.empty());
}

// The checksum is cut out of the MD5 of "ict": 4 digits from the 6th on.
constexpr std::string_view kLinkForm =
    R"(apk={"CheckSum":"71e0","PackageName":"com.example.dict"}&)";

TEST(AnswerForm, APackageIsToldOnOneLine) {
    const Answer answer = AnswerForm("android_info", kLinkForm);
    EXPECT_EQ(answer.status, 200);
    EXPECT_EQ(answer.body, R"({"pkg":"com.example.dict","size":"5.8 MB","title":"掌上词典",)"
                           R"("url":"com.example.dict.apk"})");
}

TEST(AnswerForm, AWrongCheckSumOfAStoreLinkIsRefused) {
    ExpectRefusal(
        AnswerForm("android_info", R"(apk={"CheckSum":"71e1","PackageName":"com.example.dict"}&)"),
        403);
    ExpectRefusal(AnswerForm("android_info", R"(apk={"PackageName":"com.example.dict"}&)"), 403);
    ExpectRefusal(
        AnswerForm("android_info", R"(apk={"CheckSum":5,"PackageName":["com.example.dict"]}&)"),
        403);
}

TEST(AnswerForm, AnUnknownPackageIsRefused) {
    ExpectRefusal(AnswerForm("android_info",
                             // Of the MD5 of "own".
                             R"(apk={"CheckSum":"8aa3","PackageName":"com.example.unknown"}&)"),
                  404);
}

TEST(AnswerForm, AWrongCheckSumOfAStoreCheckIsRefused) {
    // 3 digits of the MD5 of "1" and 3 of that of the package's name.
    const std::string right = R"(apps={"CheckSum":"a42e63","PackageName":["com.example.bus"]}&)";
    EXPECT_EQ(AnswerForm("apk_list", right).status, 200);
    ExpectRefusal(
        AnswerForm("apk_list", R"(apps={"CheckSum":"000000","PackageName":["com.example.bus"]}&)"),
        403);
    // One package more than was counted.
    ExpectRefusal(
        AnswerForm(
            "apk_list",
            R"(apps={"CheckSum":"a42e63","PackageName":["com.example.b","com.example.bus"]}&)"),
        403);
    ExpectRefusal(AnswerForm("apk_list", R"(apps={"CheckSum":"a42e63","PackageName":"one"}&)"),
                  400);
}

TEST(AnswerForm, AWrongCheckSumOfAFeedbackIsRefused) {
    ExpectRefusal(AnswerForm("feedback", R"(feedback={"CheckSum":"0123456789abcdef",)"
                                         R"("Platform":"Android","Content":"很好用"}&)"),
                  403);
    ExpectRefusal(AnswerForm("feedback", R"(feedback={"Platform":"Android"}&)"), 403);
}

TEST(AnswerForm, WhatIsNoDocumentIsRefused) {
    for (const std::string_view body : {"", "apk", "apk=", "apk=word", "apk=[1]", "apps={}", "{}",
                                        "apk={\"CheckSum\"", "apk=\xFF\xFE"}) {
        ExpectRefusal(AnswerForm("android_info", body), 400);
    }
    ExpectRefusal(AnswerForm("android_info", "apk=" + std::string(100'000, '[')), 400);
}

TEST(AnswerForm, AnUnknownServiceIsRefused) {
    ExpectRefusal(AnswerForm("other", kLinkForm), 404);
    ExpectRefusal(AnswerForm("", kLinkForm), 404);
    // A form at another service's door.
    ExpectRefusal(AnswerForm("feedback", kLinkForm), 400);
}

}  // namespace
}  // namespace quorvi::site
