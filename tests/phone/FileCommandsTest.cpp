#include <gmock/gmock.h>

#include <set>

#include "phone/agent/HostileTexts.h"
#include "tests/support/Ask.h"

namespace quorvi::phone {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

struct Listed {
    std::uint32_t kind = 0;
    std::string path;
    std::uint64_t size = 0;
    std::uint64_t modified = 0;
    std::uint32_t readable = 0;
    std::uint32_t writable = 0;
    std::uint32_t hidden = 0;
};

std::vector<Listed> RecordsOf(const Outcome& outcome) {
    EXPECT_THAT(outcome.deviations, IsEmpty());
    const ReplyBuffer reply = PayloadOf(outcome);
    ReplyCursor cursor(reply);
    std::vector<Listed> records;
    do {
        Listed record;
        record.kind = cursor.TakeUInt32();
        record.path = cursor.TakeUtf8().value_or("");
        record.size = cursor.TakeUInt64();
        record.modified = cursor.TakeUInt64();
        record.readable = cursor.TakeUInt32();
        record.writable = cursor.TakeUInt32();
        record.hidden = cursor.TakeUInt32();
        records.push_back(record);
    } while (!cursor.AtEnd());
    EXPECT_FALSE(cursor.Overran());
    return records;
}

class FileCommands : public testing::Test {
  protected:
    Outcome AskRoot() { return Ask(data_, BareRequest(AgentCommand::listFileRoots)); }
    Outcome AskFolder(std::string_view path) {
        return Ask(data_,
                   RequestBuilder(AgentCommand::listDirectory).BeginItem().AddRawText(path).Take());
    }
    // Of a listing, the header included.
    static const Listed& Entry(const std::vector<Listed>& records, std::string_view path) {
        for (const Listed& record : records) {
            if (record.path == path) {
                return record;
            }
        }
        ADD_FAILURE() << path << " is not there";
        return records.front();
    }

    Handset handset_{DeliveredProfile(0)};
    AgentData data_{handset_};
};

TEST_F(FileCommands, TheRootIsItsOwnParentAndHoldsTheCard) {
    const auto records = RecordsOf(AskRoot());
    EXPECT_EQ(records[0].path, "/");
    EXPECT_EQ(records[0].kind, 1u);
    const Listed& card = Entry(records, "/sdcard");
    EXPECT_EQ(card.kind, 1u);
    EXPECT_EQ(card.readable, 1u);
    EXPECT_EQ(Entry(records, "/init.rc").kind, 0u);
    EXPECT_EQ(Entry(records, "/init.rc").readable, 0u);
    EXPECT_EQ(Entry(records, "/proc").modified, 0u);
}

TEST_F(FileCommands, AFolderNamesTheOneAroundIt) {
    EXPECT_EQ(RecordsOf(AskFolder("/sdcard"))[0].path, "/");
    EXPECT_EQ(RecordsOf(AskFolder("/sdcard/DCIM/Camera"))[0].path, "/sdcard/DCIM");
}

TEST_F(FileCommands, EachFolderThatIsListedCanBeOpened) {
    std::vector<std::string> open{"/"};
    std::set<std::string> seen;
    while (!open.empty()) {
        const std::string path = open.back();
        open.pop_back();
        ASSERT_TRUE(seen.insert(path).second) << path;
        const auto records = RecordsOf(AskFolder(path));
        for (std::size_t i = 1; i < records.size(); ++i) {
            if (records[i].kind == 1) {
                open.push_back(records[i].path);
            } else {
                seen.insert(records[i].path);
            }
        }
    }
    EXPECT_EQ(seen.size(), data_.files.Count() + 1);  // the root is no entry of any
    EXPECT_GT(seen.size(), 300u);
}

TEST_F(FileCommands, TheCardHoldsWhatIsHardToShow) {
    const auto card = RecordsOf(AskFolder("/sdcard"));
    EXPECT_EQ(Entry(card, "/sdcard/.nomedia").hidden, 1u);
    EXPECT_EQ(Entry(card, "/sdcard/.android_secure").readable, 0u);
    EXPECT_EQ(Entry(card, "/sdcard/backup_0618.tar.gz").size, 19'503'513u);
    EXPECT_EQ(Entry(card, "/sdcard/LOST.DIR").modified, 0u);
    const auto movies = RecordsOf(AskFolder("/sdcard/Movies"));
    EXPECT_EQ(Entry(movies, "/sdcard/Movies/整卡镜像.img").size, 1ull << 32);
}

TEST_F(FileCommands, AnEmptyFolderIsItsHeaderAlone) {
    EXPECT_THAT(RecordsOf(AskFolder("/sdcard/空文件夹")), SizeIs(1));
}

TEST_F(FileCommands, AFolderThatTheAgentMayNotReadIsItsHeaderAlone) {
    const auto records = RecordsOf(AskFolder("/data"));
    EXPECT_THAT(records, SizeIs(1));
    EXPECT_EQ(records[0].path, "/");
}

TEST_F(FileCommands, SeparatorsAtTheEndOfAPathCountForNothing) {
    const auto records = RecordsOf(AskFolder("/sdcard//"));
    EXPECT_EQ(records[0].path, "/");
    EXPECT_EQ(records[1].path, "/sdcard/DCIM");
}

TEST_F(FileCommands, WhatIsNoFolderHasNoData) {
    for (const char* path : {"", "sdcard", "/nowhere", "/init.rc", "/sdcard/../data", "/./sdcard",
                             "/sdcard/DCIM/..", "..", "\\sdcard", "C:", " /sdcard"}) {
        const Outcome outcome = AskFolder(path);
        EXPECT_TRUE(IsNoData(outcome)) << path;
        EXPECT_THAT(outcome.note, HasSubstr("unknown")) << path;
    }
    for (const std::string& path : HostileTexts()) {
        EXPECT_TRUE(IsNoData(AskFolder(path)));
    }
}

TEST_F(FileCommands, NamesWhatIsWrongWithAFrame) {
    const Outcome none = Ask(data_, RequestBuilder(AgentCommand::listDirectory).Take());
    EXPECT_FALSE(none.deviations.empty());
    const Outcome more = Ask(data_, RequestBuilder(AgentCommand::listDirectory)
                                        .BeginItem()
                                        .AddRawText("/sdcard")
                                        .AddUInt32(1)
                                        .Take());
    EXPECT_THAT(more.deviations, SizeIs(1));
}

TEST_F(FileCommands, MadeUpFilesAreAsManyAsAskedFor) {
    data_.Fill({.files = 10'000});
    EXPECT_THAT(RecordsOf(AskRoot()), SizeIs(10'001));
}

TEST_F(FileCommands, AHostilePhoneHasHostileNamesThatCanBeOpened) {
    data_.Fill({.hostile = true});
    const auto records = RecordsOf(AskRoot());
    for (const std::string& harm : HostileTexts()) {
        EXPECT_EQ(Entry(records, "/" + harm).kind, 1u);
        EXPECT_EQ(RecordsOf(AskFolder("/" + harm)).back().path, "/" + harm + "/" + harm + ".txt");
    }
}

}  // namespace
}  // namespace quorvi::phone
