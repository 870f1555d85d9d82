#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "base/Text.h"
#include "pages/contacts/ContactGroups.h"
#include "tests/support/WireBytes.h"

namespace quorvi {
namespace {

WireBytes Start() {
    return WireBytes().U32(0);  // leading word
}

WireBytes& AddGroup(WireBytes& bytes, std::uint64_t id, std::string_view title,
                    std::uint32_t visible) {
    return bytes
        .U64(id)                   // group id
        .Text(title)               // title
        .Text("lin@mail.example")  // account
        .U32(visible);             // visible
}

TEST(GroupReading, ReadsEachFieldOfARow) {
    WireBytes bytes = Start();
    AddGroup(bytes, 0x100000003, "家人", 1);
    const ContactGroups groups = ParseContactGroups(bytes.Buffer());
    EXPECT_FALSE(groups.EndedByMark());
    ASSERT_EQ(groups.rows.size(), 1u);
    EXPECT_EQ(groups.rows[0].id, 3u);  // the low 32 bits
    EXPECT_EQ(groups.rows[0].title, Ansi(u8"家人"));
    EXPECT_EQ(groups.rows[0].account, "lin@mail.example");
    EXPECT_TRUE(groups.rows[0].visible);
}

TEST(GroupReading, AVisibleValueOtherThanOneIsHidden) {
    WireBytes bytes = Start();
    AddGroup(bytes, 1, "A", 0);
    AddGroup(bytes, 2, "B", 2);
    AddGroup(bytes, 3, "C", 1);
    const ContactGroups groups = ParseContactGroups(bytes.Buffer());
    ASSERT_EQ(groups.rows.size(), 3u);
    EXPECT_EQ(GroupVisibleText(groups.rows[0].visible), Ansi(u8"【隐藏】"));
    EXPECT_EQ(GroupVisibleText(groups.rows[1].visible), Ansi(u8"【隐藏】"));
    EXPECT_EQ(GroupVisibleText(groups.rows[2].visible), Ansi(u8"是"));
}

TEST(GroupReading, AnAbsentTitleEndsTheReadBehindItsId) {
    WireBytes bytes = Start();
    AddGroup(bytes, 1, "A", 1);
    bytes.U64(2).Absent();
    const ContactGroups groups = ParseContactGroups(bytes.Buffer());
    EXPECT_EQ(groups.rows.size(), 1u);
    EXPECT_TRUE(groups.EndedByMark());
    EXPECT_EQ(groups.marked->id, 2u);
}

TEST(GroupReading, ALengthThatPointsOutsideEndsTheRun) {
    WireBytes bytes = Start();
    AddGroup(bytes, 1, "A", 1);
    bytes.U64(2).U32(0xFFFFFFFF).Raw("x");
    const ContactGroups groups = ParseContactGroups(bytes.Buffer());
    EXPECT_EQ(groups.rows.size(), 1u);
    EXPECT_FALSE(groups.EndedByMark());
}

TEST(GroupReading, ARowInWhoseIdACutReplyEndsIsDropped) {
    WireBytes bytes = Start();
    AddGroup(bytes, 1, "A", 1);
    const std::size_t first = bytes.Get().size();
    AddGroup(bytes, 0x102, "B", 1);
    EXPECT_EQ(ParseContactGroups(bytes.CutAfter(first + 7)).rows.size(), 1u);  // 0x100 is another
    ASSERT_EQ(ParseContactGroups(bytes.CutAfter(first + 8)).rows.size(), 2u);
    EXPECT_EQ(ParseContactGroups(bytes.CutAfter(first + 8)).rows[1].id, 0x102u);
}

TEST(GroupRequests, CreatingCarriesTheTitleInUtf8) {
    EXPECT_EQ(AddGroupRequest(Ansi(u8"家")), WireBytes()
                                                 .U32(870121)  // code
                                                 .U32(19)      // total: 16 and the title
                                                 .U32(1)       // item count
                                                 .Text("家")   // title, three bytes
                                                 .Get());
}

TEST(GroupRequests, RenamingCarriesTheIdAndTheTitleEvenUnchanged) {
    EXPECT_EQ(RenameGroupRequest(3, "A"), WireBytes()
                                              .U32(870122)  // code
                                              .U32(21)      // total: 20 and the title
                                              .U32(1)       // item count
                                              .U32(3)       // group id
                                              .Text("A")    // title
                                              .Get());
}

TEST(GroupRequests, DeletingCarriesTheIdsInOrder) {
    const std::array<std::uint32_t, 2> ids{5, 2};
    EXPECT_EQ(DeleteGroupsRequest(ids), WireBytes()
                                            .U32(870124)  // code
                                            .U32(20)      // total
                                            .U32(2)       // item count
                                            .U32(5)       // first id
                                            .U32(2)       // second id
                                            .Get());
}

}  // namespace
}  // namespace quorvi
