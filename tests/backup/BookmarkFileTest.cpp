#include <gmock/gmock.h>

#include "backup/BookmarkFile.h"
#include "backup/MarkupText.h"

namespace quorvi {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

TEST(BookmarkFileWriter, IsTheFormThatBrowsersImport) {
    const FileBookmark bookmark{"天气 & 路况", "http://example.com/?a=1&b=\"2\"", 3};
    const std::string html = WriteBookmarkFile(std::span(&bookmark, 1));
    EXPECT_THAT(html, StartsWith("<!DOCTYPE NETSCAPE-Bookmark-file-1>\n"));
    EXPECT_THAT(html, HasSubstr("charset=UTF-8"));
    EXPECT_THAT(html, HasSubstr("    <DT><A HREF=\"http://example.com/?a=1&amp;b=&quot;2&quot;\" "
                                "VISITS=\"3\">天气 &amp; 路况</A>\n"));
}

TEST(BookmarkFileWriter, WhatIsWrittenReadsBackTheSame) {
    const std::vector<FileBookmark> bookmarks{
        {"a", "http://example.com", 0},
        {"", "https://example.com/<x>'y'", 7},
        {"<b>&amp;</A>", "javascript:a()", 0},
        {"  two  blanks\n", "about:blank ", 4294967295},
        {"", "", 0},
    };
    EXPECT_EQ(ReadBookmarkFile(WriteBookmarkFile(bookmarks)).bookmarks, bookmarks);
}

TEST(BookmarkFileReader, ReadsFoldersIconsAndDescriptionsOfBrowsers) {
    const BookmarkFile file = ReadBookmarkFile(
        "<!DOCTYPE NETSCAPE-Bookmark-file-1>\n<!-- made by a browser -->\n"
        "<H1>Menu</H1>\n<DL><p>\n"
        "  <DT><H3 ADD_DATE=\"1300000000\" PERSONAL_TOOLBAR_FOLDER=\"true\">Bar</H3>\n"
        "  <DL><p>\n"
        "    <DT><A HREF=\"http://example.com/\" ADD_DATE=\"1300000001\" "
        "ICON=\"data:image/png;base64,iVBORw0KGgo=\">Example</A>\n"
        "    <DD>a description\n"
        "    <DT><A HREF=\"https://example.org/a?b=c&amp;d=e\">Caf&#233; &lt;Eins&gt;</A>\n"
        "  </DL><p>\n"
        "</DL><p>\n");
    EXPECT_THAT(file.bookmarks,
                ElementsAre(FileBookmark{"Example", "http://example.com/", 0},
                            FileBookmark{"Café <Eins>", "https://example.org/a?b=c&d=e", 0}));
    EXPECT_THAT(file.tooLong, IsEmpty());
}

TEST(BookmarkFileReader, TakesLettersOfEitherCaseAndValuesWithAnyQuotes) {
    EXPECT_THAT(ReadBookmarkFile("<a href='http://a.example'>a</a><A Href = http://b.example >b</A>"
                                 "<a name=x>no link</a>")
                    .bookmarks,
                ElementsAre(FileBookmark{"a", "http://a.example", 0},
                            FileBookmark{"b", "http://b.example", 0}));
}

TEST(BookmarkFileReader, AValueMayHoldTheEndOfATag) {
    EXPECT_THAT(ReadBookmarkFile("<A HREF=\"http://a.example/?x>y\">a</A>").bookmarks,
                ElementsAre(FileBookmark{"a", "http://a.example/?x>y", 0}));
}

TEST(BookmarkFileReader, QuotesThatAreNeverClosedHideNoOtherBookmark) {
    EXPECT_THAT(
        ReadBookmarkFile("<A HREF=\"http://a.example>a</A>\n<A HREF=\"http://b.example\">b</A>")
            .bookmarks,
        testing::Contains(FileBookmark{"b", "http://b.example", 0}));
}

TEST(BookmarkFileReader, MarkupInsideATitleIsLeftOut) {
    EXPECT_THAT(
        ReadBookmarkFile("<A HREF=\"http://a.example\">\n  <b>bold</b>\n title </A>").bookmarks,
        ElementsAre(FileBookmark{"bold title", "http://a.example", 0}));
}

TEST(BookmarkFileReader, ReadsGb18030WhereItIsNoUtf8) {
    EXPECT_THAT(ReadBookmarkFile("<A HREF=\"http://a.example\">\xCC\xEC\xC6\xF8</A>").bookmarks,
                ElementsAre(FileBookmark{"天气", "http://a.example", 0}));
}

TEST(BookmarkFileReader, WhatIsTooLongIsNamed) {
    const std::string url(kMostBookmarkBytes + 1, 'u');
    const BookmarkFile file =
        ReadBookmarkFile("<A HREF=\"" + url + "\">long</A><A HREF=\"http://a.example\">a</A>");
    EXPECT_THAT(file.tooLong, ElementsAre("long"));
    EXPECT_THAT(file.bookmarks, ElementsAre(FileBookmark{"a", "http://a.example", 0}));
}

TEST(BookmarkFileReader, AnythingElseHasNoBookmarks) {
    EXPECT_THAT(ReadBookmarkFile("").bookmarks, IsEmpty());
    EXPECT_THAT(ReadBookmarkFile("<a").bookmarks, IsEmpty());
    EXPECT_THAT(ReadBookmarkFile("<a href").bookmarks, IsEmpty());
    EXPECT_THAT(ReadBookmarkFile("BEGIN:VCARD\nEND:VCARD\n").bookmarks, IsEmpty());
}

TEST(WebAddress, IsWhatABrowserOpens) {
    EXPECT_TRUE(IsWebAddress("HTTP://example.com"));
    EXPECT_TRUE(IsWebAddress("https://例子.example/"));
    EXPECT_FALSE(IsWebAddress("https://"));
    EXPECT_FALSE(IsWebAddress("javascript:alert(1)"));
    EXPECT_FALSE(IsWebAddress("place:sort=8"));
    EXPECT_FALSE(IsWebAddress(""));
}

TEST(MarkupText, EntitiesThatNobodyKnowsStayAsTheyAre) {
    EXPECT_EQ(FromMarkupText("&amp;&LT;&#x6c49;&#0;&#xD800;&#1114112;&bogus; & &"),
              "&<汉&#0;&#xD800;&#1114112;&bogus; & &");
}

}  // namespace
}  // namespace quorvi
