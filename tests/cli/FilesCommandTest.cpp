// quorvictl files against an agent on the suite's own port.
#include <gtest/gtest.h>

#include "base/Json.h"
#include "tests/support/AgentFixture.h"
#include "tests/support/GbkChosen.h"
#include "tests/support/RunProgram.h"

namespace quorvi::cli {
namespace {

class FilesCommand : public AgentFixture {
  protected:
    static void ExpectDocument(const std::string& arguments, std::string_view document) {
        const Ended ended = Out(arguments + " --json");
        EXPECT_EQ(ended.status, 0);
        const auto printed = ParseJson(ended.output);
        ASSERT_TRUE(printed) << ended.output;
        EXPECT_EQ(*printed, ParseJson(document).value()) << ended.output;
    }
    void ExpectRefused(const std::string& arguments, const std::string& line) {
        const Ended ended = Err(arguments);
        EXPECT_EQ(ended.status, 1) << arguments;
        EXPECT_EQ(ended.output, "quorvictl: " + line + "\n");
        EXPECT_EQ(Out(arguments + " --json").output, "");
    }
    static Bytes Header(std::string_view parent) {
        return Join({
            Word(1),                   // a folder
            Text(parent),              // path of the parent
            LongWord(0), LongWord(0),  // bytes, time
            Word(0), Word(0), Word(0)  // readable, writable, hidden
        });
    }
    static Answer Card() {
        return {.bytes = Framed(Join({
                    Word(0),                                                      // leading word
                    Header("/"),                                                  //
                    Word(1), Text("/sdcard/LOST.DIR"), LongWord(0), LongWord(0),  // a folder
                    Word(1), Word(1), Word(1),             // readable, writable, hidden
                    Word(0), Text("/sdcard/录像.a.m2ts"),  // a file
                    LongWord((1ULL << 32) + 2048),         // bytes
                    LongWord(1308361330999),               // milliseconds since 1970
                    Word(0), Word(1), Word(0),             // not readable, writable
                }))};
    }
};

TEST_F(FilesCommand, ListGivesTheParentAndEachEntryWithRawNumbers) {
    START_OR_SKIP(Card());
    ExpectDocument("files list /sdcard", R"({"parent": "/", "entries": [
        {"name": "LOST", "path": "/sdcard/LOST.DIR", "folder": true, "size": 0, "modified": 0,
         "readable": true, "writable": true, "hidden": true, "attributes": "可读 可写 隐藏"},
        {"name": "录像.a", "path": "/sdcard/录像.a.m2ts", "folder": false, "size": 4294969344,
         "modified": 1308361330999, "readable": false, "writable": true, "hidden": false,
         "attributes": "可读 可写 隐藏 可写"}]})");
    EXPECT_EQ(Request(0), Join({
                              Word(870602),    // code
                              Word(23),        // total
                              Word(1),         // item count
                              Text("/sdcard")  // path
                          }));
}

TEST_F(FilesCommand, WithoutAPathItIsTheRoot) {
    START_OR_SKIP({.bytes = Framed(Join({Word(0), Header("/")}))});
    ExpectDocument("files list", R"({"parent": "/", "entries": []})");
    EXPECT_EQ(Request(0), Word(870601));
}

TEST_F(FilesCommand, APathGoesOutInUtf8) {
    START_OR_SKIP(Card());
    EXPECT_EQ(Out("files list '/sdcard/工作 2011.06'").status, 0);
    EXPECT_EQ(Request(0), Join({Word(870602), Word(38), Word(1), Text("/sdcard/工作 2011.06")}));
}

TEST_F(FilesCommand, TheTableHasTheTextsOfThePageAndThePaths) {
    START_OR_SKIP(Card());
    const std::string table = Out("files list /sdcard").output;
    for (const char* text : {"文件夹", "未知", "2.00 KB", "0 字节", "可读 可写 隐藏 可写",
                             "录像.a ", "/sdcard/录像.a.m2ts"}) {
        EXPECT_NE(table.find(text), std::string::npos) << text << "\n" << table;
    }
}

TEST_F(FilesCommand, ARootOfWhichThePhoneHasNothingToTellIsEmpty) {
    START_OR_SKIP({.bytes = Word(NoDataMark)});
    ExpectDocument("files list", R"({"parent": "", "entries": []})");
}

TEST_F(FilesCommand, AFolderThatIsNotThereIsStatusThree) {
    START_OR_SKIP({.bytes = Word(NoDataMark)});
    const Ended out = Out("files list /nowhere --json");
    EXPECT_EQ(out.status, 3);
    EXPECT_EQ(out.output, "");
    EXPECT_EQ(Err("files list /nowhere").output, "quorvictl: /nowhere: 手机上没有这个文件夹\n");
}

TEST_F(FilesCommand, AnEmptyPathIsRefusedAndNothingSent) {
    START_OR_SKIP(Card());
    ExpectRefused("files list ''", ": 不是手机上的路径");
    EXPECT_EQ(Err("files list / /").status, 1);
    Stop();
    EXPECT_EQ(Err("files list ''").status, 1);  // not even a connection is made
}

TEST_F(FilesCommand, APathThatTheCodePageWouldChangeIsRefused) {
    const GbkChosen gbk;
    ExpectRefused("files list /sdcard/mañana", "/sdcard/ma?ana: 不是手机上的路径");
}

TEST_F(FilesCommand, APhoneThatDoesNotAnswerIsStatusTwo) {
    START_OR_SKIP({.end = Answer::End::close});
    for (const char* call : {"files list", "files list /sdcard"}) {
        const Ended out = Out(std::string(call) + " --json");
        EXPECT_EQ(out.status, 2) << call;
        EXPECT_EQ(out.output, "") << call;
        EXPECT_EQ(Err(call).output, "quorvictl: 手机端没有回答，请重新连接手机后再试\n") << call;
    }
}

TEST_F(FilesCommand, WithoutALinkTheStatusSaysSo) {
    START_OR_SKIP(Card());
    Stop();
    const Ended ended = Err("files list");
    EXPECT_EQ(ended.status, 2);
    EXPECT_NE(ended.output.find("【X】连接错误"), std::string::npos);
}

}  // namespace
}  // namespace quorvi::cli
