// The database of regions: its file in the temporary directory, and what a look-up gives.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <thread>

#include "base/Places.h"
#include "base/Text.h"
#include "refdata/AreaTable.h"
#include "refdata/PhoneDb.h"
#include "tests/support/SmallPhoneDb.h"

namespace quorvi {
namespace {

TEST(PhoneDb, FirstPrefixIsTheTwoBytesAtTheStart) {
    const ScratchDirectory scratch;
    std::vector<std::byte> bytes(kPhoneDbSize);
    bytes[0] = std::byte{0x91};  // 145, lower byte first
    bytes[1] = std::byte{0x00};
    EXPECT_EQ(CPhoneDb(scratch.Path(), bytes).LookupAreaCode(1300000), 519);
}

TEST(PhoneDb, LastPrefixIsTheTwoBytesAt1199998) {
    const ScratchDirectory scratch;
    std::vector<std::byte> bytes(kPhoneDbSize);
    bytes[1'199'998] = std::byte{0x9D};  // 413, lower byte first
    bytes[1'199'999] = std::byte{0x01};
    const CPhoneDb db(scratch.Path(), bytes);
    EXPECT_EQ(db.LookupAreaCode(1899999), 996);
    EXPECT_EQ(db.LookupAreaCode(1899998), 0);
}

TEST(PhoneDb, OutsideTheRangeThereIsNoRecord) {
    const ScratchDirectory scratch;
    std::vector<std::byte> bytes(kPhoneDbSize, std::byte{0x01});  // 257 everywhere
    const CPhoneDb db(scratch.Path(), bytes);
    ASSERT_EQ(db.LookupAreaCode(1300000), 938);
    for (const int prefix : {1299999, 1900000, 0, -1, 139123, 13912345, INT32_MIN, INT32_MAX}) {
        EXPECT_EQ(db.LookupAreaCode(prefix), 0) << prefix;
    }
}

TEST(PhoneDb, RegionsOutsideTheTableHaveNoArea) {
    const ScratchDirectory scratch;
    const CPhoneDb db(scratch.Path(), DatabaseOf({{1391234, 414}, {1391235, 65535}}));
    EXPECT_EQ(db.LookupAreaCode(1391234), 0);
    EXPECT_EQ(db.LookupAreaCode(1391235), 0);
}

TEST(PhoneDb, Region331HasNoAreaCode) {
    EXPECT_EQ(AreaCodeOfRegion(331), 0);
    EXPECT_EQ(AreaCodeOfRegion(0), 0);
    EXPECT_EQ(AreaCodeOfRegion(330), 999);
    EXPECT_EQ(AreaCodeOfRegion(332), 478);
}

TEST(PhoneDb, Region404GivesACodeWithoutAPlace) {
    const ScratchDirectory scratch;
    const CPhoneDb db(scratch.Path(), DatabaseOf({{1391234, 404}}));
    EXPECT_EQ(db.LookupAreaCode(1391234), 890);
    EXPECT_EQ(AreaName(890), Ansi(u8"没有记录"));
}

TEST(PhoneDb, RegionTableIsWhole) {
    EXPECT_EQ(AreaCodeOfRegion(1), 21);
    EXPECT_EQ(AreaCodeOfRegion(2), 10);
    EXPECT_EQ(AreaCodeOfRegion(145), 519);
    EXPECT_EQ(AreaCodeOfRegion(413), 996);
    EXPECT_EQ(AreaCodeOfRegion(414), 0);
    EXPECT_EQ(AreaCodeOfRegion(-1), 0);
    long sum = 0;
    for (int id = 0; id <= kLastRegionId; ++id) {
        sum += AreaCodeOfRegion(id);
    }
    EXPECT_EQ(sum, 268983);
}

TEST(PhoneDb, ProgramsOwnDatabaseKnowsChangzhou) {
    const ScratchDirectory scratch;
    const CPhoneDb db(scratch.Path(), PhoneDbResource());
    EXPECT_EQ(PhoneDbResource().size(), kPhoneDbSize);
    EXPECT_EQ(db.LookupAreaCode(1391234), 519);
    EXPECT_EQ(AreaName(519), Ansi(u8"江苏常州"));
    EXPECT_EQ(PostalCode(519), "213000");
}

TEST(PhoneDb, ProgramsOwnDatabaseIsFilled) {
    const ScratchDirectory scratch;
    const CPhoneDb db(scratch.Path(), PhoneDbResource());
    int filled = 0;
    for (int prefix = kFirstPrefix; prefix <= kLastPrefix; ++prefix) {
        const int code = db.LookupAreaCode(prefix);
        filled += code != 0 ? 1 : 0;
        ASSERT_TRUE(code == 0 || HasArea(code)) << prefix;
    }
    EXPECT_GT(filled, 300'000);
    EXPECT_EQ(db.LookupAreaCode(1400000), 0);  // a block that no carrier has
}

TEST(PhoneDb, FileHoldsTheWholeResourceAndStays) {
    const ScratchDirectory scratch;
    const auto bytes = DatabaseOf({{1391234, 145}});
    { const CPhoneDb db(scratch.Path(), bytes); }
    EXPECT_EQ(BytesOf(scratch.Database()), bytes);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(scratch.Path()), {}), 1);
}

TEST(PhoneDb, FileThatStandsThereIsReplaced) {
    const ScratchDirectory scratch;
    WriteBytes(scratch.Database(), DatabaseOf({{1391234, 1}}));
    const CPhoneDb db(scratch.Path(), DatabaseOf({{1391234, 145}}));
    EXPECT_EQ(db.LookupAreaCode(1391234), 519);
}

TEST(PhoneDb, LinkThatStandsThereIsReplacedAndItsTargetLeftAlone) {
    const ScratchDirectory scratch;
    const auto target = scratch.Path() / "target";
    const auto bytes = DatabaseOf({{1391234, 1}});
    WriteBytes(target, bytes);
    std::filesystem::create_symlink(target, scratch.Database());
    const CPhoneDb db(scratch.Path(), DatabaseOf({{1391234, 145}}));
    EXPECT_EQ(db.LookupAreaCode(1391234), 519);
    EXPECT_EQ(BytesOf(target), bytes);
    EXPECT_FALSE(std::filesystem::is_symlink(scratch.Database()));
}

TEST(PhoneDb, ThreeInstancesLiveSideBySide) {
    const ScratchDirectory scratch;
    const CPhoneDb first(scratch.Path(), DatabaseOf({{1391234, 145}}));
    const CPhoneDb second(scratch.Path(), DatabaseOf({{1391234, 1}}));
    const CPhoneDb third(scratch.Path(), DatabaseOf({{1391234, 2}}));
    EXPECT_EQ(first.LookupAreaCode(1391234), 519);
    EXPECT_EQ(second.LookupAreaCode(1391234), 21);
    EXPECT_EQ(third.LookupAreaCode(1391234), 10);
}

TEST(PhoneDb, InstancesMadeAtTheSameTimeNeverSeeHalfAFile) {
    const ScratchDirectory scratch;
    const auto bytes = DatabaseOf({{1899999, 145}});
    std::vector<std::thread> threads;
    std::atomic<int> missed = 0;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int turn = 0; turn < 25; ++turn) {
                missed += CPhoneDb(scratch.Path(), bytes).LookupAreaCode(1899999) != 519 ? 1 : 0;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(missed, 0);
}

TEST(PhoneDb, ShortFileHasNoRecordsBehindItsEnd) {
    const ScratchDirectory scratch;
    auto bytes = DatabaseOf({{1300000, 145}, {1300001, 145}, {1300002, 145}});
    bytes.resize(5);  // two entries, and one byte of the third
    const CPhoneDb db(scratch.Path(), bytes);
    EXPECT_EQ(db.LookupAreaCode(1300001), 519);
    EXPECT_EQ(db.LookupAreaCode(1300002), 0);
    EXPECT_EQ(db.LookupAreaCode(1899999), 0);
}

TEST(PhoneDb, WithoutResourceAnEmptyFileIsMade) {
    const ScratchDirectory scratch;
    const CPhoneDb db(scratch.Path(), std::vector<std::byte>());
    EXPECT_EQ(db.LookupAreaCode(1391234), 0);
    ASSERT_TRUE(std::filesystem::exists(scratch.Database()));
    EXPECT_EQ(std::filesystem::file_size(scratch.Database()), 0U);
}

TEST(PhoneDb, WithoutDirectoryNothingIsKnown) {
    const ScratchDirectory scratch;
    const CPhoneDb db(scratch.Path() / "missing", DatabaseOf({{1391234, 145}}));
    EXPECT_EQ(db.LookupAreaCode(1391234), 0);
    EXPECT_EQ(AreaName(db.LookupAreaCode(1391234)), Ansi(u8"没有记录"));
    EXPECT_EQ(PostalCode(db.LookupAreaCode(1391234)), Ansi(u8"没有找到"));
}

// The place where a file should be is one that cannot be replaced by any.
TEST(PhoneDb, WhatIsNoFileIsNotTrusted) {
    const ScratchDirectory scratch;
    std::filesystem::create_directories(scratch.Database() / "inside");
    const CPhoneDb db(scratch.Path(), DatabaseOf({{1391234, 145}}));
    EXPECT_EQ(db.LookupAreaCode(1391234), 519);  // out of the resource itself
}

TEST(PhoneDb, AnotherUsersFileIsNotTrusted) {
    if (::geteuid() != 0) {
        GTEST_SKIP() << "only root can make another user's file";
    }
    const ScratchDirectory scratch;
    WriteBytes(scratch.Database(), DatabaseOf({{1391234, 1}}));
    ASSERT_EQ(::chown(scratch.Database().c_str(), 65534, 65534), 0);
    // Neither to be deleted nor to be replaced by this thread.
    ASSERT_EQ(::chmod(scratch.Path().c_str(), 0555), 0);
    ASSERT_EQ(::seteuid(1), 0);
    {
        const CPhoneDb db(scratch.Path(), DatabaseOf({{1391234, 145}}));
        EXPECT_EQ(db.LookupAreaCode(1391234), 519);
    }
    ASSERT_EQ(::seteuid(0), 0);
    EXPECT_EQ(BytesOf(scratch.Database()), DatabaseOf({{1391234, 1}}));
}

TEST(PhoneDb, DatabaseBesideTheProgramIsTakenInPlaceOfItsOwn) {
    const ScratchDirectory program;
    const ScratchDirectory temporary;
    Places places;
    places.program = program.Path() / "quorvi";
    places.temporary = temporary.Path();
    EXPECT_EQ(CPhoneDb(places).LookupAreaCode(1391234), 519);
    WriteBytes(program.Database(), DatabaseOf({{1391234, 2}}));
    EXPECT_EQ(CPhoneDb(places).LookupAreaCode(1391234), 10);
    EXPECT_EQ(BytesOf(temporary.Database()), DatabaseOf({{1391234, 2}}));
}

TEST(PhoneDb, AShortDatabaseBesideTheProgramGivesTheTextsOfAnUnknownPrefix) {
    const ScratchDirectory program;
    const ScratchDirectory temporary;
    Places places;
    places.program = program.Path() / "quorvi";
    places.temporary = temporary.Path();
    WriteBytes(program.Database(), {std::byte{0x91}});
    EXPECT_EQ(CPhoneDb(places).LookupAreaCode(1391234), 0);
    WriteBytes(program.Database(), {});
    EXPECT_EQ(CPhoneDb(places).LookupAreaCode(1391234), 0);
}

TEST(PhoneDb, AnInstanceCanBeMoved) {
    const ScratchDirectory scratch;
    CPhoneDb first(scratch.Path(), DatabaseOf({{1391234, 145}}));
    CPhoneDb second(std::move(first));
    EXPECT_EQ(second.LookupAreaCode(1391234), 519);
    first = CPhoneDb(scratch.Path(), DatabaseOf({{1391234, 1}}));
    second = std::move(first);
    EXPECT_EQ(second.LookupAreaCode(1391234), 21);
}

}  // namespace
}  // namespace quorvi
