// quorvictl bookmarks against an agent on the suite's own port.
#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "base/Json.h"
#include "base/Text.h"
#include "pages/bookmarks/BookmarkForm.h"
#include "tests/support/AgentFixture.h"
#include "tests/support/Fed.h"
#include "tests/support/GbkChosen.h"
#include "tests/support/RunProgram.h"

namespace quorvi::cli {
namespace {

class BookmarksCommand : public AgentFixture {};

// The reply of a phone with one bookmark.
Bytes OneBookmark() {
    return Framed(Join({
        Word(0),           // leading word
        LongWord(7),       // bookmark id
        Text("天气"),      // title
        Text("http://x"),  // url
        Word(0),           // visits
        LongWord(0),       // last visit
        Word(1),           // has favicon
        LongWord(4),       // favicon length
        Word(0),           // favicon
        Word(1),           // has thumbnail
        LongWord(8),       // thumbnail length
        LongWord(0),       // thumbnail
    }));
}

constexpr std::string_view kForm = R"({"title": "天气", "url": "http://x/", "visits": 12})";

// The same as the editor saves it.
BookmarkSettings Settings() {
    return {Ansi(u8"天气"), "http://x/", 12};
}

TEST_F(BookmarksCommand, ListGivesEachFieldOfEachBookmark) {
    START_OR_SKIP({.bytes = OneBookmark()});
    const Ended ended = Out("bookmarks list --json");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ParseJson(ended.output), ParseJson(R"([{"id": 7, "title": "天气",
        "url": "http://x", "visits": 0, "last_visit": "从未", "thumbnail_bytes": 8}])"));
    EXPECT_EQ(Request(0), Word(870701));
}

TEST_F(BookmarksCommand, TheTableHasTheTextsOfThePage) {
    START_OR_SKIP({.bytes = OneBookmark()});
    const std::string table = Out("bookmarks list").output;
    for (const char* text : {"天气", "http://x", "仅手机上的", "0 次", "从未"}) {
        EXPECT_NE(table.find(text), std::string::npos) << text;
    }
    EXPECT_EQ(std::count(table.begin(), table.end(), '\n'), 2);  // the headings and the bookmark
}

TEST_F(BookmarksCommand, PhoneWithoutBookmarksGivesAnEmptyList) {
    START_OR_SKIP({.bytes = Word(NoDataMark)});
    const Ended ended = Out("bookmarks list --json");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.output, "[]\n");
}

TEST_F(BookmarksCommand, AddSendsTheVeryBytesOfTheEditor) {
    START_OR_SKIP({.bytes = Word(1)});
    const Ended ended = Out(Fed("bookmarks add --json", kForm));
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ParseJson(ended.output), ParseJson(R"({"added": "天气"})"));
    EXPECT_EQ(Request(0), AddBookmarkRequest(Settings()));
}

TEST_F(BookmarksCommand, UpdateSendsTheVeryBytesOfTheEditor) {
    START_OR_SKIP({.bytes = Word(1)});
    const Ended ended = Out(Fed("bookmarks update 7 --json", kForm));
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ParseJson(ended.output), ParseJson(R"({"updated": 7})"));
    EXPECT_EQ(Request(0), UpdateBookmarkRequest(7, Settings()));
}

TEST_F(BookmarksCommand, AnEmptyFormIsSentAsTheEditorSendsIt) {
    START_OR_SKIP({.bytes = Word(1)});
    EXPECT_EQ(Out(Fed("bookmarks add", "{}")).status, 0);
    EXPECT_EQ(Request(0), AddBookmarkRequest({}));
}

TEST_F(BookmarksCommand, DeleteNamesTheBookmarksInTheirOrder) {
    START_OR_SKIP({.bytes = Word(NoDataMark)});
    const Ended ended = Out("bookmarks delete 9 3 --json");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ParseJson(ended.output), ParseJson(R"({"deleted": [9, 3]})"));
    EXPECT_EQ(DeleteBehindEmptyList(), Join({Word(870705), Word(20), Word(2), Word(9), Word(3)}));
}

TEST_F(BookmarksCommand, MalformedFormIsRefusedBeforeAnythingIsSentAndItsMemberNamed) {
    START_OR_SKIP({.bytes = Word(1)});
    const std::pair<std::string_view, std::string_view> forms[] = {
        {R"({"title": 5})", "title: 应为字符串"},
        {R"({"url": null})", "url: 应为字符串"},
        {R"({"visits": -1})", "visits: 应为 0 到 2147483647 的整数"},
        {R"({"visits": 2147483648})", "visits: 应为 0 到 2147483647 的整数"},
        {R"({"visits": "3"})", "visits: 应为 0 到 2147483647 的整数"},
        {R"({"last_visit": "x"})", "last_visit: 没有这个成员"},
        {"[]", "标准输入应为一个 JSON 对象"},
        {"", "标准输入应为一个 JSON 对象"},
    };
    for (const auto& [form, complaint] : forms) {
        for (const char* call : {"bookmarks add", "bookmarks update 1"}) {
            const Ended ended = Err(Fed(call, form));
            EXPECT_EQ(ended.status, 1) << form;
            EXPECT_EQ(ended.output, "quorvictl: " + std::string(complaint) + "\n") << form;
        }
    }
    // The first thing that comes is what is sent now.
    EXPECT_EQ(Out(Fed("bookmarks add", R"({"visits": 2147483647})")).status, 0);
    EXPECT_EQ(Request(0), AddBookmarkRequest({"", "", 2'147'483'647}));
}

TEST_F(BookmarksCommand, CharactersThatTheCodePageLacksAreSavedWithAWarning) {
    const GbkChosen user;
    START_OR_SKIP({.bytes = Word(1)});
    EXPECT_EQ(Err(Fed("bookmarks add", R"({"title": "\ud83c\udf88"})")).output,
              "quorvictl: 有些字符无法保存，会变成“?”\n");
    EXPECT_EQ(Request(0), AddBookmarkRequest({"?", "", 0}));
}

TEST_F(BookmarksCommand, IdThatIsNoNumberIsWrongUsage) {
    for (const char* arguments : {"bookmarks delete", "bookmarks delete 1 x",
                                  "bookmarks delete 4294967296", "bookmarks update"}) {
        EXPECT_EQ(Out(arguments).status, 1) << arguments;
    }
    EXPECT_EQ(Err(Fed("bookmarks update x", kForm)).output, "quorvictl: x: 不是书签的编号\n");
}

TEST_F(BookmarksCommand, AChangeWithoutALinkOrAnAcknowledgementIsStatusTwo) {
    for (const char* call : {"bookmarks add", "bookmarks update 1"}) {
        EXPECT_EQ(Out(Fed(call, kForm)).status, 2) << call;
    }
    START_OR_SKIP({.end = Answer::End::close});
    for (const char* call : {"bookmarks add", "bookmarks update 1"}) {
        const Ended ended = Err(Fed(call, kForm));
        EXPECT_EQ(ended.status, 2) << call;
        EXPECT_EQ(ended.output, "quorvictl: 手机没有确认，请查看手机上是否已经生效\n") << call;
    }
}

}  // namespace
}  // namespace quorvi::cli
