#include <gmock/gmock.h>

#include <algorithm>
#include <set>

#include "phone/agent/AppIcons.h"
#include "phone/agent/Png.h"
#include "tests/support/Ask.h"
#include "tests/support/Bytes.h"

namespace quorvi::phone {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ProcessCommands : public testing::Test {
  protected:
    struct Listed {
        std::uint64_t memory;
        std::string package;
        std::size_t iconBytes;
    };

    std::vector<Listed> List() {
        const Outcome outcome = Ask(data_, BareRequest(AgentCommand::listProcesses));
        EXPECT_THAT(outcome.deviations, IsEmpty());
        const ReplyBuffer reply = PayloadOf(outcome);
        ReplyCursor cursor(reply);
        std::vector<Listed> processes;
        do {
            Listed one{};
            one.memory = cursor.TakeUInt64();
            cursor.SkipBytes(4 + 4 + 4);  // importance, CPU share, identifier
            EXPECT_LE(cursor.TakeUInt32(), 1u);
            cursor.SkipText();
            one.package = cursor.TakeUtf8().value_or("");
            one.iconBytes = cursor.TakeUInt64();
            cursor.SkipBytes(one.iconBytes);
            processes.push_back(one);
        } while (!cursor.AtEnd());
        EXPECT_FALSE(cursor.Overran());
        return processes;
    }
    bool Runs(std::string_view package) {
        const auto all = List();
        return std::any_of(all.begin(), all.end(),
                           [&](const Listed& one) { return one.package == package; });
    }
    std::uint32_t Free() {
        const Outcome outcome = Ask(data_, BareRequest(AgentCommand::freeMemory));
        return ReadUInt32(outcome.reply.bytes.data());
    }
    Outcome End(std::initializer_list<std::string_view> packages) {
        RequestBuilder request(AgentCommand::endProcesses);
        for (const auto package : packages) {
            request.BeginItem().AddRawText(package);
        }
        return Ask(data_, request.Take());
    }

    Handset handset_{DeliveredProfile(0)};
    AgentData data_{handset_};
};

TEST_F(ProcessCommands, ListHoldsEveryProcessWithItsIcon) {
    const auto processes = List();
    EXPECT_EQ(processes.size(), data_.processes.running.size());
    EXPECT_GT(processes.size(), 15u);
    for (const Listed& one : processes) {
        EXPECT_GT(one.iconBytes, 0u) << one.package;
    }
}

TEST_F(ProcessCommands, AnEndedProcessIsGoneAndItsMemoryIsFree) {
    const std::uint32_t before = Free();
    EXPECT_TRUE(Runs("com.example.weather"));
    const Outcome outcome = Ask(data_, Join({
                                           {0, 0x0d, 0x4d, 0x7c},  // 871804
                                           {0, 0, 0, 35},          // total
                                           {0, 0, 0, 1},           // count of packages
                                           {0, 0, 0, 19},          // bytes of the name
                                           "com.example.weather",  //
                                       }));
    EXPECT_THAT(outcome.deviations, IsEmpty());
    EXPECT_FALSE(Runs("com.example.weather"));
    EXPECT_EQ(Free(), before + 9'432u * 1024);
}

TEST_F(ProcessCommands, AllFitIntoThePhonesMemory) {
    std::uint64_t together = Free();
    for (const Listed& one : List()) {
        together += one.memory;
    }
    EXPECT_EQ(data_.facts.ram, "341 MB");
    EXPECT_LT(together, 341ULL * 1024 * 1024);
}

TEST_F(ProcessCommands, AllProcessesOfAPackageEnd) {
    const std::size_t before = List().size();
    static_cast<void>(End({"com.example.chat", "com.android.music"}));
    EXPECT_EQ(List().size(), before - 3);
}

TEST_F(ProcessCommands, NothingChosenChangesNothing) {
    const std::size_t before = List().size();
    const Outcome outcome = End({});
    EXPECT_THAT(outcome.deviations, IsEmpty());
    EXPECT_EQ(ReadUInt32(outcome.reply.bytes.data()), 1u);
    EXPECT_EQ(List().size(), before);
}

TEST_F(ProcessCommands, WhatDoesNotRunIsNoDeviation) {
    const std::uint32_t before = Free();
    EXPECT_THAT(End({"com.example.gone"}).deviations, IsEmpty());
    EXPECT_EQ(Free(), before);
}

TEST_F(ProcessCommands, AFrameShorterThanItsNamesIsNamed) {
    const Outcome outcome =
        Ask(data_, Join({{0, 0x0d, 0x4d, 0x7c}, {0, 0, 0, 16}, {0, 0, 0, 1}, {0, 0, 0, 9}}));
    EXPECT_THAT(outcome.deviations,
                ElementsAre("the frame ends before the fields of its 1 items do"));
}

TEST_F(ProcessCommands, TheFreeMemoryNeverPassesItsWord) {
    data_.Fill({.hostile = true});
    static_cast<void>(End({"com.example.numbers"}));
    EXPECT_EQ(Free(), UINT32_MAX);
}

TEST_F(ProcessCommands, MadeUpProcessesAreAsManyAsAskedFor) {
    data_.Fill({.processes = 5'000, .iconBytes = 10'000});
    const auto processes = List();
    ASSERT_EQ(processes.size(), 5'000u);
    EXPECT_EQ(processes.back().iconBytes, 10'000u);
}

TEST(Png, AFileEndsWithTheChecksumThatDecodersKnow) {
    const Bytes file = PngFile(2, 1, {}, std::array<std::uint8_t, 2>{});
    const Bytes end{file.end() - 12, file.end()};
    EXPECT_EQ(end, Join({{0, 0, 0, 0}, "IEND", {0xae, 0x42, 0x60, 0x82}}));
}

TEST(AppIcon, IsTheSameForTheSamePackageAndAnotherForOthers) {
    EXPECT_EQ(*AppIcon("com.android.phone"), *AppIcon("com.android.phone"));
    std::set<Bytes> icons;
    for (const char* package : {"com.android.phone", "com.example.chat", "com.example.run"}) {
        icons.insert(*AppIcon(package));
    }
    EXPECT_GT(icons.size(), 1u);
}

}  // namespace
}  // namespace quorvi::phone
