#include <gtest/gtest.h>

#include <vector>

#include "pages/apps/StoreCheck.h"

namespace quorvi {
namespace {

constexpr std::string_view kOne =
    R"([{"pkg":"com.a","level":"4","id":"17","category":"天气","description":"看天气"}])";

AppRecord Row(std::string package) {
    AppRecord row;
    row.package = std::move(package);
    return row;
}

TEST(StoreAnswersReading, ReadsEachMember) {
    const StoreAnswers answers = ParseStoreAnswers(kOne);
    ASSERT_EQ(answers.size(), 1U);
    const StoreFacts& facts = answers.at("com.a");
    EXPECT_EQ(facts.rating, 4);
    EXPECT_EQ(facts.storeId, 17);
    EXPECT_EQ(facts.category, Ansi(u8"天气"));
    EXPECT_EQ(facts.description, Ansi(u8"看天气"));
}

TEST(StoreAnswersReading, OfTwoElementsWithOnePackageTheLaterStands) {
    const StoreAnswers answers =
        ParseStoreAnswers(R"([{"pkg":"com.a","level":"4"},{"pkg":"com.a","level":"2"}])");
    EXPECT_EQ(answers.at("com.a").rating, 2);
}

TEST(StoreAnswersReading, StopsBehindTheFirstValue) {
    EXPECT_EQ(ParseStoreAnswers(std::string(kOne) + "/r/n").size(), 1U);
    EXPECT_EQ(ParseStoreAnswers("[\n/r/n{}]").size(), 0U);  // a mark inside is no JSON
}

TEST(StoreAnswersReading, AnObjectIsWalkedLikeAnArray) {
    EXPECT_EQ(ParseStoreAnswers(R"({"0":{"pkg":"com.a","level":"5"}})").at("com.a").rating, 5);
}

TEST(StoreAnswersReading, AnotherTypeOfReplySaysNothing) {
    for (const char* reply :
         {"", "null", "7", "\"com.a\"", "true", "<html>", "[", "[7, null, []]"}) {
        EXPECT_TRUE(ParseStoreAnswers(reply).empty()) << reply;
    }
}

TEST(StoreAnswersReading, ANumberIsReadFromTheBeginningOfItsText) {
    const auto rating = [](std::string_view level) {
        return ParseStoreAnswers("[{\"pkg\":\"com.a\",\"level\":" + std::string(level) + "}]")
            .at("com.a")
            .rating;
    };
    EXPECT_EQ(rating(R"(" 4 stars")"), 4);
    EXPECT_EQ(rating(R"("many")"), 0);
    EXPECT_EQ(rating(R"("-1")"), -1);
    EXPECT_EQ(rating("5"), 5);
    EXPECT_EQ(rating("{}"), 0);
    EXPECT_EQ(rating("null"), 0);
    EXPECT_EQ(rating(R"("99999999999999999999")"), 2'147'483'647);
}

TEST(StoreAnswersReading, NestingWithoutEndIsNoReply) {
    EXPECT_TRUE(ParseStoreAnswers(std::string(100'000, '[')).empty());
}

TEST(StoreMerge, GivesItsFactsToEachRowOfThePackage) {
    std::vector<AppRecord> rows{Row("com.a"), Row("com.b"), Row("com.a")};
    EXPECT_TRUE(MergeStoreAnswers(ParseStoreAnswers(kOne), rows));
    EXPECT_EQ(rows[0].store.rating, 4);
    EXPECT_EQ(rows[2].store.storeId, 17);
}

TEST(StoreMerge, APackageThatTheSiteDoesNotKnowStaysAsItWas) {
    std::vector<AppRecord> rows{Row("com.b")};
    EXPECT_FALSE(MergeStoreAnswers(ParseStoreAnswers(kOne), rows));
    EXPECT_EQ(rows[0].store.rating, 3);
    EXPECT_EQ(rows[0].store.storeId, -1);
    EXPECT_EQ(rows[0].store.category, Ansi(u8"未知"));
    EXPECT_EQ(rows[0].store.description, "N/A");
}

}  // namespace
}  // namespace quorvi
