// The question after one number's region, in texts.
#include <gtest/gtest.h>

#include "base/Text.h"
#include "refdata/NumberQuery.h"
#include "tests/support/SmallPhoneDb.h"

namespace quorvi {
namespace {

class NumberQuery : public ::testing::Test {
  protected:
    const ScratchDirectory scratch_{};
    const CPhoneDb db_{scratch_.Path(), DatabaseOf({{1391234, 145}})};
};

TEST_F(NumberQuery, AnswersForTheFirstSevenCharacters) {
    for (const char* text : {"1391234", "13912345678", "1391234xyz"}) {
        const NumberAnswer answer = QueryNumber(text, db_);
        EXPECT_EQ(answer.heading, Ansi(u8"1391234 属于城市:"));
        EXPECT_EQ(answer.place, Ansi(u8"江苏常州"));
        EXPECT_EQ(answer.areaCode, "0519");
        EXPECT_EQ(answer.postalCode, "213000");
    }
}

TEST_F(NumberQuery, APrefixWithoutARecordShowsTheThreeTextsOfNone) {
    const NumberAnswer answer = QueryNumber("1861234", db_);
    EXPECT_EQ(answer.heading, Ansi(u8"1861234 属于城市:"));
    EXPECT_EQ(answer.place, Ansi(u8"没有记录"));
    EXPECT_EQ(answer.areaCode, "00");
    EXPECT_EQ(answer.postalCode, Ansi(u8"没有找到"));
}

TEST_F(NumberQuery, FewerThanSevenDigitsAreASmallerNumberOutsideTheRange) {
    EXPECT_EQ(QueryNumber("139123", db_).areaCode, "00");
    EXPECT_EQ(QueryNumber("139123", db_).heading, Ansi(u8"139123 属于城市:"));
    EXPECT_EQ(QueryNumber("", db_).place, Ansi(u8"没有记录"));
    EXPECT_EQ(QueryNumber("139x234", db_).areaCode, "00");
}

}  // namespace
}  // namespace quorvi
