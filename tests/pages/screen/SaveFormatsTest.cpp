#include <gtest/gtest.h>

#include "pages/screen/SaveFormats.h"

namespace quorvi {
namespace {

TEST(SaveFormats, RowsStandInTheOrderOfTheirIndexes) {
    for (std::size_t i = 0; i < kSaveFormats.size(); ++i) {
        EXPECT_EQ(static_cast<std::size_t>(kSaveFormats[i].format), i);
        EXPECT_EQ(&RowOf(FormatOf(static_cast<int>(i))), &kSaveFormats[i]);
    }
}

TEST(SaveFormats, FormatIndexOutOfRangeIsJpg) {
    EXPECT_EQ(FormatOf(3), SaveFormat::bmp);
    EXPECT_EQ(FormatOf(-1), SaveFormat::jpg);
    EXPECT_EQ(FormatOf(4), SaveFormat::jpg);
}

TEST(SaveFormats, QualityIndexOutOfRangeIsTheBest) {
    EXPECT_EQ(QualityOf(kFirstQuality), 90);
    EXPECT_EQ(QualityOf(2), 85);
    EXPECT_EQ(QualityOf(6), 50);
    EXPECT_EQ(QualityOf(-1), 100);
    EXPECT_EQ(QualityOf(7), 100);
}

TEST(SaveFormats, ExtensionCountsWithoutRegardToItsCase) {
    EXPECT_EQ(FormatOfName("a.jpg"), SaveFormat::jpg);
    EXPECT_EQ(FormatOfName("/b.png/a.GIF"), SaveFormat::gif);
    EXPECT_EQ(FormatOfName("a.b.Png"), SaveFormat::png);
    EXPECT_EQ(FormatOfName("截图.bMP"), SaveFormat::bmp);
}

TEST(SaveFormats, UnknownExtensionHasNoFormat) {
    for (const char* const name : {"a.jpeg", "a.tif", "a", "a.", "", "jpg", "a.jpg ", "b.jpg/a"}) {
        EXPECT_EQ(FormatOfName(name), std::nullopt) << name;
    }
}

}  // namespace
}  // namespace quorvi
