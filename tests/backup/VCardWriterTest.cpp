#include <gmock/gmock.h>

#include "backup/VCardReader.h"
#include "backup/VCardWriter.h"
#include "base/Text.h"
#include "tests/backup/Cards.h"

namespace quorvi {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

ContactCard Named(std::string name) {
    ContactCard card;
    card.name = std::move(name);
    return card;
}

// The lines of a vCard as they stand in the file, without their line ends.
std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (const std::string_view line : SplitAt(text, '\n')) {
        if (!line.empty()) {
            EXPECT_TRUE(line.ends_with('\r')) << line;
            lines.emplace_back(line.substr(0, line.size() - 1));
        }
    }
    return lines;
}

ContactCard ReadBack(const ContactCard& card) {
    const VCards read = ReadVCards(WriteVCard(card));
    EXPECT_THAT(read.cards, SizeIs(1));
    EXPECT_THAT(read.skipped, SizeIs(0));
    return read.cards.empty() ? ContactCard() : read.cards.front().card;
}

TEST(VCardWriter, ANameIsAVCardOfVersion3) {
    EXPECT_THAT(LinesOf(WriteVCard(Named("李娜"))),
                ElementsAre("BEGIN:VCARD", "VERSION:3.0", "N:李娜;;;;", "FN:李娜", "END:VCARD"));
}

TEST(VCardWriter, EachItemHasTheWordsOfItsType) {
    ContactCard card = Named("a");
    card.phones = {{2, "1"}, {4, "2"}, {7, "3"}};
    card.emails = {{1, "a@example.com"}};
    card.addresses = {{2, "Main St"}};
    card.organisations = {{1, "Example"}};
    card.websites = {{0, "example.com"}};
    EXPECT_THAT(LinesOf(WriteVCard(card)),
                ElementsAre("BEGIN:VCARD", "VERSION:3.0", "N:a;;;;", "FN:a", "TEL;TYPE=CELL:1",
                            "TEL;TYPE=WORK;TYPE=FAX:2", "TEL;TYPE=VOICE:3",
                            "EMAIL;TYPE=INTERNET;TYPE=HOME:a@example.com", "URL:example.com",
                            "ADR;TYPE=WORK:;;Main St;;;;", "ORG;TYPE=WORK:Example", "END:VCARD"));
}

TEST(VCardWriter, ATypeWithoutWordsIsNamedBesideTheItem) {
    ContactCard card = Named("a");
    card.phones = {{0, "1"}, {17, "2"}};
    EXPECT_THAT(WriteVCard(card), HasSubstr("item1.TEL;TYPE=X-TYPE-0:1\r\n"
                                            "item1.X-ABLabel:自定电话\r\n"
                                            "item2.TEL;TYPE=X-TYPE-17:2\r\n"
                                            "item2.X-ABLabel:未知电话\r\n"));
}

TEST(VCardWriter, EachMessengerHasItsProperty) {
    ContactCard card = Named("a");
    card.ims = {{4, "10001"}, {-1, "x"}, {42, "y"}};
    EXPECT_THAT(WriteVCard(card),
                HasSubstr("X-QQ:10001\r\nX-CUSTOM-IM:x\r\nX-CUSTOM-IM;TYPE=X-TYPE-42:y\r\n"));
}

TEST(VCardWriter, GroupsAreCategories) {
    ContactCard card = Named("a");
    card.groups = {"家人", "a,b"};
    EXPECT_THAT(WriteVCard(card), HasSubstr("CATEGORIES:家人,a\\,b\r\n"));
}

TEST(VCardWriter, SignsAndLinesOfATextAreEscaped) {
    ContactCard card = Named("a");
    card.note = "a,b;c\\d\ne:f";
    EXPECT_THAT(WriteVCard(card), HasSubstr("NOTE:a\\,b\\;c\\\\d\\ne:f\r\n"));
}

TEST(VCardWriter, NoLineIsLongerThan75OctetsNorEndsInsideACharacter) {
    ContactCard card = Named("a");
    for (int shift = 0; shift < 4; ++shift) {
        card.note = std::string(static_cast<std::size_t>(shift), 'x');
        for (int i = 0; i < 100; ++i) {
            card.note += "汉\xF0\x9F\x98\x80";  // three octets and four
        }
        const auto lines = LinesOf(WriteVCard(card));
        EXPECT_THAT(lines, Each(SizeIs(testing::Le(kVCardLineOctets))));
        for (const std::string& line : lines) {
            EXPECT_TRUE(FitsCodePage(line) || line.find("\xF0\x9F") != std::string::npos) << line;
            EXPECT_EQ(CardText(line), line);  // well-formed
        }
        EXPECT_EQ(ReadBack(card), card);
    }
}

TEST(VCardWriter, ALineOf75OctetsIsNotFolded) {
    ContactCard card = Named("a");
    card.note = std::string(kVCardLineOctets - std::string_view("NOTE:").size(), 'n');
    EXPECT_THAT(LinesOf(WriteVCard(card)), testing::Contains("NOTE:" + card.note));
}

TEST(VCardWriter, APhotoOfAnyLengthIsFoldedAndComesBack) {
    ContactCard card = Named("a");
    for (const std::string_view head : {"\xFF\xD8\xFF", "no image"}) {
        card.photo = head;
        for (int i = 0; i < 200; ++i) {
            card.photo += static_cast<char>(i * 37);
            EXPECT_THAT(LinesOf(WriteVCard(card)), Each(SizeIs(testing::Le(kVCardLineOctets))));
            EXPECT_EQ(ReadBack(card), card) << card.photo.size();
        }
    }
}

TEST(VCardWriter, APhotoStandsInsideWithItsFormat) {
    ContactCard card = Named("a");
    card.photo = "\xFF\xD8\xFF\xE0";
    EXPECT_THAT(WriteVCard(card), HasSubstr("PHOTO;ENCODING=b;TYPE=JPEG:/9j/4A==\r\n"));
    card.photo = "no image";
    EXPECT_THAT(WriteVCard(card), HasSubstr("PHOTO;ENCODING=b:bm8gaW1hZ2U=\r\n"));
}

TEST(VCardRoundTrip, AContactWithEverythingComesBackTheSame) {
    EXPECT_EQ(ReadBack(test::FullCard()), test::FullCard());
}

TEST(VCardRoundTrip, AContactWithoutANameComesBackWithoutOne) {
    ContactCard card;
    card.phones = {{2, "13800138000"}};
    EXPECT_EQ(ReadBack(card), card);
}

TEST(VCardRoundTrip, BlanksAtTheEndsOfTextsStay) {
    ContactCard card = Named("  a  ");
    card.note = "\tb\n ";
    card.phones = {{2, " 1 "}};
    EXPECT_EQ(ReadBack(card), card);
}

TEST(VCardRoundTrip, SeveralContactsComeBackInTheirOrder) {
    const VCards read =
        ReadVCards(WriteVCard(Named("a")) + WriteVCard(test::FullCard()) + WriteVCard(Named("b")));
    ASSERT_THAT(read.cards, SizeIs(3));
    EXPECT_EQ(read.cards[0].card, Named("a"));
    EXPECT_EQ(read.cards[1].card, test::FullCard());
    EXPECT_EQ(read.cards[2].card, Named("b"));
}

}  // namespace
}  // namespace quorvi
