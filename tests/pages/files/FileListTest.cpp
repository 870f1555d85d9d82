#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

#include "base/Format.h"
#include "base/Text.h"
#include "pages/files/FileList.h"
#include "tests/pages/files/FileReplies.h"

namespace quorvi {
namespace {

FileList Parse(const WireBytes& bytes) {
    return ParseFileList(bytes.Buffer());
}

TEST(FileListReading, ReadsEachFieldOfTheHeaderAndOfARow) {
    WireBytes bytes;
    bytes
        .U32(0)                 // leading word
        .U32(7)                 // header: its first word
        .Text("/存储卡")        // header: path of the parent
        .U64(1)                 // header: size
        .U64(2)                 // header: time
        .U32(0)                 // header: readable
        .U32(0)                 // header: writable
        .U32(0)                 // header: hidden
        .U32(1)                 // a folder
        .Text("/存储卡/照片")   // path
        .U64(0x0102030405)      // bytes
        .U64(1308361330999)     // milliseconds since 1970
        .U32(1)                 // readable
        .U32(0)                 // writable
        .U32(1)                 // hidden
        .U32(2)                 // no folder: only 1 is one
        .Text("/存储卡/a.txt")  // path
        .U64(3)                 // bytes
        .U64(0)                 // time not known
        .U32(2)                 // not readable: only 1 is
        .U32(1)                 // writable
        .U32(0xFFFFFFFF);       // not hidden
    const FileList list = Parse(bytes);
    ASSERT_TRUE(list.header);
    EXPECT_EQ(list.header->parentPath, Ansi(u8"/存储卡"));
    EXPECT_EQ(list.header->parentFlag, 7u);
    ASSERT_EQ(list.rows.size(), 2u);
    const FileRecord& folder = list.rows[0];
    EXPECT_TRUE(folder.isFolder);
    EXPECT_EQ(folder.path, Ansi(u8"/存储卡/照片"));
    EXPECT_EQ(folder.size, 0x0102030405u);
    EXPECT_EQ(folder.modifiedTime, 1308361330999u);
    EXPECT_TRUE(folder.readable);
    EXPECT_FALSE(folder.writable);
    EXPECT_TRUE(folder.hidden);
    EXPECT_EQ(folder.attributes.View(), Ansi(u8"可读 隐藏"));
    const FileRecord& file = list.rows[1];
    EXPECT_FALSE(file.isFolder);
    EXPECT_EQ(file.size, 3u);
    EXPECT_EQ(file.modifiedTime, 0u);
    EXPECT_FALSE(file.readable);
    EXPECT_TRUE(file.writable);
    EXPECT_FALSE(file.hidden);
}

TEST(FileListReading, AnEmptyFolderHasItsHeaderAndNoRow) {
    const FileList list = Parse(FilesPayload("/sdcard", {}));
    ASSERT_TRUE(list.header);
    EXPECT_EQ(list.header->parentPath, "/sdcard");
    EXPECT_TRUE(list.rows.empty());
}

TEST(FileListReading, KeepsTheOrderOfTheAgent) {
    const FileList list = Parse(FilesPayload("/", {{"/b"}, {"/a", 0}, {"/c"}}));
    ASSERT_EQ(list.rows.size(), 3u);
    EXPECT_EQ(list.rows[0].path, "/b");
    EXPECT_EQ(list.rows[1].path, "/a");
    EXPECT_EQ(list.rows[2].path, "/c");
}

TEST(FileListReading, AnUnreadableEntryAfterAReadableOneShowsThatItCanBeRead) {
    const FileList list =
        Parse(FilesPayload("/", {{.writable = 0}, {.readable = 0, .writable = 0, .hidden = 1}}));
    ASSERT_EQ(list.rows.size(), 2u);
    EXPECT_FALSE(list.rows[1].readable);
    EXPECT_EQ(list.rows[1].attributes.View(), Ansi(u8"可读 隐藏"));
}

TEST(FileListReading, TheHeadersAttributesCarryOverToTheFirstRow) {
    WireBytes bytes;
    bytes.U32(0);  // leading word
    AddFile(bytes, {.path = "/", .readable = 1, .writable = 1});
    AddFile(bytes, {.readable = 0, .writable = 0});
    const FileList list = Parse(bytes);
    ASSERT_EQ(list.rows.size(), 1u);
    EXPECT_EQ(list.rows[0].attributes.View(), Ansi(u8"可读 可写"));
}

TEST(FileListReading, ACarryOverEndsWithItsReply) {
    const WireBytes bytes = FilesPayload("/", {{}, {.readable = 0, .writable = 0}});
    EXPECT_EQ(Parse(bytes).rows[1].attributes.View(), Ansi(u8"可读 可写"));
    const WireBytes other = FilesPayload("/", {{.readable = 0, .writable = 0}});
    EXPECT_EQ(Parse(other).rows[0].attributes.View(), "");
}

TEST(FileListReading, AnAbsentPathIsEmptyAndTheReadingGoesOn) {
    WireBytes bytes = FilesPayload("/", {});
    bytes.U32(1).Absent().U64(5).U64(0).U32(1).U32(0).U32(0);  // a record without a path
    AddFile(bytes, {"/b"});
    const FileList list = Parse(bytes);
    ASSERT_EQ(list.rows.size(), 2u);
    EXPECT_EQ(list.rows[0].path, "");
    EXPECT_EQ(list.rows[0].size, 5u);
    EXPECT_EQ(list.rows[1].path, "/b");
}

TEST(FileListReading, APayloadOfTheLeadingWordAloneHasNotEvenAHeader) {
    WireBytes bytes;
    bytes.U32(0);  // leading word
    const FileList list = Parse(bytes);
    EXPECT_FALSE(list.header);
    EXPECT_TRUE(list.rows.empty());
}

TEST(FileListReading, ALengthThatPointsOutsideEndsTheRun) {
    WireBytes bytes = FilesPayload("/", {{"/a"}});
    bytes.U32(1).U32(0x7FFFFFFF).Raw("/b");  // a path longer than the reply
    const FileList list = Parse(bytes);
    ASSERT_TRUE(list.header);
    EXPECT_EQ(list.rows.size(), 1u);
}

TEST(FileListReading, ARecordInWhosePathACutReplyEndsIsDropped) {
    const std::size_t first = FilesPayload("/", {{"/a"}}).Get().size();
    const WireBytes bytes = FilesPayload("/", {{"/a"}, {"/sdcard"}});
    const std::size_t path = first + 4 + 4 + 7;  // kind, length, path
    EXPECT_EQ(ParseFileList(bytes.CutAfter(path - 1)).rows.size(), 1u);
    const FileList list = ParseFileList(bytes.CutAfter(path));
    ASSERT_EQ(list.rows.size(), 2u);
    EXPECT_EQ(list.rows[1].path, "/sdcard");
    EXPECT_FALSE(list.rows[1].readable);
}

TEST(FileListReading, AHeaderInWhosePathACutReplyEndsIsDropped) {
    const WireBytes bytes = FilesPayload("/sdcard", {{"/a"}});
    EXPECT_FALSE(ParseFileList(bytes.CutAfter(4 + 4 + 4 + 6)).header);
    EXPECT_EQ(ParseFileList(bytes.CutAfter(4 + 4 + 4 + 7)).header->parentPath, "/sdcard");
}

TEST(FileTexts, SizesFromFourGigabytesOnShowTheirLow32Bits) {
    const FileList list =
        Parse(FilesPayload("/", {{.size = 1ULL << 32}, {.size = (1ULL << 32) + 2048}}));
    EXPECT_EQ(FormatByteSize(list.rows[0].size), Ansi(u8"0 字节"));
    EXPECT_EQ(FormatByteSize(list.rows[1].size), "2.00 KB");
}

TEST(FileTexts, AModifiedTimeOfZeroIsUnknown) {
    EXPECT_EQ(ModifiedTimeText(0), Ansi(u8"未知"));
}

TEST(FileTexts, AModifiedTimeIsLocalAndDropsItsMilliseconds) {
    setenv("TZ", "Asia/Shanghai", 1);
    tzset();
    EXPECT_EQ(ModifiedTimeText(1308361330999), "2011-06-18 09:42:10");
    EXPECT_EQ(ModifiedTimeText(999), "1970-01-01 08:00:00");
}

TEST(FileTexts, AFolderAndAFileHaveTheirWords) {
    EXPECT_EQ(FileTypeText(true), Ansi(u8"文件夹"));
    EXPECT_EQ(FileTypeText(false), Ansi(u8"文件"));
}

TEST(FileRequests, TheRootIsTheBareCommand) {
    EXPECT_EQ(BareRequest(AgentCommand::listFileRoots), WireBytes().U32(870601).Get());
}

TEST(FileRequests, AFolderIsNamedByItsPathInUtf8) {
    EXPECT_EQ(DirectoryRequest(Ansi(u8"/sdcard/照片")), WireBytes()
                                                            .U32(870602)          // code
                                                            .U32(30)              // total
                                                            .U32(1)               // item count
                                                            .U32(14)              // bytes of path
                                                            .Raw("/sdcard/照片")  // path
                                                            .Get());
}

TEST(FileRequests, AnEmptyPathIsSentAsOne) {
    EXPECT_EQ(DirectoryRequest(""), WireBytes()
                                        .U32(870602)  // code
                                        .U32(16)      // total
                                        .U32(1)       // item count
                                        .U32(0)       // bytes of path
                                        .Get());
}

}  // namespace
}  // namespace quorvi
