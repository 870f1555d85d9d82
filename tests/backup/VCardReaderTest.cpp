#include <gmock/gmock.h>

#include "backup/VCardReader.h"

namespace quorvi {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// The one card of a file.
ReadCard OneCard(std::string_view file) {
    VCards read = ReadVCards(file);
    EXPECT_THAT(read.cards, SizeIs(1));
    EXPECT_THAT(read.skipped, IsEmpty());
    EXPECT_FALSE(read.refused);
    return read.cards.empty() ? ReadCard() : std::move(read.cards.front());
}

// A card of version 3.0 with these lines in it.
ReadCard OneCardWith(std::string_view lines) {
    return OneCard("BEGIN:VCARD\r\nVERSION:3.0\r\nFN:A\r\n" + std::string(lines) + "END:VCARD\r\n");
}

TEST(VCardReader, ReadsTheQuotedPrintableOfOldPhones) {
    const ReadCard read = OneCard(
        "BEGIN:VCARD\r\n"
        "VERSION:2.1\r\n"
        "N;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=E7=8E=8B;=E5=B0=8F=E6=98=8E;;;\r\n"
        "TEL;CELL;PREF:13700001111\r\n"
        "TEL;WORK;FAX:010-12345678\r\n"
        "TEL;VOICE:10000\r\n"
        "EMAIL;INTERNET;HOME:xiaoming@example.com\r\n"
        "NOTE;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=E7=AC=AC=E4=B8=80=E8=A1=8C=0D=0A=\r\n"
        "=E7=AC=AC=E4=BA=8C=E8=A1=8C\r\n"
        "END:VCARD\r\n");
    EXPECT_EQ(read.card.name, "王小明");
    EXPECT_THAT(read.card.phones, ElementsAre(CardItem{2, "13700001111"},
                                              CardItem{4, "010-12345678"}, CardItem{7, "10000"}));
    EXPECT_THAT(read.card.emails, ElementsAre(CardItem{1, "xiaoming@example.com"}));
    EXPECT_EQ(read.card.note, "第一行\n第二行");
}

TEST(VCardReader, ReadsGb2312WhetherItSaysSoOrNot) {
    // 王小明 in GB2312: CDF5 D0A1 C3F7
    EXPECT_EQ(OneCard("BEGIN:VCARD\nVERSION:2.1\n"
                      "N;CHARSET=GB2312:\xCD\xF5;\xD0\xA1\xC3\xF7\nEND:VCARD\n")
                  .card.name,
              "王小明");
    EXPECT_EQ(
        OneCard("BEGIN:VCARD\nVERSION:2.1\nN:\xCD\xF5;\xD0\xA1\xC3\xF7\nEND:VCARD\n").card.name,
        "王小明");
    EXPECT_EQ(OneCard("BEGIN:VCARD\nVERSION:2.1\n"
                      "FN;CHARSET=GBK;ENCODING=QUOTED-PRINTABLE:=CD=F5=D0=A1=C3=F7\nEND:VCARD\n")
                  .card.name,
              "王小明");
}

TEST(VCardReader, ABackslashInsideACharacterOfGbkIsNoEscape) {
    // 誠 in GBK is D55C, whose second byte is the backslash; 実 in GBK is 8C67.
    EXPECT_EQ(OneCard("BEGIN:VCARD\nVERSION:3.0\nN;CHARSET=GBK:\xD5\x5C;B\nEND:VCARD\n").card.name,
              "誠B");
}

TEST(VCardReader, ReadsOtherCharsets) {
    EXPECT_EQ(
        OneCard("BEGIN:VCARD\nVERSION:2.1\nFN;CHARSET=ISO-8859-1:J\xFCrgen\nEND:VCARD\n").card.name,
        "Jürgen");
    EXPECT_EQ(OneCard("BEGIN:VCARD\nVERSION:2.1\n"
                      "FN;CHARSET=SHIFT_JIS;ENCODING=QUOTED-PRINTABLE:=8E=52=93=63\nEND:VCARD\n")
                  .card.name,
              "山田");
    EXPECT_EQ(OneCard("BEGIN:VCARD\nVERSION:2.1\nFN;CHARSET=BIG5:\xB3\xAF\nEND:VCARD\n").card.name,
              "陳");
}

TEST(VCardReader, AnUnknownCharsetIsGuessed) {
    EXPECT_EQ(OneCard("BEGIN:VCARD\nVERSION:2.1\nFN;CHARSET=X-NONE:张\nEND:VCARD\n").card.name,
              "张");
}

TEST(VCardReader, ReadsUtf16WithAndWithoutItsMark) {
    const std::u16string text = u"BEGIN:VCARD\nFN:张\U0001F600\nEND:VCARD\n";
    std::string big;
    std::string little;
    for (const char16_t unit : text) {
        const char high = static_cast<char>(unit >> 8);
        const char low = static_cast<char>(unit & 0xFF);
        big += {high, low};
        little += {low, high};
    }
    EXPECT_EQ(OneCard("\xFE\xFF" + big).card.name, "张😀");
    EXPECT_EQ(OneCard("\xFF\xFE" + little).card.name, "张😀");
    EXPECT_EQ(OneCard(big).card.name, "张😀");
    EXPECT_EQ(OneCard(little).card.name, "张😀");
}

TEST(VCardReader, PassesOverTheMarkOfUtf8) {
    EXPECT_EQ(OneCard("\xEF\xBB\xBF"
                      "BEGIN:VCARD\nFN:A\nEND:VCARD\n")
                  .card.name,
              "A");
}

TEST(VCardReader, ReadsTheGroupsAndLabelsOfAddressBooks) {
    const ReadCard read = OneCardWith(
        "item1.TEL;type=pref:+1 555 0100\r\n"
        "item1.X-ABLabel:_$!<Mobile>!$_\r\n"
        "item2.TEL:555 0101\r\n"
        "item2.X-ABLabel:Daughter\r\n"
        "item3.URL;type=pref:http\\://example.com\r\n"
        "item3.X-ABLabel:_$!<HomePage>!$_\r\n"
        "item4.ADR;type=HOME;type=pref:;;1 Main St\\nApt 2;Springfield;IL;62701;USA\r\n"
        "item4.X-ABADR:us\r\n"
        "TEL;type=IPHONE;type=CELL;type=VOICE:555 0102\r\n");
    EXPECT_THAT(read.card.phones,
                ElementsAre(CardItem{2, "+1 555 0100"}, CardItem{7, "555 0101", "Daughter"},
                            CardItem{2, "555 0102"}));
    EXPECT_THAT(read.card.websites, ElementsAre(CardItem{0, "http://example.com"}));
    EXPECT_THAT(read.card.addresses,
                ElementsAre(CardItem{1, "1 Main St\nApt 2, Springfield, IL, 62701, USA"}));
    EXPECT_EQ(read.card.note, "");
}

TEST(VCardReader, ALabelNamesWhatGoesIntoTheNote) {
    const ReadCard read = OneCardWith(
        "item1.X-ABRELATEDNAMES;type=pref:Jane\r\n"
        "item1.X-ABLabel:_$!<Spouse>!$_\r\n"
        "item2.X-ABDATE:2001-01-01\r\n"
        "X-ABDATE:2002-02-02\r\n"
        "item3.TEL:555\r\n"
        "item3.X-ABLabel:_$!<School>!$_\r\n");
    EXPECT_EQ(read.card.note, "Spouse：Jane\nX-ABDATE：2001-01-01\nX-ABDATE：2002-02-02");
    EXPECT_THAT(read.card.phones, ElementsAre(CardItem{7, "555", "School"}));
}

TEST(VCardReader, ReadsVersion4WithItsUris) {
    const ReadCard read = OneCard(
        "BEGIN:VCARD\r\n"
        "VERSION:4.0\r\n"
        "KIND:individual\r\n"
        "FN:Simone Ferrand\r\n"
        "N:Ferrand;Simone;;;ing. jr,M.Sc.\r\n"
        "TEL;VALUE=uri;TYPE=\"voice,work\":tel:+1-418-555-0262\r\n"
        "TEL;VALUE=uri;PREF=1;TYPE=cell:tel:+1-418-555-0263\r\n"
        "EMAIL;TYPE=work:simone@example.com\r\n"
        "IMPP;PREF=1:xmpp:simone@example.org\r\n"
        "IMPP;X-SERVICE-TYPE=QQ:x-apple:10002\r\n"
        "IMPP:sip:simone@example.net\r\n"
        "PHOTO:data:image/png;base64,iVBORw==\r\n"
        "BDAY:--0203\r\n"
        "END:VCARD\r\n");
    EXPECT_EQ(read.card.name, "Simone Ferrand");
    EXPECT_THAT(read.card.phones,
                ElementsAre(CardItem{3, "+1-418-555-0262"}, CardItem{2, "+1-418-555-0263"}));
    EXPECT_THAT(read.card.emails, ElementsAre(CardItem{2, "simone@example.com"}));
    EXPECT_THAT(read.card.ims, ElementsAre(CardItem{7, "simone@example.org"}, CardItem{4, "10002"},
                                           CardItem{-1, "simone@example.net"}));
    EXPECT_EQ(read.card.photo, "\x89PNG");
    EXPECT_EQ(read.card.note, "生日：--0203");
}

TEST(VCardReader, NamesOfPartsReadAsTheirScriptWritesThem) {
    EXPECT_EQ(OneCard("BEGIN:VCARD\nN:欧阳;娜娜;;;\nEND:VCARD\n").card.name, "欧阳娜娜");
    EXPECT_EQ(OneCard("BEGIN:VCARD\nN:Stevens;Jo;Ann;Dr.;Jr.\nEND:VCARD\n").card.name,
              "Dr. Jo Ann Stevens Jr.");
}

TEST(VCardReader, TheFormattedNameComesBeforeItsParts) {
    EXPECT_EQ(OneCard("BEGIN:VCARD\nN:Stevens;Jo\nFN:Jo S.\nEND:VCARD\n").card.name, "Jo S.");
}

TEST(VCardReader, ChineseAddressesReadFromTheLargeToTheSmall) {
    EXPECT_THAT(
        OneCardWith("ADR;TYPE=WORK:;;中关村大街 1 号;海淀区;北京市;100080;中国\r\n").card.addresses,
        ElementsAre(CardItem{2, "中国 北京市 海淀区 中关村大街 1 号 100080"}));
}

TEST(VCardReader, AnAddressLabelStandsForAMissingAddress) {
    EXPECT_THAT(OneCardWith("LABEL;TYPE=HOME:1 Main St\\nSpringfield\r\n").card.addresses,
                ElementsAre(CardItem{0, "1 Main St\nSpringfield"}));
    EXPECT_THAT(
        OneCardWith("ADR:;;1 Main St;;;;\r\nLABEL:1 Main St\\nSpringfield\r\n").card.addresses,
        ElementsAre(CardItem{0, "1 Main St"}));
}

TEST(VCardReader, EmptyItemsAreLeftOut) {
    const ContactCard card = OneCardWith("TEL;HOME:\r\nADR:;;;;;;\r\nORG:;\r\nEMAIL:\r\n").card;
    EXPECT_THAT(card.phones, IsEmpty());
    EXPECT_THAT(card.addresses, IsEmpty());
    EXPECT_THAT(card.organisations, IsEmpty());
    EXPECT_THAT(card.emails, IsEmpty());
}

TEST(VCardReader, APropertyWithoutAPlaceGoesIntoTheNote) {
    const ReadCard read = OneCardWith(
        "NOTE:met in Xi'an\r\nBDAY:1980-02-03\r\nTITLE:工程师\r\nX-SPOUSE:Li "
        "Lei\r\nGEO:31.2;121.5\r\n");
    EXPECT_EQ(read.card.note,
              "met in Xi'an\n生日：1980-02-03\n职位：工程师\nX-SPOUSE：Li Lei\n位置：31.2, 121.5");
    EXPECT_THAT(read.leftOut, IsEmpty());
}

TEST(VCardReader, WhatSaysNothingOfThePersonIsPassedOver) {
    EXPECT_EQ(OneCardWith("PRODID:-//Example//EN\r\nREV:20200101T000000Z\r\nUID:1\r\n").card.note,
              "");
}

TEST(VCardReader, SoundsKeysAndPhotosFromTheNetAreNamedAsLeftOut) {
    const ReadCard read = OneCardWith(
        "SOUND;ENCODING=b:AAAA\r\nKEY;ENCODING=B:AAAA\r\nPHOTO;VALUE=uri:http://example.com/"
        "a.jpg\r\n");
    EXPECT_THAT(read.leftOut, ElementsAre("SOUND", "KEY", "PHOTO"));
    EXPECT_EQ(read.card.note, "");
    EXPECT_EQ(read.card.photo, "");
}

TEST(VCardReader, APropertyTooLongForTheNoteIsNamedAsLeftOut) {
    const ReadCard read =
        OneCardWith("X-BLOB:" + std::string(kMostNoteLineBytes + 1, 'x') + "\r\n");
    EXPECT_THAT(read.leftOut, ElementsAre("X-BLOB"));
}

TEST(VCardReader, ANameOfAPropertyThatIsNoTextIsMadeOne) {
    EXPECT_EQ(OneCardWith("\xFF\x01X:1\r\n").card.note, "\uFFFDX：1");
}

TEST(VCardReader, RowsThatOnePhoneSystemAddsFindTheirPlace) {
    const ReadCard read = OneCard(
        "BEGIN:VCARD\r\nVERSION:2.1\r\nN:A;;;;\r\n"
        "X-ANDROID-CUSTOM:vnd.android.cursor.item/nickname;Bobby;1;;;;;;;;;;;;;\r\n"
        "X-ANDROID-CUSTOM:vnd.android.cursor.item/contact_event;1980-02-03;3;;;;;;;;;;;;;\r\n"
        "X-ANDROID-CUSTOM:vnd.android.cursor.item/relation;Li;14;;;;;;;;;;;;;\r\n"
        "X-QQ;HOME:10003\r\n"
        "END:VCARD\r\n");
    EXPECT_EQ(read.card.nickname, "Bobby");
    EXPECT_EQ(read.card.note, "生日：1980-02-03\nrelation：Li");
    EXPECT_THAT(read.card.ims, ElementsAre(CardItem{4, "10003"}));
}

TEST(VCardReader, APhotoOfVersion21EndsAtAnEmptyLine) {
    const ReadCard read = OneCard(
        "BEGIN:VCARD\r\nVERSION:2.1\r\nN:A\r\n"
        "PHOTO;JPEG;ENCODING=BASE64:/9j/\r\n 4AAQ\r\n\r\n"
        "TEL;CELL:1\r\nEND:VCARD\r\n");
    EXPECT_EQ(read.card.photo, std::string("\xFF\xD8\xFF\xE0\0\x10", 6));
    EXPECT_THAT(read.card.phones, ElementsAre(CardItem{2, "1"}));
}

TEST(VCardReader, APhotoGoesOnInLinesWithNothingInFront) {
    EXPECT_EQ(OneCard("BEGIN:VCARD\nVERSION:2.1\nN:A\nPHOTO;ENCODING=BASE64;TYPE=JPEG:/9j/\n4A==\n"
                      "\nEND:VCARD\n")
                  .card.photo,
              "\xFF\xD8\xFF\xE0");
}

TEST(VCardReader, UnfoldsAfterTheRuleOfTheVersion) {
    EXPECT_EQ(OneCard("BEGIN:VCARD\nVERSION:3.0\nFN:Zhang\n  San\n\tfeng\nEND:VCARD\n").card.name,
              "Zhang Sanfeng");
    EXPECT_EQ(OneCard("BEGIN:VCARD\nVERSION:2.1\nFN:Zhang\n San\nEND:VCARD\n").card.name,
              "Zhang San");
}

TEST(VCardReader, ALineMayBeFoldedInsideACharacter) {
    EXPECT_EQ(
        OneCard("BEGIN:VCARD\r\nVERSION:3.0\r\nFN:\xE5\r\n \xBC\xA0\r\nEND:VCARD\r\n").card.name,
        "张");
}

TEST(VCardReader, LinesThatEndTwiceAreReadAsOne) {
    EXPECT_EQ(
        OneCard("BEGIN:VCARD\r\r\nVERSION:3.0\r\r\nFN:Zh\r\r\n ang\r\r\nEND:VCARD\r\r\n").card.name,
        "Zhang");
}

TEST(VCardReader, EscapesAreThoseOfTheVersion) {
    EXPECT_EQ(OneCardWith("NOTE:a\\, b\\; c\\\\d\\ne\\Nf\r\n").card.note, "a, b; c\\d\ne\nf");
    EXPECT_EQ(OneCard("BEGIN:VCARD\nVERSION:2.1\nN:A\nNOTE:C:\\new\\;x\nEND:VCARD\n").card.note,
              "C:\\new;x");
}

TEST(VCardReader, CategoriesAreGroups) {
    EXPECT_THAT(OneCardWith("CATEGORIES:家人,同事\\,北京\r\nCATEGORIES:Friends\r\n").card.groups,
                ElementsAre("家人", "同事,北京", "Friends"));
}

TEST(VCardReader, NamesOfPropertiesAndWordsHaveNoCase) {
    const ReadCard read = OneCard("begin:vcard\nversion:3.0\nfn:A\ntel;type=Cell:1\nend:vcard\n");
    EXPECT_THAT(read.card.phones, ElementsAre(CardItem{2, "1"}));
}

TEST(VCardReader, WhatStandsBetweenCardsIsPassedOver) {
    EXPECT_EQ(
        OneCard("Hello,\n\nFN:not me\nBEGIN:VCARD\nFN:A\nEND:VCARD\n-- \nregards\n").card.name,
        "A");
}

TEST(VCardReader, ACardWhoseEndIsMissingEndsWhereTheNextBegins) {
    const VCards read = ReadVCards("BEGIN:VCARD\nFN:A\nBEGIN:VCARD\nFN:B\nEND:VCARD\n");
    ASSERT_THAT(read.cards, SizeIs(2));
    EXPECT_EQ(read.cards[0].card.name, "A");
    EXPECT_EQ(read.cards[1].card.name, "B");
}

TEST(VCardReader, ACardInsideOfACardIsPassedOver) {
    const ReadCard read = OneCard(
        "BEGIN:VCARD\nVERSION:2.1\nN:A\nAGENT:\nBEGIN:VCARD\nN:B\nTEL:2\nEND:VCARD\nTEL;CELL:1\n"
        "END:VCARD\n");
    EXPECT_EQ(read.card.name, "A");
    EXPECT_THAT(read.card.phones, ElementsAre(CardItem{2, "1"}));
    EXPECT_THAT(read.leftOut, ElementsAre("AGENT"));
}

TEST(VCardReader, CardsNestedTooDeeplyAreRefused) {
    std::string file = "BEGIN:VCARD\nN:A\n";
    for (std::size_t i = 0; i <= kMostCardNesting; ++i) {
        file += "AGENT:\nBEGIN:VCARD\n";
    }
    const VCards read = ReadVCards(file);
    EXPECT_TRUE(read.refused);
    EXPECT_THAT(read.cards, IsEmpty());
}

TEST(VCardReader, ACardInWhichTheFileEndsIsSkipped) {
    const VCards read = ReadVCards("BEGIN:VCARD\nFN:A\nEND:VCARD\nBEGIN:VCARD\nFN:B\nTEL:1380");
    EXPECT_THAT(read.cards, SizeIs(1));
    EXPECT_THAT(read.skipped, ElementsAre(SkippedCard{2, "B", CardFault::cut}));
}

TEST(VCardReader, ACardThatNamesNobodyIsSkipped) {
    EXPECT_THAT(ReadVCards("BEGIN:VCARD\nNOTE:x\nEND:VCARD\n").skipped,
                ElementsAre(SkippedCard{1, "", CardFault::nothingInIt}));
}

TEST(VCardReader, ACardOfTooManyPropertiesIsSkipped) {
    std::string file = "BEGIN:VCARD\nFN:A\n";
    for (std::size_t i = 0; i < kMostCardProperties; ++i) {
        file += "TEL:1\n";
    }
    const VCards read = ReadVCards(file + "END:VCARD\nBEGIN:VCARD\nFN:B\nEND:VCARD\n");
    EXPECT_THAT(read.skipped, ElementsAre(SkippedCard{1, "A", CardFault::tooLarge}));
    EXPECT_THAT(read.cards, SizeIs(1));
}

TEST(VCardReader, APropertyThatIsTooLongIsLeftOut) {
    const ReadCard read =
        OneCardWith("NOTE:" + std::string(kMostVCardLineBytes, 'n') + "\r\nTEL;CELL:1\r\n");
    EXPECT_THAT(read.leftOut, ElementsAre("NOTE"));
    EXPECT_THAT(read.card.phones, ElementsAre(CardItem{2, "1"}));
}

TEST(VCardReader, ALineThatGoesOnForeverCostsNoMoreThanItsBound) {
    std::size_t cards = 0;
    std::vector<SkippedCard> skipped;
    VCardReader reader([&](ReadCard&&) { ++cards; },
                       [&](SkippedCard&& card) { skipped.push_back(std::move(card)); });
    reader.Feed("BEGIN:VCARD\nFN:A\nNOTE:");
    const std::string piece(1024 * 1024, 'n');
    for (int i = 0; i < 20; ++i) {
        reader.Feed(piece);
    }
    reader.End();
    EXPECT_EQ(cards, 0U);
    EXPECT_THAT(skipped, ElementsAre(SkippedCard{1, "A", CardFault::cut}));
}

TEST(VCardReader, ReadsTheSameWhateverThePiecesThatComeIn) {
    const std::string file =
        "\xEF\xBB\xBF"
        "BEGIN:VCARD\r\nVERSION:2.1\r\nN;ENCODING=QUOTED-PRINTABLE:=E5=\r\n=BC=A0\r\n"
        "PHOTO;ENCODING=BASE64:/9j/\r\n 4A==\r\n\r\nEND:VCARD\r\n";
    const VCards whole = ReadVCards(file);
    std::vector<ReadCard> cards;
    VCardReader reader([&](ReadCard&& card) { cards.push_back(std::move(card)); },
                       [](SkippedCard&&) { FAIL(); });
    for (const char c : file) {
        reader.Feed({&c, 1});
    }
    reader.End();
    EXPECT_EQ(cards, whole.cards);
    EXPECT_THAT(cards, SizeIs(1));
}

}  // namespace
}  // namespace quorvi
