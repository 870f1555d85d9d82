#include <gtest/gtest.h>

#include "base/Text.h"
#include "cli/DisplayWidth.h"
#include "cli/Output.h"

namespace quorvi::cli {
namespace {

TEST(DisplayWidth, AChineseCharacterTakesTwoCells) {
    EXPECT_EQ(DisplayWidth("ab"), 2u);
    EXPECT_EQ(DisplayWidth("手机a"), 5u);
    EXPECT_EQ(DisplayWidth("：）"), 4u);
    EXPECT_EQ(DisplayWidth(""), 0u);
}

TEST(DisplayWidth, ACombiningMarkTakesNone) {
    EXPECT_EQ(DisplayWidth("e\xCC\x81"), 1u);  // e, U+0301
}

TEST(OneLine, ControlCharactersCannotSteerTheTerminal) {
    EXPECT_EQ(OneLine("a\x1B[31mb\r\nc\tz"), "a [31mb  c z");
    EXPECT_EQ(OneLine("a\xC2\x9B"
                      "1m"),
              "a 1m");  // U+009B, the one-byte start of a sequence
}

TEST(OneLine, BlanksAtTheEndAreDropped) {
    EXPECT_EQ(OneLine("1 天 02 小时 \n"), "1 天 02 小时");
}

TEST(Table, ColumnsAlignByWhatATerminalShows) {
    Table table{u8"类型", u8"x"};
    table.AddRow({Ansi(u8"手机型号"), "M9"});
    table.AddRow({"a", Ansi(u8"是")});
    EXPECT_EQ(table.Text(),
              "类型      x\n"
              "手机型号  M9\n"
              "a         是\n");
}

TEST(Table, OneLongCellDoesNotMakeEveryRowLong) {
    constexpr std::size_t kMegabyte = 1 << 20;
    Table table{u8"a", u8"b"};
    table.AddRow({std::string(kMegabyte, 'x'), "1"});
    for (int i = 0; i < 1000; ++i) {
        table.AddRow({"y", "2"});
    }
    const std::string text = table.Text();
    EXPECT_LT(text.size(), 2 * kMegabyte);
    EXPECT_NE(text.find(std::string(kMegabyte, 'x') + "  1\n"), std::string::npos);
    EXPECT_NE(text.find("\ny" + std::string(61, ' ') + "2\n"), std::string::npos);
}

TEST(Table, ARowShortOfCellsIsFilledUp) {
    Table table{u8"a", u8"b"};
    table.AddRow({"1"});
    EXPECT_EQ(table.Text(), "a  b\n1\n");
}

}  // namespace
}  // namespace quorvi::cli
