#include <gmock/gmock.h>

#include "backup/Csv.h"

namespace quorvi {
namespace {

using testing::ElementsAre;

std::string RowText(const CsvRow& row) {
    std::string csv;
    AppendCsvRow(row, csv);
    return csv;
}

std::vector<CsvRow> RowsOf(std::string_view csv) {
    std::vector<CsvRow> rows;
    CsvReader reader(csv);
    while (auto row = reader.Next()) {
        rows.push_back(*std::move(row));
    }
    return rows;
}

TEST(CsvRow, EndsWithCrLfAndHasCommasBetweenItsCells) {
    EXPECT_EQ(RowText({"a", "", "b c"}), "a,,b c\r\n");
}

TEST(CsvRow, ACellWithSeparatorsQuotesOrLinesStandsInQuotes) {
    EXPECT_EQ(RowText({"a,b", "say \"hi\"", "two\nlines"}),
              "\"a,b\",\"say \"\"hi\"\"\",\"two\nlines\"\r\n");
}

TEST(CsvRow, ACellThatASpreadsheetWouldComputeIsMadeHarmless) {
    EXPECT_EQ(RowText({"=1+1", "+8613800138000", "-5", "@SUM(A1)"}),
              "'=1+1,'+8613800138000,'-5,'@SUM(A1)\r\n");
    EXPECT_EQ(RowText({"\t=1", "\r=1"}), "\"'\t=1\",\"'\r=1\"\r\n");
}

TEST(CsvRow, WhatIsWrittenReadsBackTheSame) {
    const CsvRow cells{"=1+1", "'=1", "''-x", "'tis", "'",   "",        " blank ",
                       "a,b",  "\"",  "\r\n", "x;y",  "@\t", "+86 138", "\xE5\xBC\xA0"};
    EXPECT_THAT(RowsOf(RowText(cells)), ElementsAre(cells));
}

TEST(CsvReader, PassesOverTheMark) {
    EXPECT_THAT(RowsOf("\xEF\xBB\xBFname,phone\r\n"), ElementsAre(CsvRow{"name", "phone"}));
}

TEST(CsvReader, RowsEndWithAnyLineEnd) {
    EXPECT_THAT(RowsOf("a\r\nb\nc\rd"),
                ElementsAre(CsvRow{"a"}, CsvRow{"b"}, CsvRow{"c"}, CsvRow{"d"}));
}

TEST(CsvReader, QuotesHoldSeparatorsAndLines) {
    EXPECT_THAT(RowsOf("\"a,\r\nb\",\"say \"\"hi\"\"\"\n"),
                ElementsAre(CsvRow{"a,\r\nb", "say \"hi\""}));
}

TEST(CsvReader, QuotesThatAreNeverClosedEndWithTheFile) {
    EXPECT_THAT(RowsOf("a,\"b\nc"), ElementsAre(CsvRow{"a", "b\nc"}));
}

TEST(CsvReader, TakesTheSeparatorOfTheFirstRow) {
    EXPECT_THAT(RowsOf("name;phone\nLi, Na;1\n"),
                ElementsAre(CsvRow{"name", "phone"}, CsvRow{"Li, Na", "1"}));
    EXPECT_THAT(RowsOf("name\tphone\nLi, Na\t1\n"),
                ElementsAre(CsvRow{"name", "phone"}, CsvRow{"Li, Na", "1"}));
}

TEST(CsvReader, ASeparatorAtTheEndIsAnEmptyCell) {
    EXPECT_THAT(RowsOf("a,\n,"), ElementsAre(CsvRow{"a", ""}, CsvRow{"", ""}));
}

TEST(CsvReader, NothingIsNoRow) {
    EXPECT_THAT(RowsOf(""), ElementsAre());
}

TEST(CsvReader, ARowOfTooManyCellsIsRefused) {
    const std::string commas(kMostCsvColumns, ',');
    CsvReader atTheLimit(std::string_view(commas).substr(1));
    EXPECT_EQ(atTheLimit.Next()->size(), kMostCsvColumns);
    EXPECT_FALSE(atTheLimit.Refused());

    const std::string second = "a\n" + commas;
    CsvReader beyond(second);
    EXPECT_TRUE(beyond.Next());
    EXPECT_FALSE(beyond.Next());
    EXPECT_TRUE(beyond.Refused());
    EXPECT_FALSE(beyond.Next());
}

}  // namespace
}  // namespace quorvi
