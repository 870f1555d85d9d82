#include <gtest/gtest.h>

#include <cstring>
#include <string_view>
#include <vector>

#include "base/ByteText.h"
#include "base/Format.h"
#include "base/Text.h"
#include "pages/kit/ReplyPicture.h"
#include "pages/tasks/TaskList.h"
#include "tests/pages/tasks/TaskReplies.h"

namespace quorvi {
namespace {

TaskList Parse(const WireBytes& bytes) {
    return ParseTaskList(bytes.Shared());
}

std::string IconOf(const TaskRecord& row) {
    return std::string(AsText(row.icon.Bytes()));
}

TEST(TaskListReading, ReadsEachFieldOfARow) {
    WireBytes bytes;
    bytes
        .U32(0)               // leading word
        .U64(9'437'184)       // memory
        .U32(100)             // importance
        .U32(12)              // CPU share
        .U32(1301)            // process identifier
        .U32(1)               // came with the phone
        .Text("电话")         // name
        .Text("com.a.phone")  // package
        .U64(3)               // bytes of the icon
        .Raw("png");          // icon
    const TaskList list = Parse(bytes);
    EXPECT_FALSE(list.EndedByMark());
    ASSERT_EQ(list.rows.size(), 1u);
    const TaskRecord& row = list.rows[0];
    EXPECT_EQ(row.memory, 9'437'184u);
    EXPECT_EQ(row.importance, 100u);
    EXPECT_EQ(row.cpu, 12u);
    EXPECT_EQ(row.pid, 1301u);
    EXPECT_TRUE(row.isSystem);
    EXPECT_EQ(row.name, Ansi(u8"电话"));
    EXPECT_EQ(row.package, "com.a.phone");
    EXPECT_EQ(IconOf(row), "png");
}

TEST(TaskListReading, KeepsTheOrderOfTheAgent) {
    const TaskList list = Parse(ProcessesPayload({{.pid = 9}, {.pid = 3}, {.pid = 5}}));
    ASSERT_EQ(list.rows.size(), 3u);
    EXPECT_EQ(list.rows[0].pid, 9u);
    EXPECT_EQ(list.rows[1].pid, 3u);
    EXPECT_EQ(list.rows[2].pid, 5u);
}

TEST(TaskListReading, ASystemFlagOfTwoIsNone) {
    const TaskList list = Parse(ProcessesPayload({{.system = 2}, {.system = 1}}));
    EXPECT_FALSE(list.rows[0].isSystem);
    EXPECT_TRUE(list.rows[1].isSystem);
}

TEST(TaskListReading, AnAbsentNameEndsTheReadAndLeavesARowWithoutARecord) {
    WireBytes bytes = ProcessesPayload({{}});
    bytes
        .U64(4'096)  // memory of a second process
        .U32(100)
        .U32(1)
        .U32(7)
        .U32(1)     // importance, CPU share, identifier, flag
        .Absent();  // name
    const TaskList list = Parse(bytes);
    EXPECT_EQ(list.rows.size(), 1u);
    ASSERT_TRUE(list.EndedByMark());
    EXPECT_EQ(list.marked->memory, 4'096u);
    EXPECT_EQ(list.marked->pid, 7u);
}

TEST(TaskListReading, MemoryAboveFourGigabytesShowsItsLowerBits) {
    const TaskList list = Parse(ProcessesPayload({{.memory = (1ULL << 32) + 532}}));
    EXPECT_EQ(list.rows[0].memory, 4'294'967'828u);
    EXPECT_EQ(FormatByteSize(list.rows[0].memory), Ansi(u8"532 字节"));
}

TEST(TaskListReading, IconsLieInTheReplyAndAreNotCopied) {
    const WireBytes bytes = ProcessesPayload({{.icon = "first"}, {.icon = ""}});
    const auto reply = bytes.Shared();
    const TaskList list = ParseTaskList(reply);
    ASSERT_EQ(list.rows.size(), 2u);
    const std::byte* icon = list.rows[0].icon.Bytes().data();
    EXPECT_GE(icon, reply->Data());
    EXPECT_LT(icon, reply->Data() + reply->Length());
    EXPECT_TRUE(list.rows[1].icon.Empty());
}

TEST(TaskListReading, AnIconBeyondTheCapacityIsDroppedAndTheReadingGoesOn) {
    const std::string fits(kPictureCapacity, 'x');
    const TaskList list =
        Parse(ProcessesPayload({{.icon = fits}, {.icon = fits + "x"}, {.icon = "next"}}));
    ASSERT_EQ(list.rows.size(), 3u);
    EXPECT_EQ(list.rows[0].icon.Bytes().size(), kPictureCapacity);
    EXPECT_TRUE(list.rows[1].icon.Empty());
    EXPECT_EQ(IconOf(list.rows[2]), "next");
}

TEST(TaskListReading, AnIconThatIsNotAllThereIsDropped) {
    const WireBytes bytes = ProcessesPayload({{}, {.pid = 4, .icon = "icon"}});
    const TaskList list =
        ParseTaskList(std::make_shared<const ReplyBuffer>(bytes.CutAfter(bytes.Get().size() - 1)));
    ASSERT_EQ(list.rows.size(), 2u);
    EXPECT_EQ(list.rows[1].pid, 4u);
    EXPECT_TRUE(list.rows[1].icon.Empty());
}

TEST(TaskListReading, ARowWhosePackageWasCutIsDropped) {
    const WireBytes bytes = ProcessesPayload({{}, {.package = "com.example.bus", .icon = ""}});
    const std::size_t package = bytes.Get().size() - 8;  // in front of the icon's length
    const auto read = [&](std::size_t came) {
        return ParseTaskList(std::make_shared<const ReplyBuffer>(bytes.CutAfter(came)));
    };
    EXPECT_EQ(read(package - 1).rows.size(), 1u);
    EXPECT_EQ(read(package).rows.size(), 2u);
}

TEST(TaskListReading, ALengthThatPointsOutsideEndsTheRun) {
    WireBytes bytes = ProcessesPayload({{}});
    bytes.U64(1).U32(100).U32(1).U32(7).U32(1).U32(0x7FFFFFFF).Raw("x");
    const TaskList list = Parse(bytes);
    EXPECT_EQ(list.rows.size(), 1u);
    EXPECT_FALSE(list.EndedByMark());
}

TEST(ImportanceText, EachCodeHasItsText) {
    EXPECT_EQ(ImportanceText(100), Ansi(u8"前台"));
    EXPECT_EQ(ImportanceText(300), Ansi(u8"服务"));
    EXPECT_EQ(ImportanceText(400), Ansi(u8"后台"));
    EXPECT_EQ(ImportanceText(500), Ansi(u8"置空"));
}

TEST(ImportanceText, VisibleAndPerceptibleReadAlike) {
    EXPECT_EQ(ImportanceText(130), Ansi(u8"可见"));
    EXPECT_EQ(ImportanceText(200), Ansi(u8"可见"));
}

TEST(ImportanceText, AnyOtherCodeIsUnknown) {
    EXPECT_EQ(ImportanceText(230), Ansi(u8"未知"));
    EXPECT_EQ(ImportanceText(0), Ansi(u8"未知"));
    EXPECT_EQ(ImportanceText(0xFFFFFFFF), Ansi(u8"未知"));
}

TEST(CpuShareText, HasABlankInFrontOfThePercentSign) {
    EXPECT_EQ(CpuShareText(12), "12 %");
    EXPECT_EQ(CpuShareText(0xFFFFFFFF), "-1 %");
}

TEST(TaskRequests, EndingCarriesThePackagesInOrder) {
    const std::vector<std::string> packages{"com.b", "a"};
    EXPECT_EQ(EndProcessesRequest(packages), WireBytes()
                                                 .U32(871804)    // code
                                                 .U32(26)        // total: 12 + 4 + 5 + 4 + 1
                                                 .U32(2)         // count of packages
                                                 .Text("com.b")  //
                                                 .Text("a")      //
                                                 .Get());
}

TEST(TaskRequests, NothingCheckedIsACountOfZero) {
    EXPECT_EQ(EndProcessesRequest({}), WireBytes()
                                           .U32(871804)  // code
                                           .U32(12)      // total
                                           .U32(0)       // count of packages
                                           .Get());
}

TEST(TaskRequests, NamesAreSentAsTheyStand) {
    const std::vector<std::string> packages{"\xD6\xD0"};  // 中 in the code page
    EXPECT_EQ(EndProcessesRequest(packages), WireBytes()
                                                 .U32(871804)       // code
                                                 .U32(18)           // total
                                                 .U32(1)            // count of packages
                                                 .Text("\xD6\xD0")  // not turned to UTF-8
                                                 .Get());
}

}  // namespace
}  // namespace quorvi
